#include "module/kpr/records/kprC_ResponseSpectrumComponent.h"

#include "module/kpr/kprC_assert.h"

kprC_ResponseSpectrumComponent::kprC_ResponseSpectrumComponent() = default;
kprC_ResponseSpectrumComponent::kprC_ResponseSpectrumComponent(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_ResponseSpectrumComponent::AssertValid() const { kprC_Assert(!respSpectrum.IsEmpty(), kprC_ErrorEnm::SpectrumName); }
