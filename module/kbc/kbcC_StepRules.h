#pragma once

#include <span>
#include <string_view>

#include "framework/kprC_StepAttribute.h"
#include "module/kbc/kbcC_BCState.h"
#include "module/kpr/kprC_Admission.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// What sets boundary conditions apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API kbcC_StepRules {
  using State = kbcC_BCState;
  using Error = kbcC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;

  /// How a status is classified; one without a row is refused.
  static constexpr kprC_StatusTable kStatuses = {
      /*  0 NotYetCreated             */ kprC_Known | kprC_NoReset,
      /*  1 Created                   */ kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed,
      /*  2 Propagated                */ kprC_Known | kprC_Editable | kprC_Active | kprC_Propagated,
      /*  3 Modified                  */ kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed | kprC_NoReset,
      /*  4 Deactivated               */ kprC_Known | kprC_IllegalMove | kprC_Changed,
      /*  5 InactiveAfterDeactivation */ kprC_Known | kprC_NoReset,
      /*  6 not admitted here         */ kprC_Known | kprC_NoReset,
      /*  7 not carried here          */ kprC_Known | kprC_NoReset,
      /*  8                           */ 0,
      /*  9 PropagatedFromBaseState   */ kprC_Known | kprC_Editable | kprC_Active | kprC_Propagated,
      /* 10 ModifiedFromBaseState     */ kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed | kprC_NoReset,
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
      .perturbation = Status::PropagatedFromBaseState,
      .perturbationChanged = Status::ModifiedFromBaseState,
      .perturbationOff = Status::Inactive11,
      .held = Status::BuiltIn,
      .notCarried = Status::Inactive7,
      .keepsPerturbationChange = true,
      .asksAdmissionInPerturbation = true,
  };
  /// Statuses in which the switched-off flag is not the step's own doing.
  static constexpr unsigned kNeverOff = 1U << 0 | 1U << 5 | 1U << 6 | 1U << 7 | 1U << 8 | 1U << 12 | 1U << 13;

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::UnknownStepType,
      .unknownStatus = Error::UnknownPropagationStatus,
      .notActive = Error::NotActiveInStep,
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
      .setToPropagated = Error::StateSetToPropagated,
      .offInInitialStep = {},
      .offInPerturbation = {},
      .cannotBeOff = {},
  };
  static constexpr bool kOnCopy = false;
  static constexpr bool kMoveInStepOrder = true;
  /// Procedures that nothing is moved into, in the order in which they are asked.
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
      case kprC_EditRefusal::NoSuchAttribute:
      case kprC_EditRefusal::NotInStep:
      case kprC_EditRefusal::ReadOnlyInStep: return Error::NotInStepOrInactive;
      case kprC_EditRefusal::NoSteps: return Error::NoSteps;
      case kprC_EditRefusal::NoAttributes: return Error::NoBoundaryConditions;
      case kprC_EditRefusal::NameInUse: return Error::NameInUse;
      case kprC_EditRefusal::UnknownStep: return Error::StepUnknown;
      case kprC_EditRefusal::Suppressed: return Error::Suppressed;
      case kprC_EditRefusal::AmplitudeName: return Error::AmplitudeName;
      case kprC_EditRefusal::AmplitudeValue: return Error::AmplitudeValue;
      case kprC_EditRefusal::FieldUnknown: return Error::FieldUnknown;
      case kprC_EditRefusal::InInitialStep: return Error::InvalidForStepType;
    }
    return Error::UnknownStatus;
  }

  /// Modal-based procedures hold every condition by the modes of an earlier frequency step.
  static constexpr kprC_ProcedureSet kModal = {kprC_ProcedureType::ModalDynamics,    kprC_ProcedureType::RandomResponse,
                                               kprC_ProcedureType::ResponseSpectrum, kprC_ProcedureType::SteadyStateModal,
                                               kprC_ProcedureType::SubspaceDynamics, kprC_ProcedureType::ComplexFrequency};

  static constexpr kprC_StepKind Kind(unsigned procedureType) {
    if (kModal.Contains(procedureType)) { return kprC_StepKind::Modal; }
    return kprC_perturbationProcedures.Contains(procedureType) ? kprC_StepKind::Perturbation : kprC_StepKind::General;
  }
  static constexpr bool IsFrequency(unsigned procedureType) { return procedureType == kprC_ProcedureType::Frequency; }
  static constexpr bool IsAnneal(unsigned procedureType) { return procedureType == kprC_ProcedureType::Anneal; }
  static void Assert(bool condition, Error code) { kbcC_Assert(condition, code); }
};

enum class kbcC_CategoryEnm { MECHANICAL = 0, THERMAL = 1, FLUID = 2, ELECTRICAL = 3, MASS_DIFFUSION = 4, ACOUSTIC = 5, OTHER_BC = 6 };
/// Whether a load case may use conditions of a type.
enum class kbcC_LoadCaseEnm {
  Accepted,
  Refused,  ///< 49
  NotYet,   ///< 50
};

template <> struct omu_EnumTable<kbcC_CategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0},     {"THERMAL", 1},  {"FLUID", 2},    {"ELECTRICAL", 3},
                                                               {"MASS_DIFFUSION", 4}, {"ACOUSTIC", 5}, {"OTHER_BC", 6}, {nullptr, 0}};
};

/// What is constrained stays so: carried, a condition of most types stands in every perturbation procedure that solves for
/// its degrees of freedom and in the modal-based ones. Nothing is added for a creation.
inline constexpr kprC_ProcedureSet kbcC_kStaysConstrained =
    kbcC_StepRules::kModal | kprC_ProcedureSet{kprC_ProcedureType::Buckle, kprC_ProcedureType::Frequency,
                                               kprC_ProcedureType::StaticLinearPerturbation, kprC_ProcedureType::SteadyStateDirect,
                                               kprC_ProcedureType::SteadyStateSubspace};

/// What sets a type apart: a row of the table of types.
struct kbcC_TypeRow : kprC_AdmissionRow {
  kbcC_CategoryEnm category;
  bool mechanical;  ///< in the mechanical list of its procedures, else in the other list
  kbcC_LoadCaseEnm loadCase;
  bool staysConstrained;  ///< kbcC_kStaysConstrained holds for it
};
/// The table of types, mechanical ones first.
DDB_API std::span<kbcC_TypeRow const> kbcC_Types();
/// Whether the table grants the type of that identity a step of \p procedureType (0: the initial step).
DDB_API bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType);
