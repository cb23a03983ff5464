#include "module/kin/kinC_Interaction.h"

template class kprC_StepAttribute<kinC_Rules>;
template class kprC_PropagatingContainer<kinC_Interaction>;

cow_String kinC_Interaction::InteractionProperty(cow_String const& step) const {
  Status(step);
  auto const* const state = static_cast<kinC_InteractionState const*>(StateAt(Steps().Find(step.View())));
  return state == nullptr ? cow_String() : state->InteractionProperty();
}

mdl_PropagationStatusEnm kinC_Interaction::CheckForNonPropagation(mdl_PropagationStatusEnm status) const {
  bool const carried = status == kinC_Rules::kPass.carried || status == kinC_Rules::kPass.notAdmitted;
  return carried && !Type().propagates ? kinC_Rules::kPass.notCarried : status;
}

bool kinC_Interaction::ValidByOwnRule(unsigned procedureType, bool carried) const {
  return Type().also.Contains(procedureType) || (carried && Type().alsoCarried.Contains(procedureType));
}

void kinC_Interaction::AssertMembers() const {
  std::size_t const create = States().CreateStep();
  if (create != kprC_StepTable::npos) { AssertCreateStep(create); }
}

void kinC_Interaction::AssertState(kinC_InteractionState const& state, std::size_t /*index*/) const { state.AssertValid(); }

void kinC_Interaction::AssertNoOwn(mdl_PropagationStatusEnm status, kinC_ErrorEnm code) const {
  States().ForEachOwn([&](std::size_t, kprC_History::Own const& own) { kinC_Assert(own.status != status, code); });
}

bool kinC_Interaction::IsInExplicitAnalysis() const {
  std::size_t const count = Steps().Size();
  for (std::size_t i = kFirstAnalysisStep; i < count; ++i) {
    if (!kprC_IsExplicit(Steps().ProcedureType(i))) { return false; }
  }
  return count > kFirstAnalysisStep;
}
