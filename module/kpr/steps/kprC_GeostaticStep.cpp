#include "module/kpr/steps/kprC_GeostaticStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_GeostaticStep::kprC_GeostaticStep() = default;
kprC_GeostaticStep::kprC_GeostaticStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_GeostaticStep::AssertValid() const { kprC_AssertSolution(*this); }
