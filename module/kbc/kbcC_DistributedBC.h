#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kpr/family/kprC_TypeOf.h"

// Conditions that prescribe one value, and their states.

/// Per-step state of a condition that prescribes one value. Types give its meaning and unit as value().
class DDB_API kbcC_DistributedBCState : public kprC_StateOf<kbcC_DistributedBCState, kbcC_BCState> {
public:
  static constexpr omn_FixedString magnitudeCmd() { return "magnitude"; }

  kbcC_DistributedBCState() = default;
  explicit kbcC_DistributedBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> magnitude;  ///< the prescribed value, in the unit of the quantity
  mdl_PropAttr<bool> fixed;        ///< held where the step begins, whatever that is

  bool IsFixed() const override { return fixed == true; }

  /// What the value is in a type that does not say.
  static constexpr cls_MemberText value() { return kbcC_Component(kbcC_oneValue, "the prescribed value", "of the quantity"); }

  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    visit(magnitudeCmd(), &kbcC_DistributedBCState::magnitude, Type::value());
    visit(fixedCmd(), &kbcC_DistributedBCState::fixed, kbcC_FixedText());
  }
  template <class V> static constexpr void VisitMembers(V&& visit) { VisitFor<kbcC_DistributedBCState>(visit); }
};

/// Base of the conditions that prescribe one value.
class DDB_API kbcC_DistributedBC : public cls_Persistent<kbcC_DistributedBC, kbcC_BC> {
public:
  template <class V> static constexpr void VisitMembers(V&& visit) { kbcC_BC::VisitMembers(visit); }
};

// The classes of the types that are one value: a state and a condition for each such row of the table.
#define DDB_ONE_VALUE(number, Class, stateNumber, State, command, label, procedures, category, loadCase, carried, meaning, unit) \
  class DDB_API State final : public kprC_StateOf<State, kbcC_DistributedBCState> {                                              \
  public:                                                                                                                        \
    using kprC_StateOf::kprC_StateOf;                                                                                            \
    static constexpr cls_MemberText value() { return kbcC_Component(kbcC_oneValue, meaning, unit); }                             \
  };                                                                                                                             \
  class DDB_API Class final : public kprC_TypeOf<Class, kbcC_DistributedBC> {                                                    \
  public:                                                                                                                        \
    using kprC_TypeOf::kprC_TypeOf;                                                                                              \
  };
#include "module/kbc/Types.def"

/// Per-step state of a temperature condition.
class DDB_API kbcC_TemperatureBCState final : public kprC_StateOf<kbcC_TemperatureBCState, kbcC_DistributedBCState> {
public:
  static constexpr omn_FixedString dofCmd() { return "dof"; }
  static constexpr omn_FixedString shellCmd() { return "shell"; }

  kbcC_TemperatureBCState() = default;
  explicit kbcC_TemperatureBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kbcC_Component(kbcC_oneValue, "temperature", "temperature"); }

  mdl_PropAttr<int> dof;     ///< degree of freedom of the temperature point through a shell's thickness, 11 to 31
  mdl_PropAttr<bool> shell;  ///< whether the region is on shells

  /// The temperatures through the thickness of a shell are prescribed one by one.
  std::uint32_t ComponentsInForce() const override;
  /// Refuses 40 no degree of freedom on shells, 43 one that is not between 11 and 31.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_StateOf::VisitMembers(visit);
    visit(dofCmd(), &kbcC_TemperatureBCState::dof,
          cls_MemberText{"temperature point through the thickness of a shell, 11 to 31"}.Refused(kbcC_ErrorEnm::DofOutOfRange));
    visit(shellCmd(), &kbcC_TemperatureBCState::shell, cls_MemberText{"whether the region is on shells"});
  }
};

/// Temperature.
///
/// Refuses in addition: 41 a region whose entities differ in dimension, 42 one on both shell and solid instances; 40 and 43
/// of its state.
class DDB_API kbcC_TemperatureBC final : public kprC_TypeOf<kbcC_TemperatureBC, kbcC_DistributedBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;

protected:
  void AssertWhole() const override;
};
