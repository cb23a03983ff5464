#include "module/kpr/kprC_HeatTransferStep.h"

kprC_HeatTransferStep::kprC_HeatTransferStep() = default;
kprC_HeatTransferStep::kprC_HeatTransferStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
