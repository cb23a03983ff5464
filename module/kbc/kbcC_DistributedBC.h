#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kpr/family/kprC_TypeOf.h"

// Conditions that prescribe one value, and their states.

/// Per-step state of a condition that prescribes one value. Types give its meaning and unit as value().
class DDB_API kbcC_DistributedBCState : public kbcC_StateOf<kbcC_DistributedBCState> {
public:
  static constexpr omn_FixedString magnitudeCmd() { return "magnitude"; }
  static constexpr omn_FixedString fixedCmd() { return "fixed"; }

  kbcC_DistributedBCState() = default;
  explicit kbcC_DistributedBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> magnitude;  ///< the prescribed value, in the unit of the quantity
  mdl_PropAttr<bool> fixed;        ///< held where the step begins, whatever that is

  /// What the value is in a type that does not say.
  static constexpr cls_MemberText value() { return kbcC_Component("the prescribed value", "of the quantity"); }

  template <class V> static constexpr void VisitValues(V&& visit) { visit(magnitudeCmd(), &kbcC_DistributedBCState::magnitude, value()); }
  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    visit(magnitudeCmd(), &kbcC_DistributedBCState::magnitude, Type::value());
    visit(fixedCmd(), &kbcC_DistributedBCState::fixed,
          cls_MemberText{"held where the step begins", "", static_cast<int>(kbcC_ErrorEnm::FixedValue)});
  }
  template <class V> static constexpr void VisitMembers(V&& visit) { VisitFor<kbcC_DistributedBCState>(visit); }
};

/// Base of the conditions that prescribe one value.
class DDB_API kbcC_DistributedBC : public cls_Persistent<kbcC_DistributedBC, kbcC_BC> {
public:
  template <class V> static constexpr void VisitMembers(V&& visit) { kbcC_BC::VisitMembers(visit); }
};

/// A state that is just the one value, as a class of its own. \p Derived says as value() what it is.
template <class Derived> class kbcC_OneValue : public kbcC_StateOf<Derived, kbcC_DistributedBCState> {
public:
  kbcC_OneValue() = default;
  explicit kbcC_OneValue(cls_ReadVisitor const& in) { cls_ReadMembers(static_cast<kbcC_DistributedBCState&>(*this), in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kbcC_DistributedBCState::VisitFor<Derived>(visit); }
};

// One class of conditions and one of states for each row of the table.
#define KBC_ONE_VALUE(Name, text, meaning, unit)                                                                        \
  class DDB_API kbcC_##Name##BCState final : public kbcC_OneValue<kbcC_##Name##BCState> {                               \
  public:                                                                                                               \
    using kbcC_OneValue::kbcC_OneValue;                                                                                 \
    static constexpr cls_MemberText value() { return kbcC_Component(meaning, unit); }                                   \
  };                                                                                                                    \
  class DDB_API kbcC_##Name##BC final : public kprC_TypeOf<kbcC_##Name##BC, kbcC_##Name##BCState, kbcC_DistributedBC> { \
  public:                                                                                                               \
    using kprC_TypeOf::kprC_TypeOf;                                                                                     \
    static constexpr omn_FixedString constructorCmd() { return #Name "BC"; }                                            \
    static constexpr omn_FixedString label() { return text; }                                                           \
  };
#include "module/kbc/kbcC_OneValueBCs.def"
#undef KBC_ONE_VALUE

/// Per-step state of a temperature condition.
class DDB_API kbcC_TemperatureBCState final : public kbcC_StateOf<kbcC_TemperatureBCState, kbcC_DistributedBCState> {
public:
  static constexpr omn_FixedString dofCmd() { return "dof"; }
  static constexpr omn_FixedString shellCmd() { return "shell"; }

  kbcC_TemperatureBCState() = default;
  explicit kbcC_TemperatureBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kbcC_Component("temperature", "temperature"); }

  mdl_PropAttr<int> dof;     ///< degree of freedom of the temperature point through a shell's thickness, 11 to 31
  mdl_PropAttr<bool> shell;  ///< whether the region is on shells

  /// Refuses 40 no degree of freedom on shells, 43 one that is not between 11 and 31.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_DistributedBCState::VisitFor<kbcC_TemperatureBCState>(visit);
    visit(
        dofCmd(), &kbcC_TemperatureBCState::dof,
        cls_MemberText{"temperature point through the thickness of a shell, 11 to 31", "", static_cast<int>(kbcC_ErrorEnm::DofOutOfRange)});
    visit(shellCmd(), &kbcC_TemperatureBCState::shell, cls_MemberText{"whether the region is on shells"});
  }
};

/// Temperature.
///
/// Refuses in addition: 41 a region whose entities differ in dimension, 42 one on both shell and solid instances; 40 and 43
/// of its state.
class DDB_API kbcC_TemperatureBC final : public kprC_TypeOf<kbcC_TemperatureBC, kbcC_TemperatureBCState, kbcC_DistributedBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "TemperatureBC"; }
  static constexpr omn_FixedString label() { return "Temperature"; }

protected:
  void AssertWhole() const override;
};
