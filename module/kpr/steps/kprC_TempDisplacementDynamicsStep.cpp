#include "module/kpr/steps/kprC_TempDisplacementDynamicsStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_TempDisplacementDynamicsStep::kprC_TempDisplacementDynamicsStep() = default;
kprC_TempDisplacementDynamicsStep::kprC_TempDisplacementDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_TempDisplacementDynamicsStep::AssertValid() const { kprC_AssertExplicit(timePeriod, *this); }
