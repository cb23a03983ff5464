#include "module/kpr/records/kprC_FrequencyRange.h"

#include "module/kpr/records/kprC_Checks.h"

template <class Derived> void kprC_SteadyStateFrequency<Derived>::AssertValid() const {
  kprC_Assert(lower >= 0.0 && upper >= lower && kprC_IsGiven(upper), kprC_ErrorEnm::FrequencyRangeValues);
  kprC_Assert(kprC_IsPositive(nPoints), kprC_ErrorEnm::FrequencyRangePoints);
  kprC_Assert(IsBiased(), kprC_ErrorEnm::BiasZero);
}

void kprC_RandomResponseFrequency::AssertValid() const {
  kprC_Assert(lower > 0.0 && upper > lower && kprC_IsGiven(upper), kprC_ErrorEnm::RandomResponseRange);
  kprC_Assert(nCalcs >= 2 && kprC_IsGiven(nCalcs), kprC_ErrorEnm::EigenfrequencyPoints);
  kprC_Assert(IsBiased(), kprC_ErrorEnm::BiasZero);
}

template void kprC_SteadyStateFrequency<kprC_SteadyStateDirectFrequency>::AssertValid() const;
template void kprC_SteadyStateFrequency<kprC_SteadyStateModalFrequency>::AssertValid() const;
template void kprC_SteadyStateFrequency<kprC_SteadyStateSubspaceFrequency>::AssertValid() const;

kprC_SteadyStateDirectFrequency::kprC_SteadyStateDirectFrequency() = default;
kprC_SteadyStateDirectFrequency::kprC_SteadyStateDirectFrequency(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
kprC_SteadyStateModalFrequency::kprC_SteadyStateModalFrequency() = default;
kprC_SteadyStateModalFrequency::kprC_SteadyStateModalFrequency(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
kprC_SteadyStateSubspaceFrequency::kprC_SteadyStateSubspaceFrequency() = default;
kprC_SteadyStateSubspaceFrequency::kprC_SteadyStateSubspaceFrequency(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
kprC_RandomResponseFrequency::kprC_RandomResponseFrequency() = default;
kprC_RandomResponseFrequency::kprC_RandomResponseFrequency(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
