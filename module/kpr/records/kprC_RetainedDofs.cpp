#include "module/kpr/records/kprC_RetainedDofs.h"

kprC_RetainedDofs::kprC_RetainedDofs() = default;
kprC_RetainedDofs::kprC_RetainedDofs(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
