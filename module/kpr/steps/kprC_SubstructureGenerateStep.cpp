#include "module/kpr/steps/kprC_SubstructureGenerateStep.h"

kprC_SubstructureGenerateStep::kprC_SubstructureGenerateStep() = default;
kprC_SubstructureGenerateStep::kprC_SubstructureGenerateStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
