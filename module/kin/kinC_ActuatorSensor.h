#pragma once

#include "module/kin/kinC_OnRegion.h"

class DDB_API kinC_ActuatorSensorState final : public kinC_WithProperty<kinC_ActuatorSensorState> {
public:
  kinC_ActuatorSensorState() = default;
  explicit kinC_ActuatorSensorState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_WithProperty::VisitMembers(visit); }
};

/// A point at which a user element measures and acts.
///
/// Refuses in addition: 55 a creation in any step but the initial one, 65 degrees of freedom and 66 a type of element that cannot be
/// read, 56 to switch it off, 57 a model all of whose analysis steps are explicit.
class DDB_API kinC_ActuatorSensor final : public kinC_OnRegion<kinC_ActuatorSensor> {
public:
  static constexpr omn_FixedString regionCmd() { return "point"; }
  static constexpr std::string_view regionText() { return "the point that is measured and driven"; }

  kinC_ActuatorSensor() = default;
  explicit kinC_ActuatorSensor(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  void AssertInModel(ddr_Model const& model) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_OnRegion::VisitMembers(visit);
    visit("degreesOfFreedom", &kinC_ActuatorSensor::degreesOfFreedom_,
          cls_MemberText{"degrees of freedom of the point, integers with commas between them"});
    visit("userElementType", &kinC_ActuatorSensor::userElementType_,
          cls_MemberText{"type of the user element, U and one to five digits; empty for none"});
    visit("coordinates", &kinC_ActuatorSensor::coordinates_, cls_MemberText{"number of coordinates of the point"});
    visit("unsymmetric", &kinC_ActuatorSensor::unsymmetric_, cls_MemberText{"whether the matrices of the user element are unsymmetric"});
  }

protected:
  void AssertCreateStep(std::size_t index) const override;
  void AssertWhole() const override;

private:
  cow_String degreesOfFreedom_, userElementType_;
  int coordinates_ = 3;
  bool unsymmetric_ = false;
};
