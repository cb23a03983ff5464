#pragma once

#include "platform/BasicUtils/cls_xoList.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/NonGeometricAttributes/Types.h"

/// A connector element that attributes refer to by name, with the components of relative motion that it offers: 1 to 3 are
/// translations along, 4 to 6 rotations about the connector's axes. One that offers none is rigid.
class DDB_API conC_Connector final : public cls_Persistent<conC_Connector, cls_Object> {
public:
  conC_Connector();
  explicit conC_Connector(cls_ReadVisitor const& in);

  cow_List<int> const& Components() const { return components_; }
  bool Offers(int component) const;
  cow_String const& Description() const { return description_; }

  /// Refuses, naming them, components that are not 1 to 6 or stand there before (omu_ValueErrorException).
  void AssertValid() const;
  /// Refuses the same of what was stored.
  void Restored(cls_ReadVisitor const& in) override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("components", &conC_Connector::components_,
          cls_MemberText{"the components of relative motion that it offers: 1 to 3 along, 4 to 6 about its axes"});
    visit("description", &conC_Connector::description_, cls_MemberText{"what it connects, for the reader"});
  }

private:
  cow_List<int> components_;
  cow_String description_;
};
