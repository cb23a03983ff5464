#pragma once

#include "platform/BasicUtils/cls_Members.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// Names and descriptions of the parameters that step classes share (kprC_Parameters.def).
struct kprC_StepParameters {
#define KPR_PARAMETER(name, meaning, unit, ...)                  \
  static constexpr omn_FixedString name##Cmd() { return #name; } \
  static constexpr cls_MemberText name##Text() { return cls_MemberText{meaning, unit} __VA_OPT__(.RefersTo(cls_Reference::__VA_ARGS__)); }
#include "module/kpr/steps/kprC_Parameters.def"
#undef KPR_PARAMETER
};
