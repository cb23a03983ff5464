#include "module/kpr/kprC_ViscoStep.h"

kprC_ViscoStep::kprC_ViscoStep() = default;
kprC_ViscoStep::kprC_ViscoStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
