#pragma once

#include "module/kbc/kbcC_BCState.h"
#include "module/kpr/family/kprC_BucklingCase.h"

// What a state prescribes along (the first three) and about the axes 1 to 3 (the last three) of its coordinate system:
// the members that a condition on a region and one on connectors have in common.

/// Displacements and rotations.
template <class Derived> class kbcC_Displacements : public kprC_StateOf<Derived, kbcC_BCState> {
public:
  static constexpr omn_FixedString u1Cmd() { return "u1"; }
  static constexpr omn_FixedString u2Cmd() { return "u2"; }
  static constexpr omn_FixedString u3Cmd() { return "u3"; }
  static constexpr omn_FixedString ur1Cmd() { return "ur1"; }
  static constexpr omn_FixedString ur2Cmd() { return "ur2"; }
  static constexpr omn_FixedString ur3Cmd() { return "ur3"; }
  static constexpr omn_FixedString buckleCaseCmd() { return "buckleCase"; }

  mdl_PropAttr<double> u1, u2, u3;                                 ///< length
  mdl_PropAttr<double> ur1, ur2, ur3;                              ///< radians
  mdl_PropAttr<bool> fixed;                                        ///< held where the step begins, whatever that is
  mdl_PropAttr<omu_PrimEnum<kprC_BucklingCaseEnm, 1>> buckleCase;  ///< which part of a buckle step it acts in

  bool IsFixed() const override { return fixed == true; }
  /// Refuses 16 a value together with "fixed".
  void AssertValid() const override { kbcC_Assert(!this->IsFixed() || !this->SetsNonZero(), kbcC_ErrorEnm::PrescribedWhileFixed); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    visit(u1Cmd(), &Derived::u1, kbcC_Component(1, "displacement along axis 1", "length"));
    visit(u2Cmd(), &Derived::u2, kbcC_Component(2, "displacement along axis 2", "length"));
    visit(u3Cmd(), &Derived::u3, kbcC_Component(3, "displacement along axis 3", "length"));
    visit(ur1Cmd(), &Derived::ur1, kbcC_Component(4, "rotation about axis 1", "radians"));
    visit(ur2Cmd(), &Derived::ur2, kbcC_Component(5, "rotation about axis 2", "radians"));
    visit(ur3Cmd(), &Derived::ur3, kbcC_Component(6, "rotation about axis 3", "radians"));
    visit(kbcC_BCState::fixedCmd(), &Derived::fixed, kbcC_FixedText());
    visit(buckleCaseCmd(), &Derived::buckleCase, cls_MemberText{"the part of a buckle step that it acts in"});
  }
};

/// Velocities and angular velocities.
template <class Derived> class kbcC_Velocities : public kprC_StateOf<Derived, kbcC_BCState> {
public:
  mdl_PropAttr<double> v1, v2, v3;     ///< length/time
  mdl_PropAttr<double> vr1, vr2, vr3;  ///< radians/time

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    visit("v1", &Derived::v1, kbcC_Component(1, "velocity along axis 1", "length/time"));
    visit("v2", &Derived::v2, kbcC_Component(2, "velocity along axis 2", "length/time"));
    visit("v3", &Derived::v3, kbcC_Component(3, "velocity along axis 3", "length/time"));
    visit("vr1", &Derived::vr1, kbcC_Component(4, "angular velocity about axis 1", "radians/time"));
    visit("vr2", &Derived::vr2, kbcC_Component(5, "angular velocity about axis 2", "radians/time"));
    visit("vr3", &Derived::vr3, kbcC_Component(6, "angular velocity about axis 3", "radians/time"));
  }
};

/// Accelerations and angular accelerations.
template <class Derived> class kbcC_Accelerations : public kprC_StateOf<Derived, kbcC_BCState> {
public:
  mdl_PropAttr<double> a1, a2, a3;     ///< length/time^2
  mdl_PropAttr<double> ar1, ar2, ar3;  ///< radians/time^2

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    visit("a1", &Derived::a1, kbcC_Component(1, "acceleration along axis 1", "length/time^2"));
    visit("a2", &Derived::a2, kbcC_Component(2, "acceleration along axis 2", "length/time^2"));
    visit("a3", &Derived::a3, kbcC_Component(3, "acceleration along axis 3", "length/time^2"));
    visit("ar1", &Derived::ar1, kbcC_Component(4, "angular acceleration about axis 1", "radians/time^2"));
    visit("ar2", &Derived::ar2, kbcC_Component(5, "angular acceleration about axis 2", "radians/time^2"));
    visit("ar3", &Derived::ar3, kbcC_Component(6, "angular acceleration about axis 3", "radians/time^2"));
  }
};
