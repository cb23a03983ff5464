#include "module/kpr/steps/kprC_MassDiffusionStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_MassDiffusionStep::kprC_MassDiffusionStep() = default;
kprC_MassDiffusionStep::kprC_MassDiffusionStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_MassDiffusionStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_AssertGeneral(*this);
  if (!kprC_IsControlled(*this)) { return; }
  kprC_Assert(kprC_IsGiven(dcmax), DcmaxRequired);
  kprC_Assert(dcmax > 0.0, Dcmax);
  kprC_Assert(kprC_IsPositiveIfGiven(end), EndConcentrationRate);
}
