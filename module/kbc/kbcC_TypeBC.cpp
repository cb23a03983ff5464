#include "module/kbc/kbcC_TypeBC.h"

#include <algorithm>

kbcC_TypeBCState::kbcC_TypeBCState() = default;
kbcC_TypeBCState::kbcC_TypeBCState(cls_ReadVisitor const& in) : kbcC_TypeBCState() { cls_ReadMembers(*this, in); }

kbcC_TypeBC::kbcC_TypeBC(TypeNameEnm kind) : kind_(kind) {}
kbcC_TypeBC::kbcC_TypeBC(cls_ReadVisitor const& in) : kbcC_TypeBC() { cls_ReadMembers(*this, in); }

std::unique_ptr<kbcC_BCState> kbcC_TypeBC::NewState() const {
  auto state = std::make_unique<kbcC_TypeBCState>();
  state->typeName = kind_;
  return state;
}

std::string kbcC_TypeBC::ConstructionName() const {
  std::size_t const index = States().CreateStep();
  TypeNameEnm kind = kind_;
  if (index != kprC_StepTable::npos) { kind = dynamic_cast<kbcC_TypeBCState const&>(*StateAt(index)).typeName.ConstGet(); }
  return std::string(std::ranges::find(kKinds, kind, &kbcC_TypeBCKind::kind)->constructorCmd.View());
}

bool kbcC_TypeBC::Insert(cow_String const& step, kbcC_BCState const& state) {
  std::size_t const index = States().Find(step.View());
  kbcC_Assert(index == kprC_StepTable::npos || !IsPropagated(StatusAt(index)), kbcC_ErrorEnm::TypedEditedInPropagatedStep);
  return kbcC_BC::Insert(step, state);
}

bool kbcC_TypeBC::ValidByOwnRule(unsigned procedureType, bool carried) const { return kbcC_StaysConstrained(procedureType, carried); }
