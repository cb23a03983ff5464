#pragma once

#include "platform/CaeUtils/omu_PrimEnum.h"

/// Whether the matrices of a harmonic problem are factored with their imaginary parts, or the real ones alone.
enum class kprC_FactorizationEnm { COMPLEX, REAL_ONLY };
template <> struct omu_EnumTable<kprC_FactorizationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"COMPLEX", 0}, {"REAL_ONLY", 1}, {nullptr, 0}};
};
