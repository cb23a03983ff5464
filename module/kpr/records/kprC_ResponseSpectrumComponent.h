#pragma once

#include "module/kpr/Types.h"
#include "platform/BasicUtils/cls_Persistent.h"

/// A base motion of a response spectrum step: a direction, and the spectrum that acts along it.
class DDB_API kprC_ResponseSpectrumComponent final : public cls_Persistent<kprC_ResponseSpectrumComponent, cls_Object> {
public:
  double x = 0.0, y = 0.0, z = 0.0;
  double scale = 1.0;
  cow_String respSpectrum;

  kprC_ResponseSpectrumComponent();
  explicit kprC_ResponseSpectrumComponent(cls_ReadVisitor const& in);

  /// Refuses: 35 a spectrum without a name.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("x", &kprC_ResponseSpectrumComponent::x, cls_MemberText{"direction cosine along the first axis"});
    visit("y", &kprC_ResponseSpectrumComponent::y, cls_MemberText{"direction cosine along the second axis"});
    visit("z", &kprC_ResponseSpectrumComponent::z, cls_MemberText{"direction cosine along the third axis"});
    visit("scale", &kprC_ResponseSpectrumComponent::scale, cls_MemberText{"factor on the spectrum"});
    visit("respSpectrum", &kprC_ResponseSpectrumComponent::respSpectrum, cls_MemberText{"name of the spectrum"});
  }
};
