#include "module/kpr/steps/kprC_ComplexFrequencyStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_ComplexFrequencyStep::kprC_ComplexFrequencyStep() = default;
kprC_ComplexFrequencyStep::kprC_ComplexFrequencyStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_ComplexFrequencyStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_Assert(kprC_IsPositiveIfGiven(numEigen), NumEigenvalues);
  kprC_Assert(kprC_IsPositiveIfGiven(minEigen), MinEigenvalue);
  kprC_Assert(kprC_IsPositiveIfGiven(maxEigen), MaxEigenvalue);
  kprC_Assert(kprC_IsNotNegativeIfGiven(propertyEvaluationFrequency), PropertyFrequency);
}
