#pragma once

#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreGeometry/Types.h"

/// A datum of the model that attributes refer to by name: a coordinate system or an axis. Where it lies is nobody's business
/// here.
class DDB_API dtmC_Datum final : public cls_Persistent<dtmC_Datum, cls_Object> {
public:
  dtmC_Datum();
  explicit dtmC_Datum(cls_ReadVisitor const& in);

  cow_String const& Description() const { return description_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("description", &dtmC_Datum::description_, cls_MemberText{"where it lies, for the reader"});
  }

private:
  cow_String description_;
};
