#pragma once

#include <array>
#include <cstdint>

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

/// How the propagator takes a step.
enum class kprC_StepKind : std::uint8_t {
  General,
  Perturbation,  ///< starts from the base state and leaves it as it is
  Modal,         ///< works on the modes of an earlier frequency step: nothing can be edited
};

/// What a family's records become. Statuses are the family's own; what it does not know it never gives.
struct kprC_PassTable {
  using Status = mdl_PropagationStatusEnm;

  Status createdOff;                 ///< first own record, switched off
  Status carried;                    ///< general step, carried
  Status carriedFromInitial;         ///< the same while the base state is the untouched creation of the initial step
  Status changed;                    ///< general step, own change
  Status changedFromInitial;         ///< the same, the first change of what the initial step created
  Status off;                        ///< general step, switched off
  Status afterOff;                   ///< off since an earlier step
  Status notAdmitted;                ///< passed over
  Status keptFromInitial;            ///< the same of the untouched creation of the initial step, where it stays in force (kprC_Carrying)
  Status perturbation;               ///< perturbation step, carried
  Status perturbationChanged;        ///< perturbation step, own change
  Status perturbationOff;            ///< switched off for one perturbation step
  Status held;                       ///< modal-based step
  Status notCarried;                 ///< made in a perturbation or modal-based step, later steps
  bool keepsPerturbationChange;      ///< false: an own change in a perturbation step is dropped, admitted or not
  bool asksAdmissionInPerturbation;  ///< false: a perturbation step carries what it does not admit
};

/// The same for a type that is in force in its own step alone: what would be carried or passed over is not carried.
constexpr kprC_PassTable kprC_NotPropagating(kprC_PassTable pass) {
  pass.carried = pass.carriedFromInitial = pass.notAdmitted = pass.keptFromInitial = pass.notCarried;
  return pass;
}
