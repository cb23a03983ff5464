#include "module/kpr/steps/kprC_SoilsStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_SoilsStep::kprC_SoilsStep() = default;
kprC_SoilsStep::kprC_SoilsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_SoilsStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_AssertGeneral(*this);
  if (!kprC_IsControlled(*this)) { return; }
  if (creep) {
    bool const isAnyGiven = kprC_IsGiven(cetol) || kprC_IsGiven(utol);
    kprC_Assert(isAnyGiven && kprC_IsPositiveIfGiven(cetol) && kprC_IsPositiveIfGiven(utol), CetolOrUtolRequired);
  } else {
    kprC_Assert(kprC_IsPositive(utol), UtolRequiredWithoutCreep);
  }
  kprC_Assert(kprC_IsPositiveIfGiven(end), ChangeRate);
}
