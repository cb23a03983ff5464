#pragma once

#include "module/klo/kloC_LoadState.h"
#include "module/kpr/family/kprC_TypedAttribute.h"

enum class kloC_CategoryEnm { MECHANICAL = 0, THERMAL = 1, FLUID = 2, ELECTRICAL = 3, MASS_DIFFUSION = 4, ACOUSTIC = 5, OTHER_LOAD = 6 };
template <> struct omu_EnumTable<kloC_CategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0},     {"THERMAL", 1},  {"FLUID", 2},      {"ELECTRICAL", 3},
                                                               {"MASS_DIFFUSION", 4}, {"ACOUSTIC", 5}, {"OTHER_LOAD", 6}, {nullptr, 0}};
};

/// What sets a type apart: a row of the table of types. Its member "type" is the text by which users know the type.
using kloC_TypeRow = kprC_TypeRow<kloC_CategoryEnm>;
/// The table of types, in the order in which they are listed. A type without a text is not in it.
DDB_API std::span<kloC_TypeRow const> kloC_Types();
/// The text of the type of that identity; empty where it has none.
DDB_API std::string_view kloC_TypeText(unsigned typeId);

/// What sets loads apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API kloC_StepRules : kprC_ProcedureRules {
  using State = kloC_LoadState;
  using Error = kloC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kloC_TypeRow;
  static std::span<TypeRow const> Types() { return kloC_Types(); }

  /// A refused operation leaves the load as it was.
  static constexpr bool kOnCopy = true;
  /// A move asks the steps between first, then the destination.
  static constexpr bool kMoveInStepOrder = false;

  /// How a status is classified; one without a row is refused.
  static constexpr kprC_StatusTable kStatuses =
      kprC_WithStatus(kprC_commonStatuses, Status::Status8, kprC_Known | kprC_Active | kprC_BuiltIn);  // part of the base state

  /// What the propagator gives. Nothing is created in the initial step, and no step is modal-based.
  static constexpr kprC_PassTable kPass = {
      .createdOff = Status::Deactivated,
      .carried = Status::Propagated,
      .carriedFromInitial = Status::Propagated,
      .changed = Status::Modified,
      .changedFromInitial = Status::Modified,
      .off = Status::Deactivated,
      .afterOff = Status::InactiveAfterDeactivation,
      .notAdmitted = Status::Inactive6,
      .perturbation = Status::Status8,
      .perturbationChanged = Status::Status8,
      .perturbationOff = Status::Status8,
      .held = Status::Inactive7,
      .notCarried = Status::Inactive7,
      .keepsPerturbationChange = false,
      .asksAdmissionInPerturbation = false,
  };

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::StepUnknown,
      .unknownStatus = Error::UnknownPropagationStatus,
      .notActive = Error::NotActive,
      .resetInCreateStep = Error::ResetInCreateStep,
      .resetNotDeactivated = Error::ResetNotDeactivated,
      .moveAcrossChange = Error::MoveAcrossChange,
      .moveOntoChange = Error::MoveOntoChange,
      .moveInactive = Error::MoveInactive,
      .movePropagated = Error::MoveNothing,
      .moveFromPerturbation = Error::MoveFromPerturbation,
      .moveNotAdmitted = Error::MoveToInvalidStep,
      .createNotAdmitted = Error::InvalidStep,
      .anneal = Error::AnnealStep,
      .setToPropagated = Error::ComponentValue,
      .offInInitialStep = Error::StepUnknown,
      .offInPerturbation = Error::DeactivateInBaseState,
      .cannotBeOff = Error::CannotBeDeactivated,
  };
  static constexpr kprC_LoadCaseRefusals<Error> kLoadCase = {Error::LoadCaseNotActive, Error::LoadCaseType, Error::LoadCaseConnector};
  static constexpr auto kMoveTargets =
      MoveTargets(Error::MoveToPerturbation, Error::MoveToAnneal, Error::MoveToModalDynamics, Error::MoveToRandomResponse,
                  Error::MoveToResponseSpectrum, Error::MoveToSteadyStateModal);
  /// What the editing layers refuse.
  static constexpr Error Edit(kprC_EditRefusal refusal) {
    switch (refusal) {
      case kprC_EditRefusal::NoSuchAttribute: return Error::NoSuchLoad;
      case kprC_EditRefusal::NoSteps: return Error::NoSteps;
      case kprC_EditRefusal::NoAttributes: return Error::NoLoads;
      case kprC_EditRefusal::NameInUse: return Error::NameInUse;
      case kprC_EditRefusal::UnknownStep: return Error::StepUnknown;
      case kprC_EditRefusal::Suppressed: return Error::Suppressed;
      case kprC_EditRefusal::AmplitudeName:
      case kprC_EditRefusal::AmplitudeValue: return Error::AmplitudeName;
      case kprC_EditRefusal::FieldUnknown: return Error::FieldUnknown;
      case kprC_EditRefusal::NotInStep: return Error::NotInStepOrInactive;
      case kprC_EditRefusal::ReadOnlyInStep: return Error::ReadOnly;
      case kprC_EditRefusal::InInitialStep: return Error::DefinedInInitialStep;
    }
    return Error::UnknownStatus;
  }

  static void Assert(bool condition, Error code) { kloC_Assert(condition, code); }
};
