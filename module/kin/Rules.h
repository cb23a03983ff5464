#pragma once

#include <span>
#include <string_view>

#include "module/kin/kinC_InteractionState.h"
#include "module/kpr/family/kprC_TypedAttribute.h"

/// A row of the table of types. The type's own rule admits it, beside what its row grants, in further procedures.
struct kinC_TypeRow : kprC_TypeRow {
  kprC_ProcedureSet also = {};         ///< always
  kprC_ProcedureSet alsoCarried = {};  ///< and in these where it is carried into the step
};
/// The table of types, in the order in which users see them.
DDB_API std::span<kinC_TypeRow const> kinC_Types();
/// The label of the type of that identity; empty where it has none.
DDB_API std::string_view kinC_TypeText(unsigned typeId);

/// What sets interactions apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API kinC_Rules : kprC_ProcedureRules {
  using State = kinC_InteractionState;
  using Error = kinC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kinC_TypeRow;
  static std::span<TypeRow const> Types() { return kinC_Types(); }

  /// A refused operation leaves the interaction as it was.
  static constexpr bool kOnCopy = true;

  /// How a status is classified; one that is not known is refused.
  static constexpr kprC_StatusTable kStatuses = kprC_StatusesWith({{Status::Status8, kprC_Known | kprC_Active | kprC_BuiltIn}});

  /// What the propagator gives. No step is modal-based.
  static constexpr kprC_PassTable kPass = {.asksAdmissionInPerturbation = true};

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::StepNotFound,
      .unknownStatus = Error::UnknownPropagationStatus,
      .replaceCreateStep = Error::ResetInCreateStep,
      .createNotAdmitted = Error::ProcedureNotAdmitted,
      .anneal = Error::ProcedureNotAdmitted,
      .setToPropagated = {},
      .lookUpByKey = true,
  };

  // what each operation asks, in this order
  static constexpr auto kDeactivate = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepNotFound},
      {kprC_Ask::NoState},
      {kprC_Ask::Perturbation, Error::DeactivateInPerturbation},
      {kprC_Ask::PassedOver, Error::CannotBeDeactivated},
      {kprC_Ask::SwitchedOff},
      {kprC_Ask::NotEditable, Error::CannotBeDeactivated},
  });
  static constexpr auto kReset = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepNotFound},
      {kprC_Ask::CreateStep, Error::ResetInCreateStep},
      {kprC_Ask::NoReset, Error::ResetNotDeactivated},
  });
  /// A move leaves the steps between alone and replaces what it meets at the destination.
  static constexpr auto kMove = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepNotFound},
      {kprC_Ask::SameStep},
      {kprC_Ask::Inactive, Error::MoveInactive},
      {kprC_Ask::Propagated, Error::MovePropagated},
      {kprC_Ask::Target},
      {kprC_Ask::NotAdmittedLater, Error::MoveNotAdmitted},
      {kprC_Ask::BuiltIn},
  });
  static constexpr auto kOperations = Operations(kDeactivate, kReset, kMove);
  static constexpr auto kMoveTargets = std::to_array<kprC_MoveTarget>({{kprC_perturbationProcedures, Error::MoveToPerturbation}});
  /// What the editing layers refuse.
  static constexpr kprC_EditRefusals<Error> kEdit = {
      .copyUnknown = Error::CopyUnknown,
      .unknownStep = Error::StepNotFound,
      .suppressed = Error::Suppressed,
      .amplitudeName = Error::AmplitudeName,
      .amplitudeUnknown = Error::AmplitudeName,
      .notInStep = Error::NotActiveInStep,
      .readOnlyInStep = Error::DefinedInPerturbationStep,
      .inPerturbation = Error::DefinedInPerturbationStep,
      .typeNotAdmitted = Error::InvalidForStepType,
      .propertyUnknown = Error::PropertyUnknown,
  };

  static void Assert(bool condition, Error code) { kinC_Assert(condition, code); }
};

/// The names of the types that a step of \p procedureType admits; the flags count in the initial step (0).
DDB_API cow_List<cow_String> kinC_ValidInteractions(unsigned procedureType, bool initialRelaxed, bool explicitOnly);
/// Whether the type of that identity is in that list.
DDB_API bool kinC_isValidInteractionTypeforStep(unsigned typeId, unsigned procedureType, bool initialRelaxed, bool explicitOnly);
