#pragma once

#include <utility>

#include "module/kpr/engine/kprC_State.h"
#include "module/kpr/engine/kprC_StepNameProcedurePair.h"
#include "platform/BasicUtils/cls_Persistent.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"

/// A record as the engine sees it, whatever the family's states.
class DDB_API kprC_Record : public cls_Object {
public:
  virtual mdl_PropagationStatusEnm StatusNow() const = 0;
  virtual cow_Handle<kprC_State> StateNow() const = 0;
  /// Takes what the record of \p step says; null where it holds no state.
  virtual void Take(kprC_StepNameProcedurePair const& step, mdl_PropagationStatusEnm inStep, cow_Handle<kprC_State> const& values,
                    cls_Uid uid) = 0;

  cls_Uid Uid() const override { return inList_.IsNull() ? cls_Object::Uid() : inList_; }
  void NewUid() override {
    inList_ = {};
    cls_Object::NewUid();
  }

protected:
  cls_Uid inList_;  // the identity that it has in its attribute's list; null for one of its own
};

/// One record of an attribute: its status and state in one step. Records are values: state and procedure are shared handles,
/// copies keep the identity.
template <class S> class kprC_PropagatingState final : public kprC_OfStep<kprC_PropagatingState<S>, kprC_Record> {
public:
  using Status = omu_PrimEnum<mdl_PropagationStatusEnm, 1>;

  kprC_PropagatingState() = default;
  kprC_PropagatingState(kprC_StepNameProcedurePair const& step, mdl_PropagationStatusEnm inStep, cow_Handle<S> values)
      : stepName(step.stepName), status(inStep), state(std::move(values)), procedure(step.procedure) {}
  /// The same with the identity that the record has in its list.
  kprC_PropagatingState(kprC_StepNameProcedurePair const& step, mdl_PropagationStatusEnm inStep, cow_Handle<S> values, cls_Uid uid)
      : kprC_PropagatingState(step, inStep, std::move(values)) {
    this->inList_ = uid;
  }
  explicit kprC_PropagatingState(cls_ReadVisitor const& in) { this->ReadFrom(in); }

  cow_String stepName;
  Status status;
  cow_Handle<S> state;                   ///< null before the create step
  cow_Handle<kprC_Procedure> procedure;  ///< may be null

  mdl_PropagationStatusEnm StatusNow() const override { return status; }
  cow_Handle<kprC_State> StateNow() const override { return state; }
  void Take(kprC_StepNameProcedurePair const& step, mdl_PropagationStatusEnm inStep, cow_Handle<kprC_State> const& values,
            cls_Uid uid) override {
    *this = kprC_PropagatingState(step, inStep, Typed(values), uid);
  }
  /// \p values, which are of the family.
  static cow_Handle<S> Typed(cow_Handle<kprC_State> const& values) { return values ? values.template As<S>() : cow_Handle<S>(); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(kprC_PropagatingState::kStepName, &kprC_PropagatingState::stepName, cls_MemberText{"name of the step"});
    visit("status", &kprC_PropagatingState::status, cls_MemberText{"the attribute's status in the step"});
    visit("state", &kprC_PropagatingState::state, cls_MemberText{"the attribute's values in the step"});
    visit(kprC_PropagatingState::kProcedure, &kprC_PropagatingState::procedure, cls_MemberText{"the step's procedure"});
  }
};
