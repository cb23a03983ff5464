#include "module/kpr/steps/kprC_RandomResponseStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_RandomResponseStep::kprC_RandomResponseStep() = default;
kprC_RandomResponseStep::kprC_RandomResponseStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_RandomResponseStep::AssertValid() const {
  kprC_AssertRanges(freq);
  AssertDamping();
}
