#include "module/kpr/steps/kprC_SteadyStateModalStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_SteadyStateModalStep::kprC_SteadyStateModalStep() = default;
kprC_SteadyStateModalStep::kprC_SteadyStateModalStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_SteadyStateModalStep::AssertValid() const {
  kprC_AssertRanges(frequencyRange);
  AssertDamping();
}
