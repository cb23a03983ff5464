#pragma once

#include <span>

#include "module/kor/korC_OutputState.h"
#include "module/kpr/family/kprC_TypedAttribute.h"

/// The two kinds of requests: field, history. The procedures of a row are those in whose steps it writes anything.
DDB_API std::span<kprC_TypeRow const> korC_Types();

/// What sets output requests apart from the other families: statuses, procedures and refusals, as tables.
struct DDB_API korC_Rules : kprC_ProcedureRules {
  using State = korC_OutputState;
  using Error = korC_ErrorEnm;
  using Status = mdl_PropagationStatusEnm;
  using TypeRow = kprC_TypeRow;
  static std::span<TypeRow const> Types() { return korC_Types(); }

  /// A refused operation leaves the request as it was.
  static constexpr bool kOnCopy = true;

  /// How a status is classified; one that is not known is refused. There is no base state: nothing is built in.
  static constexpr kprC_StatusTable kStatuses = kprC_StatusesWith({{Status::Inactive6, kprC_NoReset}});

  /// What the propagator gives. A perturbation step writes what is created in it and nothing else; no step is modal-based.
  static constexpr kprC_PassTable kPass = {
      .notAdmitted = Status::Inactive7,
      .keptFromInitial = Status::Inactive7,
      .perturbation = Status::Inactive7,
      .perturbationChanged = Status::Inactive7,
      .perturbationOff = Status::Inactive7,
      .asksAdmissionInPerturbation = true,
  };

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::StepUnknown,
      .unknownStatus = Error::UnknownPropagationStatus,
      .replaceCreateStep = Error::ResetInCreateStep,
      .createNotAdmitted = Error::InvalidStep,
      .anneal = Error::InvalidStep,
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
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::InitialStep, Error::StepUnknown},
      {kprC_Ask::CreateStep, Error::ResetInCreateStep},
      {kprC_Ask::NoReset, Error::ResetNotDeactivated},
  });
  /// A move asks the steps between first, then the destination. What it may take is asked of the values that are moved.
  static constexpr auto kMove = std::to_array<kprC_Test>({
      {kprC_Ask::UnknownStep, Error::StepUnknown},
      {kprC_Ask::InitialStep, Error::StepUnknown},
      {kprC_Ask::IntoInitialStep, Error::StepUnknown},
      {kprC_Ask::SameStep},
      {kprC_Ask::Between, Error::MoveAcrossChange},
      {kprC_Ask::Destination, Error::MoveOntoChange},
      {kprC_Ask::EmptyBetween},
      {kprC_Ask::Inactive, Error::MoveInactive},
      {kprC_Ask::Propagated, Error::MoveNothing},
      {kprC_Ask::Perturbation, Error::MoveFromPerturbation},
      {kprC_Ask::Target},
      {kprC_Ask::OfType},
  });
  static constexpr auto kOperations = Operations(kDeactivate, kReset, kMove);
  static constexpr auto kMoveTargets = std::to_array<kprC_MoveTarget>({{kprC_perturbationProcedures, Error::MoveToPerturbation}});
  /// What the editing layers refuse.
  static constexpr kprC_EditRefusals<Error> kEdit = {
      .noSuchAttribute = Error::NoSuchRequest,
      .copyUnknown = Error::NothingToCopy,
      .noAttributes = Error::NoSuchRequest,
      .unknownStep = Error::StepUnknown,
      .suppressed = Error::Suppressed,
      .notInStep = Error::NotInStepOrInactive,
      .readOnlyInStep = Error::ReadOnly,
      .droppedInStep = Error::ReadOnly,
      .inInitialStep = Error::DefinedInInitialStep,
      .typeNotAdmitted = Error::InvalidForProcedure,
  };

  static void Assert(bool condition, Error code) { korC_Assert(condition, code); }
};
