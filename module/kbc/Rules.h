#pragma once

#include <span>

#include "module/kbc/kbcC_BCState.h"
#include "module/kpr/family/kprC_Constraint.h"
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

/// What sets boundary conditions apart from the other families: their types and refusals. All else is as with everything that constrains
/// a region.
struct DDB_API kbcC_Rules : kprC_ConstraintRules {
  using State = kbcC_BCState;
  using Error = kbcC_ErrorEnm;
  using TypeRow = kbcC_TypeRow;
  static std::span<TypeRow const> Types() { return kbcC_Types(); }

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
  static constexpr kprC_ConstraintRefusals<Error> kConstraint = {
      .stepOfOperation = Error::UnknownStepType,
      .deactivateInactive = Error::NotActiveInStep,
      .resetInCreateStep = Error::ResetInCreateStep,
      .resetNotDeactivated = Error::ResetNotDeactivated,
      .moveOntoChange = Error::MoveOntoChange,
      .moveAcrossChange = Error::MoveAcrossChange,
      .moveInactive = Error::MoveInactive,
      .moveNothing = Error::MoveNothing,
      .moveFromPerturbation = Error::MoveFromPerturbation,
      .moveNotAdmitted = Error::MoveToInvalidStep,
      .moveNonZeroToInitial = Error::MoveNonZeroToInitialStep,
      .componentFreedInCreateStep = Error::CreateStepComponent,
      .componentFreedOrUnset = Error::ComponentFreedOrUnset,
      .componentUnset = Error::ComponentUnset,
      .nonZeroInInitial = Error::NonZeroInInitialStep,
  };
  static constexpr std::string_view kStatusFormat = "The boundary condition is %1$s in step: %2$s.";
  static constexpr auto kDeactivate = Deactivation(kConstraint);
  static constexpr auto kReset = Reset(kConstraint);
  static constexpr auto kMove = Move(kConstraint);
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
