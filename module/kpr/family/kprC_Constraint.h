#pragma once

#include "module/kpr/family/kprC_ConstraintState.h"
#include "module/kpr/family/kprC_Prescribed.h"
#include "module/kpr/family/kprC_TypedAttribute.h"
#include "platform/BasicUtils/cls_Shared.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"

/// What a family that constrains regions refuses of their operations and components.
template <class Error> struct kprC_ConstraintRefusals {
  Error stepOfOperation;     ///< an operation names a step that does not exist
  Error deactivateInactive;  ///< switched off where it is not active
  Error resetInCreateStep;
  Error resetNotDeactivated;
  Error moveOntoChange, moveAcrossChange, moveInactive, moveNothing, moveFromPerturbation, moveNotAdmitted;
  Error moveNonZeroToInitial;
  Error componentFreedInCreateStep;  ///< a component is freed in the create step
  Error componentFreedOrUnset;       ///< one is freed or unset where the constraint is not active
  Error componentUnset;              ///< one is unset where it is, behind the create step
  Error nonZeroInInitial;
};

/// What the rules of such families have in common: what is constrained is part of the base state of perturbation steps, may be
/// changed for one of them, and is held by the modes in a modal-based step. A refused operation leaves behind what it has done.
struct kprC_ConstraintRules : kprC_ProcedureRules {
  using Status = mdl_PropagationStatusEnm;

  static constexpr bool kOnCopy = false;

  /// How a status is classified; one that is not known is refused.
  static constexpr kprC_StatusTable kStatuses = kprC_StatusesWith({
      {Status::PropagatedFromBaseState, kprC_Known | kprC_Editable | kprC_Active | kprC_Propagated},
      {Status::ModifiedFromBaseState, kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed | kprC_NoReset},
      {Status::Inactive11, kprC_Known | kprC_Changed},  // off for this step only
      {Status::BuiltIn, kprC_Known | kprC_BuiltIn},
  });

  /// What the propagator gives.
  static constexpr kprC_PassTable kPass = {
      .carriedFromInitial = Status::PropagatedFromBaseState,
      .changedFromInitial = Status::ModifiedFromBaseState,
      .perturbation = Status::PropagatedFromBaseState,
      .perturbationChanged = Status::ModifiedFromBaseState,
      .perturbationOff = Status::Inactive11,
      .held = Status::BuiltIn,
      .keepsPerturbationChange = true,
      .asksAdmissionInPerturbation = true,
  };

  /// Modal-based procedures hold every constraint by the modes of an earlier frequency step.
  static constexpr kprC_ProcedureSet kModal = {kprC_ProcedureType::ModalDynamics,    kprC_ProcedureType::RandomResponse,
                                               kprC_ProcedureType::ResponseSpectrum, kprC_ProcedureType::SteadyStateModal,
                                               kprC_ProcedureType::SubspaceDynamics, kprC_ProcedureType::ComplexFrequency};

  static constexpr kprC_StepKind Kind(unsigned procedureType) {
    if (kModal.Contains(procedureType)) { return kprC_StepKind::Modal; }
    return kprC_ProcedureRules::Kind(procedureType);
  }

  // what each operation asks, in this order
  template <class Error> static constexpr auto Deactivation(kprC_ConstraintRefusals<Error> const& to) {
    return std::to_array<kprC_Test>({
        {kprC_Ask::UnknownStep, to.stepOfOperation},
        {kprC_Ask::NoState},
        {kprC_Ask::SwitchedOff},
        {kprC_Ask::Inactive, to.deactivateInactive},
    });
  }
  template <class Error> static constexpr auto Reset(kprC_ConstraintRefusals<Error> const& to) {
    return std::to_array<kprC_Test>({
        {kprC_Ask::CreateStep, to.resetInCreateStep},
        {kprC_Ask::UnknownStep, to.stepOfOperation},
        {kprC_Ask::NoReset, to.resetNotDeactivated},
    });
  }
  /// A move asks destination and steps between as it meets them.
  template <class Error> static constexpr auto Move(kprC_ConstraintRefusals<Error> const& to) {
    return std::to_array<kprC_Test>({
        {kprC_Ask::SameStep},
        {kprC_Ask::UnknownStep, to.stepOfOperation},
        {kprC_Ask::OfType},
        {kprC_Ask::DestinationFirst, to.moveOntoChange},
        {kprC_Ask::Between, to.moveAcrossChange},
        {kprC_Ask::Destination, to.moveOntoChange},
        {kprC_Ask::EmptyBetween},
        {kprC_Ask::Inactive, to.moveInactive},
        {kprC_Ask::Propagated, to.moveNothing},
        {kprC_Ask::Perturbation, to.moveFromPerturbation},
        {kprC_Ask::Target},
        {kprC_Ask::NotAdmitted, to.moveNotAdmitted},
    });
  }
};

/// An attribute that constrains a region component by component. \p Rules has the refusals as kConstraint, what tells of a status as
/// kStatusFormat, and states that are a
/// kprC_ConstraintState.
template <class Rules> class kprC_Constraint : public kprC_TypedAttribute<Rules> {
  using Base = kprC_TypedAttribute<Rules>;

public:
  using State = typename Rules::State;

  rgnC_Region const& Region() const { return *region_; }
  dtmC_DatumRef const& Csys() const { return *csys_; }

  /// Refuses where the create step frees a component, and where a step frees one in which the constraint is not active. Then as
  /// kprC_StepAttribute.
  bool Insert(cow_String const& step, State const& state) override {
    std::size_t const index = this->States().Find(step.View());
    if (index != kprC_StepTable::npos || this->States().Size() == 0) { AssertComponentState(index, state.IsConditionModified(), false); }
    return Base::Insert(step, state);
  }
  /// Motion is one quantity, whether it is given as displacement, velocity or acceleration; any other type is its own.
  kprC_Prescription Prescribes(cls_Object const& state) const override {
    auto const& own = static_cast<State const&>(state);
    constexpr std::uint32_t kOneValue = 1U << kprC_oneValue;
    constexpr unsigned kMotion = 1;
    std::uint32_t const components = own.Components();
    if (components == 0) { return {}; }
    std::uint32_t const inForce = own.ComponentsInForce();
    bool const whole = inForce == 0 && NeedsNoValue(components == kOneValue);
    return {components == kOneValue ? state.DynTypeId() : kMotion, whole ? components : inForce};
  }
  std::string_view StatusFormat() const override { return Rules::kStatusFormat; }

protected:
  /// Whether a user subroutine gives the values.
  virtual bool IsUserDefined() const { return false; }
  /// Whether it constrains where no step says how; \p oneValue: it has no components.
  virtual bool NeedsNoValue(bool oneValue) const { return IsUserDefined() && oneValue; }
  /// Refuses what is not zero in the initial step.
  void AssertState(State const& state, std::size_t index) const override {
    Rules::Assert(!this->Steps().IsInitial(index) || !state.IsNonZero(), Rules::kConstraint.nonZeroInInitial);
  }
  void AssertMemberState(std::size_t index, std::string_view /*member*/, std::string_view word) const override {
    AssertComponentState(index, word == "FREED", word == "UNSET");
  }
  /// Refuses anything but zero moved into the initial step.
  void AssertOperation(kprC_Effect effect, std::size_t from, std::size_t to) const override {
    if (effect != kprC_Effect::Move) { return; }
    auto const* const state = static_cast<State const*>(this->States().State(from));
    Rules::Assert(!this->Steps().IsInitial(to) || state == nullptr || !state->IsNonZero(), Rules::kConstraint.moveNonZeroToInitial);
  }

  cls_Shared<rgnC_Region> region_;
  cls_Shared<dtmC_DatumRef> csys_;

private:
  /// \p index npos: being created.
  void AssertComponentState(std::size_t index, bool freed, bool unset) const {
    if (!freed && !unset) { return; }
    constexpr auto const& to = Rules::kConstraint;
    bool const creation = index == kprC_StepTable::npos || this->StatusAt(index) == mdl_PropagationStatusEnm::Created;
    if (creation) { return Rules::Assert(!freed, to.componentFreedInCreateStep); }
    bool const active = this->IsActive(this->StatusAt(index));
    Rules::Assert(active, to.componentFreedOrUnset);
    Rules::Assert(!unset, to.componentUnset);
  }
};
