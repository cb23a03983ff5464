#include "module/kpr/kprC_SteadyStateDirectStep.h"

kprC_SteadyStateDirectStep::kprC_SteadyStateDirectStep() = default;
kprC_SteadyStateDirectStep::kprC_SteadyStateDirectStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
