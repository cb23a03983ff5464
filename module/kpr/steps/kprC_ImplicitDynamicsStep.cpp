#include "module/kpr/steps/kprC_ImplicitDynamicsStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_ImplicitDynamicsStep::kprC_ImplicitDynamicsStep() = default;
kprC_ImplicitDynamicsStep::kprC_ImplicitDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_ImplicitDynamicsStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_AssertGeneral(*this);
  kprC_Assert(!kprC_IsGiven(alpha) || (alpha >= -0.333 && alpha <= 0.0), NumericalDamping);
  if (!IsAutomatic()) { return; }
  kprC_Assert(nohaf || kprC_IsPositive(haftol), MaxHalfStepResidualRequired);
  kprC_Assert(!nohaf, HalfStepResidualsRequired);
}
