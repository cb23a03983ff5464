#pragma once

#include "module/klo/kloC_Load.h"
#include "module/klo/kloC_Point.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"

/// Per-step state of an inertia relief: the rigid body motions along and about the axes 1 to 3 of a coordinate system that
/// are free, all of them where none is named, and the point that they refer to.
class DDB_API kloC_InertiaReliefState final : public kprC_StateOf<kloC_InertiaReliefState, kloC_LoadState> {
public:
  using ReferencePointTypeEnm = kloC_PointEnm;

  kloC_InertiaReliefState() = default;
  explicit kloC_InertiaReliefState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<bool> u1, u2, u3, ur1, ur2, ur3;
  mdl_PropAttr<bool> fixed;
  mdl_PropAttr<bool> isReferencePointDefined;
  mdl_PropAttr<kloC_Point> referencePoint;
  mdl_PropAttr<omu_PrimEnum<ReferencePointTypeEnm, 1>> referencePointType;
  mdl_PropAttr<dtmC_DatumRef> localCsys;

  /// Refuses 10 a reference point without two or three coordinates.
  void AssertValid() const override;
  /// Refuses, in this order: 49 directions out of the plane in two-dimensional space, 50 any but the one along the axis in
  /// axisymmetric space, 51 a coordinate system where all directions of the space are free.
  void AssertInSpace(SpaceEnm space) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kloC_InertiaReliefState;
    kloC_LoadState::VisitMembers(visit);
    visit("u1", &Self::u1, kloC_Value("whether the body is free along axis 1"));
    visit("u2", &Self::u2, kloC_Value("whether the body is free along axis 2"));
    visit("u3", &Self::u3, kloC_Value("whether the body is free along axis 3"));
    visit("ur1", &Self::ur1, kloC_Value("whether the body is free about axis 1"));
    visit("ur2", &Self::ur2, kloC_Value("whether the body is free about axis 2"));
    visit("ur3", &Self::ur3, kloC_Value("whether the body is free about axis 3"));
    visit("fixed", &Self::fixed, kloC_Value("whether the load stays as it is where the step begins"));
    visit("isReferencePointDefined", &Self::isReferencePointDefined, kloC_Value("whether the directions refer to a point that is given"));
    visit("referencePoint", &Self::referencePoint, kloC_Value("the point that the directions refer to", "length"));
    visit("referencePointType", &Self::referencePointType, kloC_Value("how the reference point was given"));
    visit("localCsys", &Self::localCsys,
          cls_MemberText{"coordinate system of the directions; empty for the global one"}.RefersTo(cls_Reference::CoordinateSystem));
  }

private:
  /// The directions that are named as free, a bit each.
  DDB_LOCAL unsigned FreeDirections() const;
};

/// Loads that balance the others by the inertia of a body that is free to move.
///
/// Refuses in addition: 52 a fixed one in the create step.
class DDB_API kloC_InertiaRelief final : public kprC_TypeOf<kloC_InertiaRelief, kloC_Load> {
public:
  using kprC_TypeOf::kprC_TypeOf;

protected:
  void AssertState(kloC_LoadState const& state, std::size_t index) const override;
};
