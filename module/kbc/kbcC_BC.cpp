#include "module/kbc/kbcC_BC.h"

#include "module/kpr/procedures/kprC_Procedures.h"
#include "module/kpr/steps/kprC_Step.h"

template class kprC_StepAttribute<kbcC_Rules>;
template class kprC_PropagatingContainer<kbcC_BC>;

bool kbcC_BC::Insert(cow_String const& step, kbcC_BCState const& state) {
  std::size_t const index = States().Find(step.View());
  if (index != kprC_StepTable::npos || States().Size() == 0) { AssertComponentState(index, state.IsConditionModified(), false); }
  return kprC_StepAttribute::Insert(step, state);
}

void kbcC_BC::AssertComponentState(std::size_t index, bool freed, bool unset) const {
  if (!freed && !unset) { return; }
  bool const creation = index == kprC_StepTable::npos || StatusAt(index) == mdl_PropagationStatusEnm::Created;
  if (creation) { return kbcC_Assert(!freed, kbcC_ErrorEnm::CreateStepComponent); }
  bool const active = IsActive(StatusAt(index));
  kbcC_Assert(active || !(freed || unset), kbcC_ErrorEnm::ComponentFreedOrUnset);
  kbcC_Assert(!unset, kbcC_ErrorEnm::ComponentUnset);
}

void kbcC_BC::AssertMemberState(std::size_t index, std::string_view /*member*/, std::string_view word) const {
  AssertComponentState(index, word == "FREED", word == "UNSET");
}

kprC_Prescription kbcC_BC::Prescribes(cls_Object const& state) const {
  auto const& own = static_cast<kbcC_BCState const&>(state);
  constexpr std::uint32_t kOneValue = 1U << kbcC_oneValue;
  constexpr unsigned kMotion = 1;
  std::uint32_t const components = own.Components();
  if (components == 0) { return {}; }
  bool const bySubroutine = distribution_ == USER_DEFINED && components == kOneValue;  // which needs no value beside it
  return {components == kOneValue ? state.DynTypeId() : kMotion, bySubroutine ? components : own.ComponentsInForce()};
}

void kbcC_BC::AssertMembers() const { kbcC_Assert(!UsesField() || !fieldName_.IsEmpty(), kbcC_ErrorEnm::FieldNameMissing); }

void kbcC_BC::AssertState(kbcC_BCState const& state, std::size_t index) const {
  state.AssertValid();
  if (!Steps().IsInitial(index)) { return; }
  kbcC_Assert(!state.IsFixed(), kbcC_ErrorEnm::FixedInInitialStep);
  kbcC_Assert(!state.IsNonZero(), kbcC_ErrorEnm::NonZeroInInitialStep);
}

void kbcC_BC::AssertOperation(kprC_Effect effect, std::size_t from, std::size_t to) const {
  if (effect != kprC_Effect::Move) { return; }
  auto const* const state = static_cast<kbcC_BCState const*>(States().State(from));
  kbcC_Assert(!Steps().IsInitial(to) || state == nullptr || !state->IsNonZero(), kbcC_ErrorEnm::MoveNonZeroToInitialStep);
}

bool kbcC_BC::ValidByOwnRule(unsigned procedureType, bool carried) const {
  return carried && Type().staysConstrained && kbcC_kStaysConstrained.Contains(procedureType);
}
