#include "module/kpr/kprC_SubspaceDynamicsStep.h"

kprC_SubspaceDynamicsStep::kprC_SubspaceDynamicsStep() = default;
kprC_SubspaceDynamicsStep::kprC_SubspaceDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
