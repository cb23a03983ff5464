#include "module/klo/kloC_SubmodelStressBased.h"

void kloC_SubmodelStressBasedState::AssertValid() const {
  kloC_Assert(globalStep.HasValue() && globalStep.ConstGet() >= 1, kloC_ErrorEnm::GlobalStepValue);
}
