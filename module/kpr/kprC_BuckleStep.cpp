#include "module/kpr/kprC_BuckleStep.h"

kprC_BuckleStep::kprC_BuckleStep() = default;
kprC_BuckleStep::kprC_BuckleStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
