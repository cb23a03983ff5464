#include "module/klo/kloC_SubmodelStressBased.h"

void kloC_SubmodelStressBasedState::AssertValid() const {
  kloC_Assert(globalStep.HasValue() && globalStep.ConstGet() >= 1, kloC_ErrorEnm::GlobalStepValue);
}

kloC_TypeRow const& kloC_SubmodelStressBased::Type() const {
  static constexpr kloC_TypeRow row = {
      {TypeId(), label(), {kprC_ProcedureType::Static, kprC_ProcedureType::StaticLinearPerturbation}},
      kloC_CategoryEnm::OTHER_LOAD,
      kprC_LoadCase::Accepted,
  };
  return row;
}
