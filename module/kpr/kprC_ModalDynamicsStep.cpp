#include "module/kpr/kprC_ModalDynamicsStep.h"

kprC_ModalDynamicsStep::kprC_ModalDynamicsStep() = default;
kprC_ModalDynamicsStep::kprC_ModalDynamicsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
