#pragma once

#include <utility>

#include "module/klo/kloC_Point.h"
#include "module/klo/kloC_Scalar.h"

// Loads from rotation about an axis, and their states.

/// What the states of both types have in common: a value and an axis through two points.
class DDB_API kloC_AxisState : public kloC_ScalarState {
public:
  mdl_PropAttr<omu_PrimEnum<kloC_PointEnm, 1>> axisSelPoint1, axisSelPoint2;
  mdl_PropAttr<kloC_Point> coordAxisPt1, coordAxisPt2;
  mdl_PropAttr<cow_String> pickedAxisPt1, pickedAxisPt2;

  /// Refuses 57 an axis through one point, 10 a point without two or three coordinates.
  void AssertValid() const override;
  /// Refuses, of an axis given by coordinates, 44 any but (0,0,0), (0,1,0) in axisymmetric space and 45 any that does not
  /// stand on the plane in two-dimensional space.
  void AssertInSpace(SpaceEnm space) const override;

  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    using Self = kloC_AxisState;
    kloC_ScalarState::VisitFor<Type>(visit);
    visit("axisSelPoint1", &Self::axisSelPoint1, kloC_Value("how the first point of the axis is given"));
    visit("axisSelPoint2", &Self::axisSelPoint2, kloC_Value("how the second point of the axis is given"));
    visit("coordAxisPt1", &Self::coordAxisPt1, kloC_Value("first point of the axis; the origin where it is not given", "length"));
    visit("coordAxisPt2", &Self::coordAxisPt2,
          kloC_Value("second point of the axis; (0,0,1), in axisymmetric space (0,1,0), where it is not given", "length"));
    visit("pickedAxisPt1", &Self::pickedAxisPt1, kloC_Value("name of the picked first point of the axis"));
    visit("pickedAxisPt2", &Self::pickedAxisPt2, kloC_Value("name of the picked second point of the axis"));
  }

private:
  DDB_LOCAL std::pair<kloC_Coordinates, kloC_Coordinates> Axis(SpaceEnm space) const;
};

class DDB_API kloC_RotationalBodyForceState final : public kprC_StateOf<kloC_RotationalBodyForceState, kloC_AxisState> {
public:
  kloC_RotationalBodyForceState() = default;
  explicit kloC_RotationalBodyForceState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() {
    return kloC_Value("angular velocity, or angular acceleration for rotary acceleration", "radians/time, radians/time^2");
  }

  mdl_PropAttr<bool> centrifugal, rotaryAcceleration;  ///< one of both

  /// Refuses 43 both kinds or none; then as the base.
  void AssertValid() const override;
  /// As the base; then refuses 46 rotary acceleration in axisymmetric space.
  void AssertInSpace(SpaceEnm space) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kloC_RotationalBodyForceState;
    kprC_StateOf::VisitMembers(visit);
    visit("centrifugal", &Self::centrifugal, kloC_Value("whether the force is that of a steady rotation"));
    visit("rotaryAcceleration", &Self::rotaryAcceleration, kloC_Value("whether the force is that of a change of the rotation"));
  }
};
/// Inertia of a rotating body.
class DDB_API kloC_RotationalBodyForce final : public kprC_TypeOf<kloC_RotationalBodyForce, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kloC_CoriolisForceState final : public kprC_StateOf<kloC_CoriolisForceState, kloC_AxisState> {
public:
  using kprC_StateOf::kprC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("density times angular velocity", "mass*radians/(length^3*time)"); }
};
/// Coriolis force in a rotating body.
class DDB_API kloC_CoriolisForce final : public kprC_TypeOf<kloC_CoriolisForce, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
