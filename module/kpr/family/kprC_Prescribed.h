#pragma once

#include "platform/CaeUtils/omu_PrimEnum.h"

/// How the values of an attribute vary over its region.
enum class kprC_DistributionEnm {
  UNIFORM = 0,
  USER_DEFINED = 1,  ///< a user subroutine gives them
  FIELD = 2,         ///< a named field scales them
};
template <> struct omu_EnumTable<kprC_DistributionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"UNIFORM", 0}, {"USER_DEFINED", 1}, {"FIELD", 2}, {nullptr, 0}};
};

/// Whether a degree of freedom is a temperature: 11 to 31, through the thickness of a shell.
constexpr bool kprC_IsTemperature(int dof) { return dof >= 11 && dof <= 31; }
