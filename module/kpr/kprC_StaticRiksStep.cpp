#include "module/kpr/kprC_StaticRiksStep.h"

kprC_StaticRiksStep::kprC_StaticRiksStep() = default;
kprC_StaticRiksStep::kprC_StaticRiksStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
