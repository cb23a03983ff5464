#include "module/kpr/steps/kprC_HeatTransferStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_HeatTransferStep::kprC_HeatTransferStep() = default;
kprC_HeatTransferStep::kprC_HeatTransferStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_HeatTransferStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_AssertGeneral(*this);
  if (kprC_IsControlled(*this)) {
    kprC_Assert(kprC_IsGiven(deltmx), TemperatureDifference);
    kprC_AssertThermal(*this);
  }
  bool const isTransient = Response() == ResponseEnm::TRANSIENT;
  kprC_Assert(!isTransient || matrixSolver != MatrixSolverEnm::DDM_ITERATIVE, IterativeSolverTransientHeat);
}
