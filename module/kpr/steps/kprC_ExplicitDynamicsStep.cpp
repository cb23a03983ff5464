#include "module/kpr/steps/kprC_ExplicitDynamicsStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_ExplicitDynamicsStep::kprC_ExplicitDynamicsStep() = default;
kprC_ExplicitDynamicsStep::kprC_ExplicitDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_ExplicitDynamicsStep::AssertValid() const { kprC_AssertExplicit(timePeriod, *this); }
