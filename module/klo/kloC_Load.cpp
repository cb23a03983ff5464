#include "module/klo/kloC_Load.h"

template class kprC_StepAttribute<kloC_Rules>;
template class kprC_PropagatingContainer<kloC_Load>;

void kloC_Load::AssertValidAnyMagnitude() const {
  if (!suppress_) { AssertSteps(); }
}

void kloC_Load::AssertState(kloC_LoadState const& state, std::size_t index) const {
  kloC_Assert(!States().IsCreateStep(index) || state.IsUserDefined() || state.IsNonZero(), kloC_ErrorEnm::ZeroMagnitude);
  state.AssertValid();
  kloC_Assert(!state.UsesField() || !fieldName_.IsEmpty(), kloC_ErrorEnm::FieldNameMissing);
}

void kloC_Load::AssertMemberState(std::size_t index, std::string_view member, std::string_view word) const {
  bool const isCreation = index == kprC_StepTable::npos || States().IsCreateStep(index);
  kloC_Assert(isCreation || member != kloC_LoadState::amplitudeCmd() || word != "UNSET", kloC_ErrorEnm::AmplitudeName);
}

void kloC_Load::AssertInModel(ddr_Model const& model) const {
  ForEachEditable([&model](kloC_LoadState const& state) { state.AssertInSpace(model.Space()); });
}
