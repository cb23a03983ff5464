#pragma once

#include <span>
#include <string_view>

#include "module/kpf/kpfC_FieldState.h"
#include "module/kpr/family/kprC_TypedAttribute.h"

/// A row of the table of types.
struct kpfC_TypeRow : kprC_TypeRow {
  kprC_LoadCase loadCase;
  unsigned distributions;  ///< that the type takes: a bit for the number of each
  kpfC_ErrorEnm refusal;   ///< of any other

  constexpr bool Takes(kpfC_DistribTypeEnum distribution) const { return (distributions >> static_cast<unsigned>(distribution) & 1U) != 0; }
};
/// The table of types, in the order of the lists that users see.
DDB_API std::span<kpfC_TypeRow const> kpfC_Types();
/// The labels of the types. The process has one table: thr_GlobalSingleton<kpfC_FieldTypeLabelMap>::Instance().
class DDB_API kpfC_FieldTypeLabelMap {
public:
  /// The label of the type of that identity; empty for what is no type.
  std::string_view Label(unsigned typeId) const;
};

/// What sets predefined fields apart from the other families: statuses, procedures and refusals, as tables. They are never switched off:
/// the state's flag says that they are back at their initial value.
struct DDB_API kpfC_Rules : kprC_ProcedureRules {
  using State = kpfC_FieldState;
  using Error = kpfC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kpfC_TypeRow;
  static std::span<TypeRow const> Types() { return kpfC_Types(); }

  /// A refused operation leaves the field as it was.
  static constexpr bool kOnCopy = true;

  /// How a status is classified; one that is not known is refused.
  static constexpr kprC_StatusTable kStatuses = kprC_StatusesWith({
      {Status::Deactivated, 0},
      {Status::Status8, kprC_Known | kprC_Active | kprC_BuiltIn},
      {Status::Reserved13, kprC_Known | kprC_NoReset},                   // initial since a reset
      {Status::Status14, kprC_Known | kprC_Active | kprC_Propagated},    // initial condition in force
      {Status::Status15, kprC_Known | kprC_IllegalMove | kprC_Changed},  // reset to initial here
  });

  /// What the propagator gives. No step is modal-based.
  static constexpr kprC_PassTable kPass = {
      .createdOff = Status::Status15,
      .off = Status::Status15,
      .afterOff = Status::Reserved13,
      .keptFromInitial = Status::Status14,
  };

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::StepUnknown,
      .unknownStatus = Error::UnknownPropagationStatus,
      .replaceCreateStep = Error::ResetInCreateStep,
      .createNotAdmitted = Error::InvalidStep,
      .anneal = Error::AnnealStep,
      .setToPropagated = {},
  };

  // what each operation asks, in this order
  static constexpr auto kResetToInitial = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::CreateStep, Error::ResetInCreateStep},
      {kprC_Ask::NoState},
      {kprC_Ask::SwitchedOff},
      {kprC_Ask::Perturbation, Error::ResetInBaseState},
      {kprC_Ask::Inactive, Error::NotActive},
      {kprC_Ask::NotEditable, Error::CannotBeReset},
  });
  static constexpr auto kResetToPropagated = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::CreateStep, Error::ResetInCreateStep},
      {kprC_Ask::NoReset, Error::ResetNotDeactivated},
  });
  /// A move asks the steps between first, then the destination.
  static constexpr auto kMove = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::SameStep},
      {kprC_Ask::Between, Error::MoveAcrossChange},
      {kprC_Ask::Destination, Error::MoveOntoChange},
      {kprC_Ask::EmptyBetween},
      {kprC_Ask::Inactive, Error::MoveInactive},
      {kprC_Ask::Propagated, Error::MoveNothing},
      {kprC_Ask::Perturbation, Error::MoveFromPerturbation},
      {kprC_Ask::Target},
      {kprC_Ask::NotAdmitted, Error::MoveToInvalidStep},
  });
  static constexpr auto kOperations = std::to_array<kprC_Operation>({
      {"resetToInitial", "takes a field back to its initial value from a step on", kprC_Effect::SwitchOff, kResetToInitial},
      {"resetToPropagated", "takes back a reset to the initial value", kprC_Effect::TakeBack, kResetToPropagated},
      {"move", "moves what an attribute sets in one step to another", kprC_Effect::Move, kMove},
  });
  /// Procedures with a refusal of their own are asked before the perturbation procedures, which four of them are.
  static constexpr auto kMoveTargets = std::to_array<kprC_MoveTarget>({
      {kprC_ProcedureSet(kprC_ProcedureType::Anneal), Error::MoveToAnneal},
      {kprC_ProcedureSet(kprC_ProcedureType::ModalDynamics), Error::MoveToModalDynamics},
      {kprC_ProcedureSet(kprC_ProcedureType::RandomResponse), Error::MoveToRandomResponse},
      {kprC_ProcedureSet(kprC_ProcedureType::ResponseSpectrum), Error::MoveToResponseSpectrum},
      {kprC_ProcedureSet(kprC_ProcedureType::SteadyStateModal), Error::MoveToSteadyStateModal},
      {kprC_perturbationProcedures, Error::MoveToPerturbation},
  });
  static constexpr kprC_LoadCaseRefusals<Error> kLoadCase = {
      .notActive = Error::LoadCaseNotActive, .type = Error::LoadCaseType, .notYet = Error::LoadCaseNotSupported};
  /// What the editing layers refuse.
  static constexpr kprC_EditRefusals<Error> kEdit = {
      .noSuchAttribute = Error::NoSuchField,
      .copyUnknown = {},
      .noSteps = Error::NoSteps,
      .noAttributes = Error::NoFields,
      .nameInUse = Error::NameInUse,
      .unknownStep = Error::StepUnknown,
      .suppressed = Error::Suppressed,
      .amplitudeName = {},
      .amplitudeUnknown = Error::AmplitudeName,
      .fieldUnknown = Error::FieldUnknown,
      .notInStep = Error::NotInStepOrInactive,
      .readOnlyInStep = Error::ReadOnly,
      .inInitialStep = {},
      .typeNotAdmitted = Error::InvalidForStepType,
      .behindModel = {Error::BeamGradientsRequired, Error::RegionMissing, Error::ZeroMagnitude},
  };

  static void Assert(bool condition, Error code) { kpfC_Assert(condition, code); }
};
