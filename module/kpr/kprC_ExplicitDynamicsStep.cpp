#include "module/kpr/kprC_ExplicitDynamicsStep.h"

kprC_ExplicitDynamicsStep::kprC_ExplicitDynamicsStep() = default;
kprC_ExplicitDynamicsStep::kprC_ExplicitDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
