#include "module/klo/kloC_Load.h"

template class kprC_History<kloC_Rules>;
template struct cls_MemberTraits<kprC_History<kloC_Rules>>;
template class kprC_StepAttribute<kloC_Rules>;
template class kprC_PropagatingContainer<kloC_Load>;

bool kloC_Load::HasStep(cow_String const& step) const {
  std::size_t const index = States().Find(step.View());
  return index != kprC_StepTable::npos && States().State(index);
}

void kloC_Load::CheckStep(cow_String const& step) const {
  kloC_Assert(!suppress_ && HasStep(step) && IsActive(Status(step)), kloC_ErrorEnm::NotInStepOrInactive);
}

void kloC_Load::AssertValidAnyMagnitude() const {
  if (!suppress_) { AssertSteps(); }
}

void kloC_Load::AssertState(kloC_LoadState const& state, std::size_t index) const {
  kloC_Assert(!IsCreateStep(index) || state.IsUserDefined() || state.IsNonZero(), kloC_ErrorEnm::ZeroMagnitude);
  state.AssertValid();
  kloC_Assert(!state.UsesField() || !fieldName_.IsEmpty(), kloC_ErrorEnm::FieldNameMissing);
}

void kloC_Load::AssertInModel(ddr_Model const& model) const {
  ForEachEditable([&model](auto const& own) { own.state->AssertInSpace(model.Space()); });
}
