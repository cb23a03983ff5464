#include "module/kpr/steps/kprC_ModalDynamicsStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_ModalDynamicsStep::kprC_ModalDynamicsStep() = default;
kprC_ModalDynamicsStep::kprC_ModalDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_ModalDynamicsStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_AssertPeriod(timePeriod);
  kprC_Assert(kprC_IsPositive(incSize), FixedIncrementSize);
  AssertDamping();
}
