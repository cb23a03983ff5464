#pragma once

#include "framework/kprC_StepAttribute.h"
#include "module/klo/kloC_LoadState.h"
#include "module/kpr/kprC_Admission.h"

/// What sets loads apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API kloC_StepRules {
  using State = kloC_LoadState;
  using Error = kloC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;

  /// A refused operation leaves the load as it was.
  static constexpr bool kOnCopy = true;
  /// A move asks the steps between first, then the destination.
  static constexpr bool kMoveInStepOrder = false;

  /// How a status is classified; one without a row is refused.
  static constexpr kprC_StatusTable kStatuses = {
      /*  0 NotYetCreated             */ kprC_Known | kprC_NoReset,
      /*  1 Created                   */ kprC_Known | kprC_Active | kprC_Editable | kprC_IllegalMove | kprC_Changed,
      /*  2 Propagated                */ kprC_Known | kprC_Active | kprC_Editable | kprC_Propagated,
      /*  3 Modified                  */ kprC_Known | kprC_Active | kprC_Editable | kprC_IllegalMove | kprC_Changed | kprC_NoReset,
      /*  4 Deactivated               */ kprC_Known | kprC_IllegalMove | kprC_Changed,
      /*  5 InactiveAfterDeactivation */ kprC_Known | kprC_NoReset,
      /*  6 not admitted here         */ kprC_Known | kprC_NoReset,
      /*  7 not carried here          */ kprC_Known | kprC_NoReset,
      /*  8 part of the base state    */ kprC_Known | kprC_Active | kprC_BuiltIn,
      /*  9                           */ 0,
      /* 10                           */ kprC_NoReset,
      /* 11                           */ 0,
      /* 12                           */ 0,
      /* 13                           */ kprC_NoReset,
      /* 14                           */ 0,
      /* 15                           */ 0,
  };

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
  /// Statuses in which the switched-off flag is not the step's own doing.
  static constexpr unsigned kNeverOff = 1U << 0 | 1U << 5 | 1U << 6 | 1U << 7 | 1U << 8 | 1U << 12 | 1U << 13;

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
  /// Procedures that nothing is moved into, in the order in which they are asked. Those behind the anneal step are
  /// perturbation procedures and never reached.
  static constexpr kprC_MoveTarget<kprC_ProcedureSet, Error> kMoveTargets[] = {
      {kprC_perturbationProcedures, Error::MoveToPerturbation},
      {{kprC_ProcedureType::Anneal}, Error::MoveToAnneal},
      {{kprC_ProcedureType::ModalDynamics}, Error::MoveToModalDynamics},
      {{kprC_ProcedureType::RandomResponse}, Error::MoveToRandomResponse},
      {{kprC_ProcedureType::ResponseSpectrum}, Error::MoveToResponseSpectrum},
      {{kprC_ProcedureType::SteadyStateModal}, Error::MoveToSteadyStateModal},
  };
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

  static constexpr kprC_StepKind Kind(unsigned procedureType) {
    return kprC_perturbationProcedures.Contains(procedureType) ? kprC_StepKind::Perturbation : kprC_StepKind::General;
  }
  static constexpr bool IsFrequency(unsigned /*procedureType*/) { return false; }  // asked for modal-based steps only
  static constexpr bool IsAnneal(unsigned procedureType) { return procedureType == kprC_ProcedureType::Anneal; }
  static void Assert(bool condition, Error code) { kloC_Assert(condition, code); }
};

enum class kloC_CategoryEnm { MECHANICAL = 0, THERMAL = 1, FLUID = 2, ELECTRICAL = 3, MASS_DIFFUSION = 4, ACOUSTIC = 5, OTHER_LOAD = 6 };
/// Whether a load case may combine loads of a type.
enum class kloC_LoadCaseEnm {
  Accepted,
  Refused,  ///< 54: fluxes, charges, currents and flows
  NotYet,   ///< 55: loads on connectors
};

template <> struct omu_EnumTable<kloC_CategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0},     {"THERMAL", 1},  {"FLUID", 2},      {"ELECTRICAL", 3},
                                                               {"MASS_DIFFUSION", 4}, {"ACOUSTIC", 5}, {"OTHER_LOAD", 6}, {nullptr, 0}};
};

/// What sets a type apart: a row of the table of types. Its member "type" is the text by which users know the type.
struct kloC_TypeRow : kprC_AdmissionRow {
  kloC_CategoryEnm category;
  kloC_LoadCaseEnm loadCase;
};
/// The table of types, in the order in which they are listed. A type without a text is not in it.
DDB_API std::span<kloC_TypeRow const> kloC_Types();
/// The text of the type of that identity; empty where it has none.
DDB_API std::string_view kloC_TypeText(unsigned typeId);
