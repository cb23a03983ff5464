#include "module/kpr/kprC_MassDiffusionStep.h"

kprC_MassDiffusionStep::kprC_MassDiffusionStep() = default;
kprC_MassDiffusionStep::kprC_MassDiffusionStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
