#pragma once

#include <cstdint>
#include <string>

#include "module/kpr/family/kprC_AmplitudeState.h"

// What the states have in common whose values are prescribed component by component. Which members are components, and their numbers,
// the lists of the classes say (cls_MemberText::component).

/// Whether a component is in force that is not zero; with \p ownOnly one that the state itself sets.
DDB_API bool kprC_AnyNonZero(kprC_State const& state, bool ownOnly);
/// The components of the state's type: a bit for the number of each.
DDB_API std::uint32_t kprC_ComponentsOf(kprC_State const& state);
/// Those that are in force.
DDB_API std::uint32_t kprC_ComponentsInForce(kprC_State const& state);
/// Names of the components in force whose bits (of the numbers 1 to 6) \p offers does not hold, separated by ", ".
DDB_API std::string kprC_ComponentsBeyond(kprC_State const& state, unsigned offers);

/// Base of the states of families that constrain a region. \p Assert raises the family's refusals.
template <auto Assert> class kprC_ConstraintState : public kprC_AmplitudeState<Assert> {
public:
  /// Whether the region is held where the step begins, whatever that is.
  virtual bool IsFixed() const { return false; }
  /// Whether anything but zero is prescribed, by this step or an earlier one.
  bool IsNonZero() const { return kprC_AnyNonZero(*this, false); }
  /// Whether the step itself prescribes anything but zero.
  bool SetsNonZero() const { return kprC_AnyNonZero(*this, true); }
  /// The components that the type prescribes: a bit for the number of each.
  virtual std::uint32_t Components() const { return kprC_ComponentsOf(*this); }
  /// Those that are in force, or held.
  virtual std::uint32_t ComponentsInForce() const { return IsFixed() ? Components() : kprC_ComponentsInForce(*this); }
};

/// The line of a list for a component, 1 to 6, or the one value that is prescribed; it refuses \p code what does not fit.
template <class Error> constexpr cls_MemberText kprC_Component(Error code, int number, std::string_view meaning, std::string_view unit) {
  return cls_MemberText{meaning, unit}.Refused(code).Component(number);
}

// Values along (the first three) and about the axes 1 to 3 (the last three) of a coordinate system, as members of a state over Base;
// WrongValue is the family's refusal of one that does not fit.

/// Displacements and rotations.
template <class Derived, class Base, auto WrongValue> class kprC_Displacements : public kprC_StateOf<Derived, Base> {
public:
  static constexpr omn_FixedString u1Cmd() { return "u1"; }
  static constexpr omn_FixedString u2Cmd() { return "u2"; }
  static constexpr omn_FixedString u3Cmd() { return "u3"; }
  static constexpr omn_FixedString ur1Cmd() { return "ur1"; }
  static constexpr omn_FixedString ur2Cmd() { return "ur2"; }
  static constexpr omn_FixedString ur3Cmd() { return "ur3"; }

  mdl_PropAttr<double> u1, u2, u3;     ///< length
  mdl_PropAttr<double> ur1, ur2, ur3;  ///< radians

  template <class V> static constexpr void VisitMembers(V&& visit) {
    Base::VisitMembers(visit);
    visit(u1Cmd(), &Derived::u1, kprC_Component(WrongValue, 1, "displacement along axis 1", "length"));
    visit(u2Cmd(), &Derived::u2, kprC_Component(WrongValue, 2, "displacement along axis 2", "length"));
    visit(u3Cmd(), &Derived::u3, kprC_Component(WrongValue, 3, "displacement along axis 3", "length"));
    visit(ur1Cmd(), &Derived::ur1, kprC_Component(WrongValue, 4, "rotation about axis 1", "radians"));
    visit(ur2Cmd(), &Derived::ur2, kprC_Component(WrongValue, 5, "rotation about axis 2", "radians"));
    visit(ur3Cmd(), &Derived::ur3, kprC_Component(WrongValue, 6, "rotation about axis 3", "radians"));
  }
};

/// Velocities and angular velocities.
template <class Derived, class Base, auto WrongValue> class kprC_Velocities : public kprC_StateOf<Derived, Base> {
public:
  mdl_PropAttr<double> v1, v2, v3;     ///< length/time
  mdl_PropAttr<double> vr1, vr2, vr3;  ///< radians/time

  template <class V> static constexpr void VisitMembers(V&& visit) {
    Base::VisitMembers(visit);
    visit("v1", &Derived::v1, kprC_Component(WrongValue, 1, "velocity along axis 1", "length/time"));
    visit("v2", &Derived::v2, kprC_Component(WrongValue, 2, "velocity along axis 2", "length/time"));
    visit("v3", &Derived::v3, kprC_Component(WrongValue, 3, "velocity along axis 3", "length/time"));
    visit("vr1", &Derived::vr1, kprC_Component(WrongValue, 4, "angular velocity about axis 1", "radians/time"));
    visit("vr2", &Derived::vr2, kprC_Component(WrongValue, 5, "angular velocity about axis 2", "radians/time"));
    visit("vr3", &Derived::vr3, kprC_Component(WrongValue, 6, "angular velocity about axis 3", "radians/time"));
  }
};
