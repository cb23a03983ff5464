#pragma once

#include "module/kin/kinC_Interaction.h"

/// What a type that acts on one region has. \p Derived calls it regionCmd() and says what it is as regionText().
template <class Derived> class kinC_OnRegion : public cls_Persistent<Derived, kinC_Interaction> {
public:
  static constexpr omn_FixedString regionCmd() { return "surface"; }

  rgnC_Region const& Region() const { return *region_; }
  std::unique_ptr<kinC_InteractionState> NewStateFor(unsigned procedureType) const override { return this->DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_Interaction::VisitMembers(visit);
    visit(Derived::regionCmd(), &kinC_OnRegion::region_, cls_MemberText{Derived::regionText()}.RefersTo(cls_Reference::Region));
  }

protected:
  cls_Shared<rgnC_Region> region_;
};
