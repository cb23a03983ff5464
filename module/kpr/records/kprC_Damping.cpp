#include "module/kpr/records/kprC_Damping.h"

#include "module/kpr/records/kprC_Checks.h"

using enum kprC_ErrorEnm;

void kprC_ModeRange::AssertValid() const {
  kprC_Assert(kprC_IsPositive(start), DampingStartMode);
  kprC_Assert(end >= 1, DampingEndMode);
  kprC_Assert(end >= start, DampingModeRange);
}

void kprC_DampingFrequency::AssertValid() const { kprC_Assert(kprC_IsNotNegative(frequency), DampingFrequency); }
void kprC_CriticalFraction::AssertValid() const { kprC_Assert(kprC_IsNotNegative(fraction), CriticalDampingFraction); }
void kprC_RayleighFactors::AssertValid() const { kprC_Assert(kprC_IsNotNegative(beta), RayleighBeta); }
void kprC_StructuralFactor::AssertValid() const { kprC_Assert(kprC_IsNotNegative(factor), StructuralDamping); }

#define KPR_DAMPING(Record, Where, What)                                                          \
  Record##Component::Record##Component() = default;                                               \
  Record##Component::Record##Component(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); } \
  Record::Record() = default;                                                                     \
  Record::Record(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
#include "module/kpr/records/kprC_Damping.def"
#undef KPR_DAMPING
