#pragma once

#include "platform/CaeUtils/omu_PrimEnum.h"

/// The part of a buckle step in which a constraint acts.
enum kprC_BucklingCaseEnm {
  kprC_STRESS_PERTURBATION = 1,        ///< in the perturbation that the modes are computed from
  kprC_BUCKLING_MODES = 2,             ///< in the modes
  kprC_PERTURBATION_AND_BUCKLING = 3,  ///< in both
};

template <> struct omu_EnumTable<kprC_BucklingCaseEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"STRESS_PERTURBATION", 1}, {"BUCKLING_MODES", 2}, {"PERTURBATION_AND_BUCKLING", 3}, {nullptr, 0}};
};
