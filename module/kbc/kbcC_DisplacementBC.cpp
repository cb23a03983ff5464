#include "module/kbc/kbcC_DisplacementBC.h"

kbcC_DisplacementBCState::kbcC_DisplacementBCState() = default;
kbcC_DisplacementBCState::kbcC_DisplacementBCState(cls_ReadVisitor const& in) : kbcC_DisplacementBCState() { cls_ReadMembers(*this, in); }

bool kbcC_DisplacementBCState::IsNonZero() const {
  return AnyComponent([](mdl_PropAttr<double> const& u) { return u.HasValue() && u.ConstGet() != 0.0; });
}
bool kbcC_DisplacementBCState::SetsNonZero() const {
  return AnyComponent([](mdl_PropAttr<double> const& u) { return u == mdl_Set && u.ConstGet() != 0.0; });
}

kbcC_DisplacementBC::kbcC_DisplacementBC() = default;
kbcC_DisplacementBC::kbcC_DisplacementBC(cls_ReadVisitor const& in) : kbcC_DisplacementBC() { cls_ReadMembers(*this, in); }

std::unique_ptr<kbcC_BCState> kbcC_DisplacementBC::NewState() const { return std::make_unique<kbcC_DisplacementBCState>(); }

bool kbcC_DisplacementBC::ValidByOwnRule(unsigned procedureType, bool carried) const {
  return kbcC_StaysConstrained(procedureType, carried);
}

void kbcC_DisplacementBC::AssertState(kbcC_BCState const& state, bool initial) const {
  auto const& own = dynamic_cast<kbcC_DisplacementBCState const&>(state);
  bool const fixed = own.fixed == true;
  kbcC_Assert(!fixed || !own.SetsNonZero(), kbcC_ErrorEnm::PrescribedWhileFixed);
  kbcC_Assert(!initial || !fixed, kbcC_ErrorEnm::FixedInInitialStep);
  kbcC_Assert(!initial || !own.IsNonZero(), kbcC_ErrorEnm::NonZeroInInitialStep);
}

void kbcC_DisplacementBC::AssertMove(std::size_t from, std::size_t to) const {
  auto const* state = dynamic_cast<kbcC_DisplacementBCState const*>(StateAt(from));
  bool const intoInitial = Steps()[to].procedure && Steps().ProcedureType(to) == 0;
  kbcC_Assert(!intoInitial || state == nullptr || !state->IsNonZero(), kbcC_ErrorEnm::MoveNonZeroToInitialStep);
}
