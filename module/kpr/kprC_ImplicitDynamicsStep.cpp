#include "module/kpr/kprC_ImplicitDynamicsStep.h"

kprC_ImplicitDynamicsStep::kprC_ImplicitDynamicsStep() = default;
kprC_ImplicitDynamicsStep::kprC_ImplicitDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
