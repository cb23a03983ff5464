#pragma once

#include "platform/BasicUtils/cow_String.h"
#include "platform/NonGeometricAttributes/Types.h"

/// A time variation that attributes refer to by name. By itself it is that name: the curve is somebody else's. One that knows its
/// curve is an ampC_Curve.
class DDB_API ampC_Amplitude : public cls_Persistent<ampC_Amplitude, cls_Object> {
public:
  ampC_Amplitude();
  explicit ampC_Amplitude(cls_ReadVisitor const& in);

  cow_String const& Description() const { return description_; }

  /// Refuses a curve that makes no sense (omu_ValueErrorException); a name always does.
  virtual void AssertValid() const {}

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("description", &ampC_Amplitude::description_, cls_MemberText{"what varies, for the reader"});
  }

private:
  cow_String description_;
};
