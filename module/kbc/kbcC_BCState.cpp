#include "module/kbc/kbcC_BCState.h"

#include "module/kbc/kbcC_StepRules.h"

kbcC_BCState::kbcC_BCState() = default;
kbcC_BCState::kbcC_BCState(cls_ReadVisitor const& in) : kbcC_BCState() { cls_ReadMembers(*this, in); }

bool kbcC_BCState::UseAmplitude(unsigned procedureType) const { return procedureType != 0 && !kbcC_kNoAmplitude.Contains(procedureType); }
bool kbcC_BCState::UseComplex(unsigned procedureType) const { return kbcC_kComplex.Contains(procedureType); }
bool kbcC_BCState::UseMagnitude(unsigned procedureType) const { return !kbcC_kNoMagnitude.Contains(procedureType); }

void kbcC_BCState::ChangeProcedureType(unsigned procedureType) {
  if (!UseAmplitude(procedureType)) { amplitude = mdl_Unset; }
}

void kbcC_BCState::RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const {
  if (text.refusal >= 0) { kbcC_Assert(false, static_cast<kbcC_ErrorEnm>(text.refusal)); }
  kprC_State::RefuseValue(name, text, expected);
}
