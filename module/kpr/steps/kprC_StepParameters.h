#pragma once

#include "module/kpr/kprC_assert.h"
#include "module/kpr/records/kprC_MassScaling.h"
#include "module/kpr/steps/kprC_Step.h"

/// The text by which all eigenvalues are asked for.
enum class kprC_AllEigenEnm { ALL };
template <> struct omu_EnumTable<kprC_AllEigenEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"ALL", 0}, {nullptr, 0}};
};

/// Names and descriptions of the parameters that step classes share (kprC_Parameters.def).
struct kprC_StepParameters {
#define KPR_PARAMETER(name, meaning, unit, ...)                  \
  static constexpr omn_FixedString name##Cmd() { return #name; } \
  static constexpr cls_MemberText name##Text() { return cls_MemberText{meaning, unit} __VA_ARGS__; }
#include "module/kpr/steps/kprC_Parameters.def"
#undef KPR_PARAMETER
};
