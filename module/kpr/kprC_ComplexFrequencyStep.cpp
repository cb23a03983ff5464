#include "module/kpr/kprC_ComplexFrequencyStep.h"

kprC_ComplexFrequencyStep::kprC_ComplexFrequencyStep() = default;
kprC_ComplexFrequencyStep::kprC_ComplexFrequencyStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
