#include "module/klo/kloC_FluxLoads.h"

void kloC_ConcentratedHeatFluxState::AssertValid() const {
  kloC_Assert(!dof.HasValue() || kprC_IsTemperature(dof.ConstGet()), kloC_ErrorEnm::DofOutOfRange);
}
