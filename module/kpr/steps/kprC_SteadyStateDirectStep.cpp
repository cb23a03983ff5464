#include "module/kpr/steps/kprC_SteadyStateDirectStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_SteadyStateDirectStep::kprC_SteadyStateDirectStep() = default;
kprC_SteadyStateDirectStep::kprC_SteadyStateDirectStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_SteadyStateDirectStep::AssertValid() const { kprC_AssertRanges(frequencyRange); }
