#include "module/kpr/steps/kprC_CoupledTempDisplacementStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_CoupledTempDisplacementStep::kprC_CoupledTempDisplacementStep() = default;
kprC_CoupledTempDisplacementStep::kprC_CoupledTempDisplacementStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_CoupledTempDisplacementStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_AssertGeneral(*this);
  if (!kprC_IsControlled(*this)) { return; }
  bool const isAnyGiven = kprC_IsGiven(cetol) || kprC_IsGiven(deltmx);
  kprC_Assert(isAnyGiven && kprC_IsPositiveIfGiven(cetol) && kprC_IsPositiveIfGiven(deltmx), CetolOrDeltmxRequired);
}
