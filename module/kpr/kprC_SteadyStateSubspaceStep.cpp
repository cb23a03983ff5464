#include "module/kpr/kprC_SteadyStateSubspaceStep.h"

kprC_SteadyStateSubspaceStep::kprC_SteadyStateSubspaceStep() = default;
kprC_SteadyStateSubspaceStep::kprC_SteadyStateSubspaceStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
