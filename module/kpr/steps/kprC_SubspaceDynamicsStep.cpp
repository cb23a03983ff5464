#include "module/kpr/steps/kprC_SubspaceDynamicsStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_SubspaceDynamicsStep::kprC_SubspaceDynamicsStep() = default;
kprC_SubspaceDynamicsStep::kprC_SubspaceDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_SubspaceDynamicsStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_Assert(kprC_IsPositiveIfGiven(vectors), SubspaceModes);
  kprC_AssertPeriod(timePeriod);
  kprC_Assert(kprC_IsPositive(incSize), FixedIncrementSize);
  kprC_Assert(maxNumInc >= 1, NumIncrements);
}
