#include "module/kpr/kprC_FrequencyStep.h"

kprC_FrequencyStep::kprC_FrequencyStep() = default;
kprC_FrequencyStep::kprC_FrequencyStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
