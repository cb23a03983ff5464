#include "module/kpr/kprC_TempDisplacementDynamicsStep.h"

kprC_TempDisplacementDynamicsStep::kprC_TempDisplacementDynamicsStep() = default;
kprC_TempDisplacementDynamicsStep::kprC_TempDisplacementDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
