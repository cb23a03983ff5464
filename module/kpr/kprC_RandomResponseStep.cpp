#include "module/kpr/kprC_RandomResponseStep.h"

kprC_RandomResponseStep::kprC_RandomResponseStep() = default;
kprC_RandomResponseStep::kprC_RandomResponseStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
