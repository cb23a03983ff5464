#include "module/kbc/kbcC_SubmodelBC.h"

void kbcC_SubmodelBCState::AssertValid() const {
  auto const isGreaterThanZero = [](mdl_PropAttr<double> const& tolerance) { return !tolerance.HasValue() || tolerance.ConstGet() > 0.0; };
  kbcC_Assert(globalStep.HasValue() && globalStep.ConstGet() >= 1, kbcC_ErrorEnm::GlobalStepValue);
  kbcC_Assert(isGreaterThanZero(exteriorTolerance) && isGreaterThanZero(absoluteExteriorTolerance), kbcC_ErrorEnm::ComponentValue);
}
