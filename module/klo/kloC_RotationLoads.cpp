#include "module/klo/kloC_RotationLoads.h"

std::pair<kloC_Coordinates, kloC_Coordinates> kloC_AxisState::Axis(SpaceEnm space) const {
  kloC_Coordinates const absent = space == SpaceEnm::AXISYMMETRIC ? kloC_Coordinates{0.0, 1.0, 0.0} : kloC_Coordinates{0.0, 0.0, 1.0};
  return {kloC_CoordinatesOf(coordAxisPt1, {}), kloC_CoordinatesOf(coordAxisPt2, absent)};
}

void kloC_AxisState::AssertValid() const {
  auto const [first, second] = Axis(SpaceEnm::THREE_D);
  bool const picked = axisSelPoint1 == kloC_PointEnm::PICKED;
  if (picked != (axisSelPoint2 == kloC_PointEnm::PICKED)) { return; }  // a point that was picked is known by its name only
  bool const coincident = picked ? pickedAxisPt1.ConstGet() == pickedAxisPt2.ConstGet() : first == second;
  kloC_Assert(!coincident, kloC_ErrorEnm::AxisPointsCoincide);
}

void kloC_AxisState::AssertInSpace(SpaceEnm space) const {
  if (axisSelPoint1 == kloC_PointEnm::PICKED || axisSelPoint2 == kloC_PointEnm::PICKED) { return; }
  auto const [first, second] = Axis(space);
  bool const isAxis = first == kloC_Coordinates{} && second == kloC_Coordinates{0.0, 1.0, 0.0};
  kloC_Assert(space != SpaceEnm::AXISYMMETRIC || isAxis, kloC_ErrorEnm::AxisNotAxisymmetric);
  bool const standsOnPlane = first[0] == second[0] && first[1] == second[1];
  kloC_Assert(space != SpaceEnm::TWO_D_PLANAR || standsOnPlane, kloC_ErrorEnm::AxisNotIn2D);
}

void kloC_RotationalBodyForceState::AssertValid() const {
  bool const steady = centrifugal == true, changing = rotaryAcceleration == true;
  kloC_Assert(steady != changing, kloC_ErrorEnm::RotationKind);
  kloC_AxisState::AssertValid();
}

void kloC_RotationalBodyForceState::AssertInSpace(SpaceEnm space) const {
  kloC_AxisState::AssertInSpace(space);
  bool const changing = rotaryAcceleration == true;
  kloC_Assert(space != SpaceEnm::AXISYMMETRIC || !changing, kloC_ErrorEnm::RotaryInAxisymmetric);
}
