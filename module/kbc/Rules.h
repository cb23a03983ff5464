#pragma once

#include <span>
#include <string_view>

#include "module/kbc/kbcC_BCState.h"
#include "module/kpr/family/kprC_TypedAttribute.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

enum class kbcC_CategoryEnm { MECHANICAL = 0, THERMAL = 1, FLUID = 2, ELECTRICAL = 3, MASS_DIFFUSION = 4, ACOUSTIC = 5, OTHER_BC = 6 };
template <> struct omu_EnumTable<kbcC_CategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0},     {"THERMAL", 1},  {"FLUID", 2},    {"ELECTRICAL", 3},
                                                               {"MASS_DIFFUSION", 4}, {"ACOUSTIC", 5}, {"OTHER_BC", 6}, {nullptr, 0}};
};

/// A row of the table of types.
struct kbcC_TypeRow : kprC_LoadCaseTypeRow<kbcC_CategoryEnm> {
  bool staysConstrained;  ///< carried, it may stand in what kbcC_kStaysConstrained holds
};
/// The table of types, in the order of the lists that users see.
DDB_API std::span<kbcC_TypeRow const> kbcC_Types();

/// What sets boundary conditions apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API kbcC_Rules : kprC_ProcedureRules {
  using State = kbcC_BCState;
  using Error = kbcC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kbcC_TypeRow;
  static std::span<TypeRow const> Types() { return kbcC_Types(); }

  static constexpr unsigned kCarriedHere = kprC_Known | kprC_Editable | kprC_Active | kprC_Propagated;
  static constexpr unsigned kChangedHere = kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed;
  /// How a status is classified; one that is not known is refused.
  static constexpr kprC_StatusTable kStatuses = {
      /*  0 NotYetCreated             */ kprC_Known | kprC_NoReset,
      /*  1 Created                   */ kChangedHere,
      /*  2 Propagated                */ kCarriedHere,
      /*  3 Modified                  */ kChangedHere | kprC_NoReset,
      /*  4 Deactivated               */ kprC_Known | kprC_IllegalMove | kprC_Changed,
      /*  5 InactiveAfterDeactivation */ kprC_Known | kprC_NoReset,
      /*  6 not admitted here         */ kprC_Known | kprC_NoReset,
      /*  7 not carried here          */ kprC_Known | kprC_NoReset,
      /*  8                           */ 0,
      /*  9 PropagatedFromBaseState   */ kCarriedHere,
      /* 10 ModifiedFromBaseState     */ kChangedHere | kprC_NoReset,
      /* 11 off for this step only    */ kprC_Known | kprC_Changed,
      /* 12 BuiltIn                   */ kprC_Known | kprC_BuiltIn,
      /* 13                           */ kprC_NoReset,
      /* 14                           */ 0,
      /* 15                           */ 0,
  };

  /// What the propagator gives.
  static constexpr kprC_PassTable kPass = {
      .createdOff = Status::Deactivated,
      .carried = Status::Propagated,
      .carriedFromInitial = Status::PropagatedFromBaseState,
      .changed = Status::Modified,
      .changedFromInitial = Status::ModifiedFromBaseState,
      .off = Status::Deactivated,
      .afterOff = Status::InactiveAfterDeactivation,
      .notAdmitted = Status::Inactive6,
      .keptFromInitial = Status::Inactive6,
      .perturbation = Status::PropagatedFromBaseState,
      .perturbationChanged = Status::ModifiedFromBaseState,
      .perturbationOff = Status::Inactive11,
      .held = Status::BuiltIn,
      .notCarried = Status::Inactive7,
      .keepsPerturbationChange = true,
      .asksAdmissionInPerturbation = true,
  };

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::UnknownStepType,
      .unknownStatus = Error::UnknownPropagationStatus,
      .replaceCreateStep = Error::ResetInCreateStep,
      .createNotAdmitted = Error::InvalidStep,
      .anneal = Error::AnnealStep,
      .setToPropagated = Error::StateSetToPropagated,
  };
  static constexpr kprC_LoadCaseRefusals<Error> kLoadCase = {
      .notActive = Error::LoadCaseNotActive, .type = Error::LoadCaseType, .notYet = Error::LoadCaseNotSupported};
  /// A refused operation leaves behind what it has done.
  static constexpr bool kOnCopy = false;

  // what each operation asks, in this order
  static constexpr auto kDeactivate = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::UnknownStepType},
      {kprC_Ask::NoState},
      {kprC_Ask::SwitchedOff},
      {kprC_Ask::Inactive, Error::NotActiveInStep},
  });
  static constexpr auto kReset = std::to_array<kprC_Test>({
      {kprC_Ask::CreateStep, Error::ResetInCreateStep},
      {kprC_Ask::UnknownStep, Error::UnknownStepType},
      {kprC_Ask::NoReset, Error::ResetNotDeactivated},
  });
  /// A move asks destination and steps between as it meets them.
  static constexpr auto kMove = std::to_array<kprC_Test>({
      {kprC_Ask::SameStep},
      {kprC_Ask::UnknownStep, Error::UnknownStepType},
      {kprC_Ask::OfType},
      {kprC_Ask::DestinationFirst, Error::MoveOntoChange},
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
      .noSuchAttribute = Error::NotInStepOrInactive,
      .noSteps = Error::NoSteps,
      .noAttributes = Error::NoBoundaryConditions,
      .nameInUse = Error::NameInUse,
      .unknownStep = Error::StepUnknown,
      .suppressed = Error::Suppressed,
      .amplitudeName = Error::AmplitudeName,
      .amplitudeUnknown = Error::AmplitudeValue,
      .fieldUnknown = Error::FieldUnknown,
      .notInStep = Error::NotInStepOrInactive,
      .readOnlyInStep = Error::NotInStepOrInactive,
      .inInitialStep = {},
  };

  /// Modal-based procedures hold every condition by the modes of an earlier frequency step.
  static constexpr kprC_ProcedureSet kModal = {kprC_ProcedureType::ModalDynamics,    kprC_ProcedureType::RandomResponse,
                                               kprC_ProcedureType::ResponseSpectrum, kprC_ProcedureType::SteadyStateModal,
                                               kprC_ProcedureType::SubspaceDynamics, kprC_ProcedureType::ComplexFrequency};

  static constexpr kprC_StepKind Kind(unsigned procedureType) {
    if (kModal.Contains(procedureType)) { return kprC_StepKind::Modal; }
    return kprC_ProcedureRules::Kind(procedureType);
  }
  static void Assert(bool condition, Error code) { kbcC_Assert(condition, code); }
};

/// What is constrained stays so: carried, a condition of most types stands in every perturbation procedure that solves for
/// its degrees of freedom and in the modal-based ones. Nothing is added for a creation.
inline constexpr kprC_ProcedureSet kbcC_kStaysConstrained =
    kbcC_Rules::kModal | kprC_ProcedureSet{kprC_ProcedureType::Buckle, kprC_ProcedureType::Frequency,
                                           kprC_ProcedureType::StaticLinearPerturbation, kprC_ProcedureType::SteadyStateDirect,
                                           kprC_ProcedureType::SteadyStateSubspace};

/// Whether the table grants the type of that identity a step of \p procedureType (0: the initial step).
DDB_API bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType);
