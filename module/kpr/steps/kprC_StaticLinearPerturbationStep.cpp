#include "module/kpr/steps/kprC_StaticLinearPerturbationStep.h"

kprC_StaticLinearPerturbationStep::kprC_StaticLinearPerturbationStep() = default;
kprC_StaticLinearPerturbationStep::kprC_StaticLinearPerturbationStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
