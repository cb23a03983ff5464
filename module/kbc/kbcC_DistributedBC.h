#pragma once

#include "framework/kprC_TypeOf.h"
#include "module/kbc/kbcC_BC.h"

// Conditions that prescribe one value, and their states.

/// Per-step state of a condition that prescribes one value.
class DDB_API kbcC_DistributedBCState : public kbcC_StateOf<kbcC_DistributedBCState> {
public:
  static constexpr omn_FixedString magnitudeCmd() { return "magnitude"; }
  static constexpr omn_FixedString fixedCmd() { return "fixed"; }

  kbcC_DistributedBCState() = default;
  explicit kbcC_DistributedBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> magnitude;  ///< the prescribed value, in the unit of the quantity
  mdl_PropAttr<bool> fixed;        ///< held where the step begins, whatever that is

  template <class V> static constexpr void VisitValues(V&& visit) {
    visit(magnitudeCmd(), &kbcC_DistributedBCState::magnitude,
          cls_MemberText{"the prescribed value", "of the quantity", static_cast<int>(kbcC_ErrorEnm::ComponentValue)});
  }
  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    VisitValues(visit);
    visit(fixedCmd(), &kbcC_DistributedBCState::fixed,
          cls_MemberText{"held where the step begins", "", static_cast<int>(kbcC_ErrorEnm::FixedValue)});
  }
};

/// Base of the conditions that prescribe one value.
class DDB_API kbcC_DistributedBC : public cls_Persistent<kbcC_DistributedBC, kbcC_BC> {
public:
  template <class V> static constexpr void VisitMembers(V&& visit) { kbcC_BC::VisitMembers(visit); }
};

/// A state that is just the one value, as a class of its own.
template <class Derived> class kbcC_OneValue : public kbcC_StateOf<Derived, kbcC_DistributedBCState> {
public:
  kbcC_OneValue() = default;
  explicit kbcC_OneValue(cls_ReadVisitor const& in) { cls_ReadMembers(static_cast<kbcC_DistributedBCState&>(*this), in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kbcC_DistributedBCState::VisitMembers(visit); }
};

class DDB_API kbcC_PorePressureBCState final : public kbcC_OneValue<kbcC_PorePressureBCState> {
  using kbcC_OneValue::kbcC_OneValue;
};
/// Pressure of the fluid in the pores of a medium.
class DDB_API kbcC_PorePressureBC final : public kprC_TypeOf<kbcC_PorePressureBC, kbcC_PorePressureBCState, kbcC_DistributedBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "PorePressureBC"; }
  static constexpr omn_FixedString label() { return "Pore pressure"; }
};

class DDB_API kbcC_AcousticPressureBCState final : public kbcC_OneValue<kbcC_AcousticPressureBCState> {
  using kbcC_OneValue::kbcC_OneValue;
};
/// Pressure in an acoustic medium.
class DDB_API kbcC_AcousticPressureBC final
    : public kprC_TypeOf<kbcC_AcousticPressureBC, kbcC_AcousticPressureBCState, kbcC_DistributedBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "AcousticPressureBC"; }
  static constexpr omn_FixedString label() { return "Acoustic pressure"; }
};

class DDB_API kbcC_FluidCavityPressureBCState final : public kbcC_OneValue<kbcC_FluidCavityPressureBCState> {
  using kbcC_OneValue::kbcC_OneValue;
};
/// Pressure of the fluid in a cavity.
class DDB_API kbcC_FluidCavityPressureBC final
    : public kprC_TypeOf<kbcC_FluidCavityPressureBC, kbcC_FluidCavityPressureBCState, kbcC_DistributedBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "FluidCavityPressureBC"; }
  static constexpr omn_FixedString label() { return "Fluid cavity pressure"; }
};

class DDB_API kbcC_ElectricPotentialBCState final : public kbcC_OneValue<kbcC_ElectricPotentialBCState> {
  using kbcC_OneValue::kbcC_OneValue;
};
/// Electric potential.
class DDB_API kbcC_ElectricPotentialBC final
    : public kprC_TypeOf<kbcC_ElectricPotentialBC, kbcC_ElectricPotentialBCState, kbcC_DistributedBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ElectricPotentialBC"; }
  static constexpr omn_FixedString label() { return "Electric potential"; }
};

class DDB_API kbcC_ConcentrationBCState final : public kbcC_OneValue<kbcC_ConcentrationBCState> {
  using kbcC_OneValue::kbcC_OneValue;
};
/// Normalized concentration of a diffusing species.
class DDB_API kbcC_ConcentrationBC final : public kprC_TypeOf<kbcC_ConcentrationBC, kbcC_ConcentrationBCState, kbcC_DistributedBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ConcentrationBC"; }
  static constexpr omn_FixedString label() { return "Mass concentration"; }
};

/// Per-step state of a temperature condition.
class DDB_API kbcC_TemperatureBCState final : public kbcC_StateOf<kbcC_TemperatureBCState, kbcC_DistributedBCState> {
public:
  static constexpr omn_FixedString dofCmd() { return "dof"; }
  static constexpr omn_FixedString shellCmd() { return "shell"; }

  kbcC_TemperatureBCState() = default;
  explicit kbcC_TemperatureBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<int> dof;     ///< degree of freedom of the temperature point through a shell's thickness, 11 to 31
  mdl_PropAttr<bool> shell;  ///< whether the region is on shells

  /// Refuses 40 no degree of freedom on shells, 43 one that is not between 11 and 31.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_DistributedBCState::VisitMembers(visit);
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
