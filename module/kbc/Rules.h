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

/// What sets a type apart: a row of the table of types.
struct kbcC_TypeRow : kprC_TypeRow<kbcC_CategoryEnm> {
  bool mechanical;        ///< in the mechanical list of its procedures, else in the other list
  bool staysConstrained;  ///< kbcC_kStaysConstrained holds for it
};
/// The table of types, mechanical ones first.
DDB_API std::span<kbcC_TypeRow const> kbcC_Types();

/// What sets boundary conditions apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API kbcC_StepRules : kprC_ProcedureRules {
  using State = kbcC_BCState;
  using Error = kbcC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kbcC_TypeRow;
  static std::span<TypeRow const> Types() { return kbcC_Types(); }

  /// How a status is classified; one without a row is refused.
  static constexpr kprC_StatusTable kStatuses = [] {
    constexpr unsigned carried = kprC_Known | kprC_Editable | kprC_Active | kprC_Propagated;
    constexpr unsigned changed = kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed | kprC_NoReset;
    kprC_StatusTable table = kprC_commonStatuses;
    table = kprC_WithStatus(table, Status::PropagatedFromBaseState, carried);
    table = kprC_WithStatus(table, Status::ModifiedFromBaseState, changed);
    table = kprC_WithStatus(table, Status::Inactive11, kprC_Known | kprC_Changed);  // off for this step only
    table = kprC_WithStatus(table, Status::BuiltIn, kprC_Known | kprC_BuiltIn);
    return table;
  }();

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
  static constexpr kprC_LoadCaseRefusals<Error> kLoadCase = {Error::LoadCaseNotActive, Error::LoadCaseType, Error::LoadCaseNotSupported};
  static constexpr bool kOnCopy = false;
  static constexpr bool kMoveInStepOrder = true;
  static constexpr auto kMoveTargets =
      MoveTargets(Error::MoveToPerturbation, Error::MoveToAnneal, Error::MoveToModalDynamics, Error::MoveToRandomResponse,
                  Error::MoveToResponseSpectrum, Error::MoveToSteadyStateModal);
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
    return kprC_ProcedureRules::Kind(procedureType);
  }
  static void Assert(bool condition, Error code) { kbcC_Assert(condition, code); }
};

/// What is constrained stays so: carried, a condition of most types stands in every perturbation procedure that solves for
/// its degrees of freedom and in the modal-based ones. Nothing is added for a creation.
inline constexpr kprC_ProcedureSet kbcC_kStaysConstrained =
    kbcC_StepRules::kModal | kprC_ProcedureSet{kprC_ProcedureType::Buckle, kprC_ProcedureType::Frequency,
                                               kprC_ProcedureType::StaticLinearPerturbation, kprC_ProcedureType::SteadyStateDirect,
                                               kprC_ProcedureType::SteadyStateSubspace};

/// Whether the table grants the type of that identity a step of \p procedureType (0: the initial step).
DDB_API bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType);
