#pragma once

#include <utility>

#include "framework/mdl_PropAttr.h"
#include "module/kpr/engine/kprC_StepNameProcedurePair.h"
#include "platform/BasicUtils/cls_Persistent.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"

/// One record of an attribute: its status and state in one step. Records are handed out by a history and are values:
/// state and procedure are shared handles, copies keep the identity.
template <class S> class kprC_PropagatingState final : public kprC_OfStep<kprC_PropagatingState<S>> {
public:
  using Status = omu_PrimEnum<mdl_PropagationStatusEnm, 1>;

  kprC_PropagatingState() = default;
  kprC_PropagatingState(kprC_StepNameProcedurePair const& step, mdl_PropagationStatusEnm inStep, cow_Handle<S> values)
      : stepName(step.stepName), status(inStep), state(std::move(values)), procedure(step.procedure) {}
  /// The same with the identity that the record has in its list.
  kprC_PropagatingState(kprC_StepNameProcedurePair const& step, mdl_PropagationStatusEnm inStep, cow_Handle<S> values, cls_Uid uid)
      : kprC_PropagatingState(step, inStep, std::move(values)) {
    this->uid_ = uid;
  }
  explicit kprC_PropagatingState(cls_ReadVisitor const& in) { this->ReadFrom(in); }

  cow_String stepName;
  Status status;
  cow_Handle<S> state;                   ///< null before the create step
  cow_Handle<kprC_Procedure> procedure;  ///< may be null

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(kprC_PropagatingState::kStepName, &kprC_PropagatingState::stepName, cls_MemberText{"name of the step"});
    visit("status", &kprC_PropagatingState::status, cls_MemberText{"the attribute's status in the step"});
    visit("state", &kprC_PropagatingState::state, cls_MemberText{"the attribute's values in the step"});
    visit(kprC_PropagatingState::kProcedure, &kprC_PropagatingState::procedure, cls_MemberText{"the step's procedure"});
  }
};
