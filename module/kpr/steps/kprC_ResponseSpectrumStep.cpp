#include "module/kpr/steps/kprC_ResponseSpectrumStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_ResponseSpectrumStep::kprC_ResponseSpectrumStep() = default;
kprC_ResponseSpectrumStep::kprC_ResponseSpectrumStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_ResponseSpectrumStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_Assert(!components.IsEmpty(), FrequencyRangeMissing);
  kprC_Assert(components.Size() <= 3, TooManySpectrumComponents);
  for (kprC_ResponseSpectrumComponent const& component : components) { component.AssertValid(); }
  AssertDamping();
}
