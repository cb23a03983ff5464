#pragma once

#include "module/klo/kloC_Vector.h"

// Mechanical loads at points and on connectors, and their states.

/// What forces and moments at points have beside their components.
template <class Derived> class kloC_AtPoints : public kloC_VectorOf<Derived> {
public:
  static constexpr omn_FixedString followerCmd() { return "follower"; }
  static constexpr omn_FixedString csysCmd() { return "csys"; }

  mdl_PropAttr<bool> follower;       ///< the direction rotates with the node
  mdl_PropAttr<dtmC_DatumRef> csys;  ///< the coordinate system of the components

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kloC_VectorOf<Derived>::VisitMembers(visit);
    visit(followerCmd(), &Derived::follower, cls_MemberText{"whether the direction rotates with the node"});
    visit(csysCmd(), &Derived::csys,
          cls_MemberText{"coordinate system of the components; empty for the global one"}.RefersTo(cls_Reference::CoordinateSystem));
  }
};

class DDB_API kloC_ConcentratedForceState final : public kloC_AtPoints<kloC_ConcentratedForceState> {
public:
  kloC_ConcentratedForceState() = default;
  explicit kloC_ConcentratedForceState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr kloC_ComponentTexts components() {
    return {{{"cf1", "force along axis 1", "force", true},
             {"cf2", "force along axis 2", "force", true},
             {"cf3", "force along axis 3", "force", false}}};
  }
};
/// Force at points.
class DDB_API kloC_ConcentratedForce final : public kprC_TypeOf<kloC_ConcentratedForce, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kloC_MomentState final : public kloC_AtPoints<kloC_MomentState> {
public:
  kloC_MomentState() = default;
  explicit kloC_MomentState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr kloC_ComponentTexts components() {
    return {{{"cm1", "moment about axis 1", "force*length", false},
             {"cm2", "moment about axis 2", "force*length", false},
             {"cm3", "moment about axis 3", "force*length", true}}};
  }
};
/// Moment at points.
class DDB_API kloC_Moment final : public kprC_TypeOf<kloC_Moment, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kloC_ConnectorForceState final : public kloC_VectorOf<kloC_ConnectorForceState> {
public:
  using kloC_VectorOf::kloC_VectorOf;
  static constexpr kloC_ComponentTexts components() {
    return {{{"f1", "force along the connector's axis 1", "force", true},
             {"f2", "force along the connector's axis 2", "force", true},
             {"f3", "force along the connector's axis 3", "force", false}}};
  }
};
/// Force in the components of relative motion of connectors.
class DDB_API kloC_ConnectorForce final : public kprC_TypeOf<kloC_ConnectorForce, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kloC_ConnectorMomentState final : public kloC_VectorOf<kloC_ConnectorMomentState> {
public:
  using kloC_VectorOf::kloC_VectorOf;
  static constexpr kloC_ComponentTexts components() {
    return {{{"m1", "moment about the connector's axis 1", "force*length", false},
             {"m2", "moment about the connector's axis 2", "force*length", false},
             {"m3", "moment about the connector's axis 3", "force*length", true}}};
  }
};
/// Moment in the components of relative motion of connectors.
class DDB_API kloC_ConnectorMoment final : public kprC_TypeOf<kloC_ConnectorMoment, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kloC_PEGLoadState final : public kloC_VectorOf<kloC_PEGLoadState> {
public:
  using kloC_VectorOf::kloC_VectorOf;
  static constexpr kloC_ComponentTexts components() {
    return {{{"comp1", "force out of the plane", "force", true},
             {"comp2", "moment about axis 1", "force*length", true},
             {"comp3", "moment about axis 2", "force*length", true}}};
  }
};
/// What acts on the reference point of a region in generalized plane strain.
class DDB_API kloC_PEGLoad final : public kprC_TypeOf<kloC_PEGLoad, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
