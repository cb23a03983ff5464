#pragma once

#include "module/kbc/kbcC_TypeTable.h"
#include "module/kbc/kbcC_assert.h"
#include "module/kpr/family/kprC_AmplitudeState.h"

/// What a boundary condition sets in a step: base of the types' states.
class DDB_API kbcC_BCState : public kprC_StateOf<kbcC_BCState, kprC_AmplitudeState<&kbcC_Assert>> {
public:
  static constexpr omn_FixedString bcStateCmd() { return "boundaryConditionStates"; }
  static constexpr omn_FixedString pythonTypeName() { return "BoundaryConditionState"; }

  kbcC_BCState() = default;
  explicit kbcC_BCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  /// Whether the condition holds its region where the step begins, whatever that is.
  virtual bool IsFixed() const { return false; }
  /// Whether anything but zero is prescribed, by this step or an earlier one.
  virtual bool IsNonZero() const { return false; }
  /// Whether the step itself prescribes anything but zero.
  virtual bool SetsNonZero() const { return false; }
  /// Names of the components in force whose numbers (1 to 6) \p offers does not hold, separated by ", ".
  virtual std::string ComponentsBeyond(unsigned /*offers*/) const { return {}; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(deactivateCmd(), &kbcC_BCState::switchedOff_, cls_MemberText{"whether the condition is switched off in the step"});
    visit(
        amplitudeCmd(), &kbcC_BCState::amplitude,
        cls_MemberText{"name of the amplitude that varies the values over the step", "", static_cast<int>(kbcC_ErrorEnm::AmplitudeValue)});
  }
};

/// The line of a list for a component or another value that is prescribed; it refuses 36 what does not fit.
constexpr cls_MemberText kbcC_Component(std::string_view meaning, std::string_view unit) {
  return {meaning, unit, static_cast<int>(kbcC_ErrorEnm::ComponentValue)};
}

/// The answers of a state class from its lists: \p Derived lists what it prescribes in VisitValues, or as components in
/// the order of their numbers in VisitComponents, and may have a member "fixed".
template <class Derived, class Base = kbcC_BCState> class kbcC_StateOf : public kprC_StateOf<Derived, Base> {
public:
  bool IsFixed() const override {
    if constexpr (requires(Derived const& state) { state.fixed; }) {
      return this->Self().fixed.HasValue() && this->Self().fixed.ConstGet();
    } else {
      return false;
    }
  }
  bool IsNonZero() const override {
    return AnyValue([](mdl_PropAttr<double> const& value) { return value.HasValue() && value.ConstGet() != 0.0; });
  }
  bool SetsNonZero() const override {
    return AnyValue([](mdl_PropAttr<double> const& value) { return value == mdl_Set && value.ConstGet() != 0.0; });
  }
  std::string ComponentsBeyond(unsigned offers) const override {
    std::string names;
    unsigned component = 0;
    auto const ask = [&](std::string_view name, auto field, cls_MemberText const&) {
      bool const offered = (offers >> ++component & 1U) != 0;
      if (!offered && (this->Self().*field).HasValue()) { names.append(names.empty() ? "" : ", ").append(name); }
    };
    if constexpr (requires { Derived::VisitComponents(ask); }) { Derived::VisitComponents(ask); }
    return names;
  }

private:
  template <class Fn> bool AnyValue(Fn fn) const {
    bool any = false;
    auto const ask = [&](std::string_view, auto field, cls_MemberText const&) { any = any || fn(this->Self().*field); };
    if constexpr (requires { Derived::VisitComponents(ask); }) { Derived::VisitComponents(ask); }
    if constexpr (requires { Derived::VisitValues(ask); }) { Derived::VisitValues(ask); }
    return any;
  }
};
