#include "module/kpr/steps/kprC_InitialStep.h"

static_assert(cls_TypeIdOf<kprC_InitialStep>::value == kprC_initialStepType);

kprC_InitialStep::kprC_InitialStep() = default;
kprC_InitialStep::kprC_InitialStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
