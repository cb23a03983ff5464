#include "module/kpr/steps/kprC_AnnealStep.h"

kprC_AnnealStep::kprC_AnnealStep() = default;
kprC_AnnealStep::kprC_AnnealStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
