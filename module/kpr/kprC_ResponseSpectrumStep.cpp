#include "module/kpr/kprC_ResponseSpectrumStep.h"

kprC_ResponseSpectrumStep::kprC_ResponseSpectrumStep() = default;
kprC_ResponseSpectrumStep::kprC_ResponseSpectrumStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
