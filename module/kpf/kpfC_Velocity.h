#pragma once

#include "module/kpf/kpfC_Field.h"

/// Per-step state of an initial velocity: of translation, and of rotation about an axis. The axis is two points in space, a point of
/// the plane that it stands on, and in axisymmetric space the height of a point of the axis.
class DDB_API kpfC_VelocityState final : public kprC_StateOf<kpfC_VelocityState, kpfC_FieldState> {
public:
  using Point = cow_1DArrayList<double>;  ///< coordinates, length

  kpfC_VelocityState() = default;
  explicit kpfC_VelocityState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> velocity1, velocity2, velocity3;
  mdl_PropAttr<double> omega;
  mdl_PropAttr<Point> axisBegin, axisEnd;

  /// Refuses, in this order: 7 a point with none or more than three coordinates, 43 no motion at all, 44 a rotation without an axis.
  void AssertValid() const override;
  /// Refuses of an axis that is given: 70 not one coordinate in axisymmetric space, 71 not two in a plane, 72 not three of each point.
  void AssertInSpace(SpaceEnm space) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kpfC_VelocityState;
    kpfC_FieldState::VisitMembers(visit);
    visit("velocity1", &Self::velocity1, cls_MemberText{"velocity along axis 1", "length/time"});
    visit("velocity2", &Self::velocity2, cls_MemberText{"velocity along axis 2", "length/time"});
    visit("velocity3", &Self::velocity3, cls_MemberText{"velocity along axis 3", "length/time"});
    visit("omega", &Self::omega, cls_MemberText{"angular velocity about the axis of revolution", "radians/time"});
    visit("axisBegin", &Self::axisBegin, cls_MemberText{"a point of the axis of revolution", "length"});
    visit("axisEnd", &Self::axisEnd, cls_MemberText{"another point of the axis, in the direction that it points to", "length"});
  }
};

/// The velocity that a region has from the beginning.
class DDB_API kpfC_Velocity final : public kprC_TypeOf<kpfC_Velocity, kpfC_Field> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
