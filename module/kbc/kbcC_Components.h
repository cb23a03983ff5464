#pragma once

#include "module/kbc/kbcC_BCState.h"
#include "module/kpr/family/kprC_BucklingCase.h"

// What a state prescribes along (the first three) and about the axes 1 to 3 (the last three) of its coordinate system:
// the members that a condition on a region and one on connectors have in common.

/// Displacements and rotations.
template <class Derived> class kbcC_Displacements : public kprC_Displacements<Derived, kbcC_BCState, kbcC_ErrorEnm::ComponentValue> {
  using Base = kprC_Displacements<Derived, kbcC_BCState, kbcC_ErrorEnm::ComponentValue>;

public:
  static constexpr omn_FixedString buckleCaseCmd() { return "buckleCase"; }

  mdl_PropAttr<bool> fixed;                                        ///< held where the step begins, whatever that is
  mdl_PropAttr<omu_PrimEnum<kprC_BucklingCaseEnm, 1>> buckleCase;  ///< which part of a buckle step it acts in

  bool IsFixed() const override { return fixed == true; }
  /// Refuses 16 a value together with "fixed".
  void AssertValid() const override { kbcC_Assert(!this->IsFixed() || !this->SetsNonZero(), kbcC_ErrorEnm::PrescribedWhileFixed); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    Base::VisitMembers(visit);
    visit(kbcC_BCState::fixedCmd(), &Derived::fixed, kbcC_FixedText());
    visit(buckleCaseCmd(), &Derived::buckleCase, cls_MemberText{"the part of a buckle step that it acts in"});
  }
};

/// Velocities and angular velocities.
template <class Derived> using kbcC_Velocities = kprC_Velocities<Derived, kbcC_BCState, kbcC_ErrorEnm::ComponentValue>;

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
