#include "module/kpr/kprC_GeostaticStep.h"

kprC_GeostaticStep::kprC_GeostaticStep() = default;
kprC_GeostaticStep::kprC_GeostaticStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
