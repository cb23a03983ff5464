#include "module/kpr/steps/kprC_SteadyStateSubspaceStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_SteadyStateSubspaceStep::kprC_SteadyStateSubspaceStep() = default;
kprC_SteadyStateSubspaceStep::kprC_SteadyStateSubspaceStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_SteadyStateSubspaceStep::AssertValid() const {
  kprC_AssertRanges(frequencyRange);
  kprC_Assert(kprC_IsPositiveIfGiven(maxDampingChange), kprC_ErrorEnm::MaxDampingChange);
  kprC_Assert(kprC_IsPositiveIfGiven(maxStiffnessChange), kprC_ErrorEnm::MaxStiffnessChange);
}
