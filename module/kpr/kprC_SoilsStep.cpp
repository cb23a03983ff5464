#include "module/kpr/kprC_SoilsStep.h"

kprC_SoilsStep::kprC_SoilsStep() = default;
kprC_SoilsStep::kprC_SoilsStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
