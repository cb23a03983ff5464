#include "module/kpr/steps/kprC_ViscoStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_ViscoStep::kprC_ViscoStep() = default;
kprC_ViscoStep::kprC_ViscoStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_ViscoStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_AssertGeneral(*this);
  kprC_Assert(!IsAutomatic() || kprC_IsPositive(cetol), CetolRequired);
}
