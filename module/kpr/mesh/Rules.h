#pragma once

#include <span>

#include "module/kpr/family/kprC_Constraint.h"
#include "module/kpr/mesh/kprC_AdptMeshConsState.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

enum class kprC_AdptMeshConsCategoryEnm { MECHANICAL = 0, OTHER = 1 };
template <> struct omu_EnumTable<kprC_AdptMeshConsCategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0}, {"OTHER", 1}, {nullptr, 0}};
};

/// A row of the table of types.
struct kprC_AdptMeshConsTypeRow : kprC_TypeRow {
  kprC_AdptMeshConsCategoryEnm category;
};
/// The table of types, in the order of the lists that users see.
DDB_API std::span<kprC_AdptMeshConsTypeRow const> kprC_AdptMeshConsTypes();

/// What sets adaptive mesh constraints apart from the other families: their refusals, which are those of steps. All else is as with
/// everything that constrains a region.
struct DDB_API kprC_AdptMeshConsRules : kprC_ConstraintRules {
  using State = kprC_AdptMeshConsState;
  using Error = kprC_ErrorEnm;
  using TypeRow = kprC_AdptMeshConsTypeRow;
  static std::span<TypeRow const> Types() { return kprC_AdptMeshConsTypes(); }

  static constexpr kprC_StepRefusals<Error> kRefusals = {
      .unknownStep = Error::AmcUnknownStepType,
      .unknownStatus = Error::AmcUnknownPropagationStatus,
      .replaceCreateStep = Error::AmcResetInCreateStep,
      .createNotAdmitted = Error::AmcInvalidStep,
      .anneal = Error::AmcAnnealStep,
      .setToPropagated = Error::AmcStateSetToPropagated,
  };
  static constexpr kprC_ConstraintRefusals<Error> kConstraint = {
      .stepOfOperation = Error::AmcUnknownStepType,
      .deactivateInactive = Error::AmcNotActiveInStep,
      .resetInCreateStep = Error::AmcResetInCreateStep,
      .resetNotDeactivated = Error::AmcResetNotDeactivated,
      .moveOntoChange = Error::AmcMoveOntoChange,
      .moveAcrossChange = Error::AmcMoveAcrossChange,
      .moveInactive = Error::AmcMoveInactive,
      .moveNothing = Error::AmcMoveNothing,
      .moveFromPerturbation = Error::AmcMoveFromPerturbation,
      .moveNotAdmitted = Error::AmcMoveToInvalidStep,
      .moveNonZeroToInitial = Error::AmcMoveNonZeroToInitialStep,
      .componentFreedInCreateStep = Error::AmcCreateStepComponent,
      .componentFreedOrUnset = Error::AmcComponentFreedOrUnset,
      .componentUnset = Error::AmcComponentUnset,
      .nonZeroInInitial = Error::AmcNonZeroInInitialStep,
  };
  static constexpr std::string_view kStatusFormat = "The adaptive mesh constraint is %1$s in step: %2$s.";
  static constexpr auto kDeactivate = Deactivation(kConstraint);
  static constexpr auto kReset = Reset(kConstraint);
  static constexpr auto kMove = Move(kConstraint);
  static constexpr auto kOperations = Operations(kDeactivate, kReset, kMove);
  static constexpr auto kMoveTargets = MoveTargets<Error>({
      .perturbation = Error::AmcMoveToPerturbation,
      .anneal = Error::AmcMoveToAnneal,
      .modalDynamics = Error::AmcMoveToModalDynamics,
      .randomResponse = Error::AmcMoveToRandomResponse,
      .responseSpectrum = Error::AmcMoveToResponseSpectrum,
      .steadyStateModal = Error::AmcMoveToSteadyStateModal,
  });
  /// What the editing layers refuse.
  static constexpr kprC_EditRefusals<Error> kEdit = {
      .noSuchAttribute = Error::AmcNotInStepOrInactive,
      .copyUnknown = {},
      .noSteps = {},
      .noAttributes = Error::AmcNone,
      .nameInUse = Error::AmcNameInUse,
      .unknownStep = Error::StepUnknown,
      .suppressed = Error::AmcSuppressed,
      .amplitudeName = Error::AmcAmplitudeName,
      .amplitudeUnknown = Error::AmcAmplitudeValue,
      .fieldUnknown = {},
      .notInStep = Error::AmcNotInStepOrInactive,
      .readOnlyInStep = Error::AmcNotInStepOrInactive,
      .inInitialStep = {},
  };

  static void Assert(bool condition, Error code) { kprC_Assert(condition, code); }
};
