#include "module/klo/kloC_FluxLoads.h"

void kloC_ConcentratedHeatFluxState::AssertValid() const {
  constexpr int kFirstDof = 11, kLastDof = 31;
  bool const within = dof.ConstGet() >= kFirstDof && dof.ConstGet() <= kLastDof;
  kloC_Assert(!dof.HasValue() || within, kloC_ErrorEnm::DofOutOfRange);
}
