#pragma once

#include "module/kpr/engine/kprC_Procedure.h"
#include "platform/BasicUtils/cls_Persistent.h"
#include "platform/BasicUtils/cow_String.h"

class kprC_StepNameProcedurePair;
template <> struct cls_TypeIdOf<kprC_StepNameProcedurePair> {
  static constexpr unsigned value = 0x023C0002;
  static constexpr char const* kName = "kprC_StepNameProcedurePair";
};

/// One entry of the step sequence: a step's name and its procedure, which may be absent.
class DDB_API kprC_StepNameProcedurePair final : public cls_Persistent<kprC_StepNameProcedurePair, cls_Object> {
public:
  kprC_StepNameProcedurePair() = default;
  kprC_StepNameProcedurePair(cow_String name, cow_Handle<kprC_Procedure> stepProcedure)
      : stepName(std::move(name)), procedure(std::move(stepProcedure)) {}
  explicit kprC_StepNameProcedurePair(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  cow_String stepName;
  cow_Handle<kprC_Procedure> procedure;

  /// The procedure type that rules are asked with; 0 for the initial step.
  unsigned ProcedureType() const { return kprC_ProcedureTypeOf(procedure.ConstGet()); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("stepName", &kprC_StepNameProcedurePair::stepName, cls_MemberText{"name of the step"});
    visit("procedure", &kprC_StepNameProcedurePair::procedure, cls_MemberText{"the step's procedure"});
  }
};
