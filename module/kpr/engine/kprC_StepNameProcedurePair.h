#pragma once

#include "module/kpr/Types.h"
#include "module/kpr/engine/kprC_Procedure.h"
#include "platform/BasicUtils/cow_String.h"

/// What is of one step: it has the members stepName and procedure, and wherever it is written the procedure goes by that name.
template <class Derived, class Base = cls_Object> class kprC_OfStep : public cls_Persistent<Derived, Base> {
public:
  void DBWrite(cls_WriteVisitor const& out) const override {
    if (!out.StartWrite(this->DynTypeId(), this->Uid())) { return; }
    Derived const& self = this->Self();
    for (cls_MemberRow const& row : this->MemberRows()) {
      if (row.name == kProcedure && self.procedure) {
        out.WriteReference(row.name, self.stepName.View(), *self.procedure);
      } else {
        row.Write(out, static_cast<void const*>(&self));
      }
    }
  }

protected:
  static constexpr std::string_view kStepName = "stepName", kProcedure = "procedure";

  void ReadFrom(cls_ReadVisitor const& in) {
    auto& self = static_cast<Derived&>(*this);
    for (cls_MemberRow const& row : this->MemberRows()) {
      if (row.name != kProcedure) {
        row.Read(in, static_cast<void*>(&self));
      } else if (!in.IsNull(row.name)) {
        self.procedure = in.ReadReference(row.name, self.stepName.View()).template As<kprC_Procedure>();
        if (!self.procedure) { in.Refuse(row.name, "an object of another class"); }
      }
    }
  }
};

/// One entry of the step sequence: a step's name and its procedure, which may be absent.
class DDB_API kprC_StepNameProcedurePair final : public kprC_OfStep<kprC_StepNameProcedurePair> {
public:
  kprC_StepNameProcedurePair() = default;
  kprC_StepNameProcedurePair(cow_String name, cow_Handle<kprC_Procedure> stepProcedure)
      : stepName(std::move(name)), procedure(std::move(stepProcedure)) {}
  explicit kprC_StepNameProcedurePair(cls_ReadVisitor const& in) { ReadFrom(in); }

  cow_String stepName;
  cow_Handle<kprC_Procedure> procedure;

  /// The procedure type that rules are asked with; 0 for the initial step.
  unsigned ProcedureType() const { return kprC_ProcedureTypeOf(procedure.ConstGet()); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(kStepName, &kprC_StepNameProcedurePair::stepName, cls_MemberText{"name of the step"});
    visit(kProcedure, &kprC_StepNameProcedurePair::procedure, cls_MemberText{"the step's procedure"});
  }
};
