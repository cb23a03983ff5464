#include "module/kpr/kprC_CoupledTempDisplacementStep.h"

kprC_CoupledTempDisplacementStep::kprC_CoupledTempDisplacementStep() = default;
kprC_CoupledTempDisplacementStep::kprC_CoupledTempDisplacementStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
