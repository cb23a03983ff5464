#include "module/kpr/kprC_SteadyStateModalStep.h"

kprC_SteadyStateModalStep::kprC_SteadyStateModalStep() = default;
kprC_SteadyStateModalStep::kprC_SteadyStateModalStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
