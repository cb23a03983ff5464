#pragma once

#include "platform/BasicUtils/cow_String.h"
#include "platform/NonGeometricAttributes/Types.h"

/// A time variation that attributes refer to by name. The curve itself is nobody's business here.
class DDB_API ampC_Amplitude final : public cls_Persistent<ampC_Amplitude, cls_Object> {
public:
  ampC_Amplitude();
  explicit ampC_Amplitude(cls_ReadVisitor const& in);

  cow_String const& Description() const { return description_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("description", &ampC_Amplitude::description_, cls_MemberText{"what varies, for the reader"});
  }

private:
  cow_String description_;
};
