#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "platform/CaeUtils/mdl_PropagationStatus.h"

/// How a family classifies a status; 0 for one that it does not know.
enum kprC_StatusTrait : std::uint8_t {
  kprC_Known = 1,
  kprC_Active = 2,
  kprC_Propagated = 4,
  kprC_BuiltIn = 8,
  kprC_IllegalMove = 16,
  kprC_Changed = 32,
  kprC_NoReset = 64,
  kprC_Editable = 128,  ///< may be edited here, and the step has to admit the type of what is set here
};
using kprC_StatusTable = std::array<std::uint8_t, 16>;

/// A status and how it is classified.
struct kprC_StatusRow {
  mdl_PropagationStatusEnm status;
  unsigned traits;
};
/// The statuses of attributes that are created, changed, switched off and passed over; a family adds what it says of others, or
/// otherwise.
constexpr kprC_StatusTable kprC_StatusesWith(std::initializer_list<kprC_StatusRow> rows) {
  kprC_StatusTable statuses = {
      /*  0 NotYetCreated             */ kprC_Known | kprC_NoReset,
      /*  1 Created                   */ kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed,
      /*  2 Propagated                */ kprC_Known | kprC_Editable | kprC_Active | kprC_Propagated,
      /*  3 Modified                  */ kprC_Known | kprC_Editable | kprC_Active | kprC_IllegalMove | kprC_Changed | kprC_NoReset,
      /*  4 Deactivated               */ kprC_Known | kprC_IllegalMove | kprC_Changed,
      /*  5 InactiveAfterDeactivation */ kprC_Known | kprC_NoReset,
      /*  6 not admitted here         */ kprC_Known | kprC_NoReset,
      /*  7 not carried here          */ kprC_Known | kprC_NoReset,
      /*  8                           */ 0,
      /*  9                           */ 0,
      /* 10                           */ kprC_NoReset,
      /* 11                           */ 0,
      /* 12                           */ 0,
      /* 13                           */ kprC_NoReset,
      /* 14                           */ 0,
      /* 15                           */ 0,
  };
  for (kprC_StatusRow const& row : rows) {
    statuses[static_cast<std::size_t>(row.status)] = static_cast<kprC_StatusTable::value_type>(row.traits);
  }
  return statuses;
}

/// How the propagator takes a step.
enum class kprC_StepKind : std::uint8_t {
  General,
  Perturbation,  ///< starts from the base state and leaves it as it is
  Modal,         ///< works on the modes of an earlier frequency step: nothing can be edited
};

/// What a family's records become, where it says nothing else as those of an attribute that rests in the base state of a perturbation
/// step. Statuses are the family's own; what it does not know it never gives.
struct kprC_PassTable {
  using Status = mdl_PropagationStatusEnm;

  Status createdOff = Status::Deactivated;              ///< first own record, switched off
  Status carried = Status::Propagated;                  ///< general step, carried
  Status carriedFromInitial = Status::Propagated;       ///< the same while the base state is the untouched creation of the initial step
  Status changed = Status::Modified;                    ///< general step, own change
  Status changedFromInitial = Status::Modified;         ///< the same, the first change of what the initial step created
  Status off = Status::Deactivated;                     ///< general step, switched off
  Status afterOff = Status::InactiveAfterDeactivation;  ///< off since an earlier step
  Status notAdmitted = Status::Inactive6;               ///< passed over
  Status keptFromInitial =
      Status::Inactive6;  ///< the same of the untouched creation of the initial step, where it stays in force (kprC_Carrying)
  Status perturbation = Status::Status8;         ///< perturbation step, carried
  Status perturbationChanged = Status::Status8;  ///< perturbation step, own change
  Status perturbationOff = Status::Status8;      ///< switched off for one perturbation step
  Status held = Status::Inactive7;               ///< modal-based step
  Status notCarried = Status::Inactive7;         ///< made in a perturbation or modal-based step, later steps
  bool keepsPerturbationChange = false;          ///< false: an own change in a perturbation step is dropped, admitted or not
  bool asksAdmissionInPerturbation = false;      ///< false: a perturbation step carries what it does not admit
};

/// The same for a type that is in force in its own step alone: what would be carried or passed over is not carried.
constexpr kprC_PassTable kprC_NotPropagating(kprC_PassTable pass) {
  pass.carried = pass.carriedFromInitial = pass.notAdmitted = pass.keptFromInitial = pass.notCarried;
  return pass;
}
