#include "module/kbc/kbcC_BC.h"

template class kprC_StepAttribute<kbcC_Rules>;
template class kprC_PropagatingContainer<kbcC_BC>;

void kbcC_BC::AssertMembers() const { kbcC_Assert(!UsesField() || !fieldName_.IsEmpty(), kbcC_ErrorEnm::FieldNameMissing); }

void kbcC_BC::AssertState(kbcC_BCState const& state, std::size_t index) const {
  state.AssertValid();
  kbcC_Assert(!Steps().IsInitial(index) || !state.IsFixed(), kbcC_ErrorEnm::FixedInInitialStep);
  kprC_Constraint::AssertState(state, index);
}

bool kbcC_BC::ValidByOwnRule(unsigned procedureType, bool carried) const {
  return carried && Type().staysConstrained && kbcC_kStaysConstrained.Contains(procedureType);
}
