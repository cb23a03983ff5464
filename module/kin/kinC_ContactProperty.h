#pragma once

#include "module/kin/kinC_ContactBehaviors.h"
#include "module/kin/kinC_InteractionProperty.h"
#include "module/kin/kinC_NormalBehavior.h"
#include "module/kin/kinC_TangentialBehavior.h"
#include "platform/BasicUtils/cls_Optional.h"

/// How surfaces in contact behave: at most one behaviour of each kind. What none says of is the solver's choice.
class DDB_API kinC_ContactProperty final : public cls_Persistent<kinC_ContactProperty, kinC_MechanicalIP> {
public:
  static constexpr omn_FixedString constructorCmd() { return "ContactProperty"; }

  cls_Optional<kinC_NormalBehavior> normalBehavior;
  cls_Optional<kinC_TangentialBehavior> tangentialBehavior;
  cls_Optional<kinC_Damping> damping;
  cls_Optional<kinC_ThermalConductance> thermalConductance;
  cls_Optional<kinC_ElectricalConductance> electricalConductance;
  cls_Optional<kinC_HeatGeneration> heatGeneration;
  cls_Optional<kinC_Radiation> radiation;
  cls_Optional<kinC_GeometricProperties> geometricProperties;

  kinC_ContactProperty();
  explicit kinC_ContactProperty(cls_ReadVisitor const& in);

  /// Refuses what its behaviours refuse, in their order.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_ContactProperty;
    kinC_MechanicalIP::VisitMembers(visit);
    visit("normalBehavior", &Self::normalBehavior, cls_MemberText{"pressure between the surfaces"});
    visit("tangentialBehavior", &Self::tangentialBehavior, cls_MemberText{"friction"});
    visit("damping", &Self::damping, cls_MemberText{"damping of surfaces that come near each other"});
    visit("thermalConductance", &Self::thermalConductance, cls_MemberText{"heat that passes between the surfaces"});
    visit("electricalConductance", &Self::electricalConductance, cls_MemberText{"electric current that passes between the surfaces"});
    visit("heatGeneration", &Self::heatGeneration, cls_MemberText{"heat from friction and electric current"});
    visit("radiation", &Self::radiation, cls_MemberText{"radiation over the gap"});
    visit("geometricProperties", &Self::geometricProperties, cls_MemberText{"contact area and layer between the surfaces"});
  }
};
