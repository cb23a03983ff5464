#pragma once

#include "module/klo/kloC_LoadState.h"
#include "module/kpr/family/kprC_TypedAttribute.h"

enum class kloC_CategoryEnm { MECHANICAL = 0, THERMAL = 1, FLUID = 2, ELECTRICAL = 3, MASS_DIFFUSION = 4, ACOUSTIC = 5, OTHER_LOAD = 6 };
template <> struct omu_EnumTable<kloC_CategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0},     {"THERMAL", 1},  {"FLUID", 2},      {"ELECTRICAL", 3},
                                                               {"MASS_DIFFUSION", 4}, {"ACOUSTIC", 5}, {"OTHER_LOAD", 6}, {nullptr, 0}};
};

/// A row of the table of types.
using kloC_TypeRow = kprC_LoadCaseTypeRow<kloC_CategoryEnm>;
/// The table of types, in the order of the lists that users see.
DDB_API std::span<kloC_TypeRow const> kloC_Types();
/// The label of the type of that identity; empty where it has none.
DDB_API std::string_view kloC_TypeText(unsigned typeId);

/// What sets loads apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API kloC_Rules : kprC_ProcedureRules {
  using State = kloC_LoadState;
  using Error = kloC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kloC_TypeRow;
  static std::span<TypeRow const> Types() { return kloC_Types(); }

  /// A refused operation leaves the load as it was.
  static constexpr bool kOnCopy = true;

  /// How a status is classified; one that is not known is refused.
  static constexpr kprC_StatusTable kStatuses = kprC_StatusesWith({{Status::Status8, kprC_Known | kprC_Active | kprC_BuiltIn}});

  /// What the propagator gives. Nothing is created in the initial step, and no step is modal-based.
  static constexpr kprC_PassTable kPass = {};

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::StepUnknown,
      .unknownStatus = Error::UnknownPropagationStatus,
      .replaceCreateStep = Error::ResetInCreateStep,
      .createNotAdmitted = Error::InvalidStep,
      .anneal = Error::AnnealStep,
      .setToPropagated = Error::ComponentValue,
  };

  // what each operation asks, in this order
  static constexpr auto kDeactivate = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::InitialStep, Error::StepUnknown},
      {kprC_Ask::NoState},
      {kprC_Ask::SwitchedOff},
      {kprC_Ask::Perturbation, Error::DeactivateInBaseState},
      {kprC_Ask::Inactive, Error::NotActive},
      {kprC_Ask::NotEditable, Error::CannotBeDeactivated},
  });
  static constexpr auto kReset = std::to_array<kprC_Test>({
      {kprC_Ask::CreateStep, Error::ResetInCreateStep},
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::NoReset, Error::ResetNotDeactivated},
  });
  /// A move asks the steps between first, then the destination.
  static constexpr auto kMove = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::SameStep},
      {kprC_Ask::OfType},
      {kprC_Ask::Between, Error::MoveAcrossChange},
      {kprC_Ask::Destination, Error::MoveOntoChange},
      {kprC_Ask::EmptyBetween},
      {kprC_Ask::Inactive, Error::MoveInactive},
      {kprC_Ask::Propagated, Error::MoveNothing},
      {kprC_Ask::Perturbation, Error::MoveFromPerturbation},
      {kprC_Ask::Target},
      {kprC_Ask::NotAdmitted, Error::MoveToInvalidStep},
  });
  static constexpr auto kOperations = Operations(kDeactivate, kReset, kMove);
  static constexpr kprC_LoadCaseRefusals<Error> kLoadCase = {
      .notActive = Error::LoadCaseNotActive, .type = Error::LoadCaseType, .notYet = Error::LoadCaseConnector};
  static constexpr auto kMoveTargets = MoveTargets<Error>({
      .perturbation = Error::MoveToPerturbation,
      .anneal = Error::MoveToAnneal,
      .modalDynamics = Error::MoveToModalDynamics,
      .randomResponse = Error::MoveToRandomResponse,
      .responseSpectrum = Error::MoveToResponseSpectrum,
      .steadyStateModal = Error::MoveToSteadyStateModal,
  });
  /// What the editing layers refuse.
  static constexpr kprC_EditRefusals<Error> kEdit = {
      .noSuchAttribute = Error::NoSuchLoad,
      .noSteps = Error::NoSteps,
      .noAttributes = Error::NoLoads,
      .nameInUse = Error::NameInUse,
      .unknownStep = Error::StepUnknown,
      .suppressed = Error::Suppressed,
      .amplitudeUnknown = Error::AmplitudeName,
      .fieldUnknown = Error::FieldUnknown,
      .notInStep = Error::NotInStepOrInactive,
      .readOnlyInStep = Error::ReadOnly,
      .inInitialStep = Error::DefinedInInitialStep,
  };

  static void Assert(bool condition, Error code) { kloC_Assert(condition, code); }
};
