#include "module/kpr/steps/kprC_Step.h"

#include "module/kpr/kprC_assert.h"

std::uint8_t kprC_Step::Traits() const {
  std::uint8_t traits = IsAdiabatic() ? kprC_StepFacts::Adiabatic : 0;
  if (Response() == ResponseEnm::STEADY_STATE) { traits |= kprC_StepFacts::SteadyState; }
  return traits;
}

void kprC_Step::RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const {
  if (text.refusal >= 0) { kprC_Assert(false, static_cast<kprC_ErrorEnm>(text.refusal)); }
  kprC_Procedure::RefuseValue(name, text, expected);
}
