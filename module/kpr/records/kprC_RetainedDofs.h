#pragma once

#include "module/kpr/Types.h"
#include "platform/CoreGeometry/rgnC_Region.h"

/// Degrees of freedom that a substructure keeps at the nodes of a region.
class DDB_API kprC_RetainedDofs final : public cls_Persistent<kprC_RetainedDofs, cls_Object> {
public:
  rgnC_Region region;
  bool u1 = false, u2 = false, u3 = false;
  bool ur1 = false, ur2 = false, ur3 = false;

  kprC_RetainedDofs();
  explicit kprC_RetainedDofs(cls_ReadVisitor const& in);

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("region", &kprC_RetainedDofs::region, cls_MemberText{"the nodes"}.RefersTo(cls_Reference::Region));
    visit("u1", &kprC_RetainedDofs::u1, cls_MemberText{"keep the displacement along the first axis"});
    visit("u2", &kprC_RetainedDofs::u2, cls_MemberText{"keep the displacement along the second axis"});
    visit("u3", &kprC_RetainedDofs::u3, cls_MemberText{"keep the displacement along the third axis"});
    visit("ur1", &kprC_RetainedDofs::ur1, cls_MemberText{"keep the rotation about the first axis"});
    visit("ur2", &kprC_RetainedDofs::ur2, cls_MemberText{"keep the rotation about the second axis"});
    visit("ur3", &kprC_RetainedDofs::ur3, cls_MemberText{"keep the rotation about the third axis"});
  }
};
