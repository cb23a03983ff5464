#include "module/kpr/steps/kprC_StaticStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_StaticStep::kprC_StaticStep() { amplitude = AmplitudeEnm::RAMP; }
kprC_StaticStep::kprC_StaticStep(cls_ReadVisitor const& in) : kprC_StaticStep() { cls_ReadMembers(*this, in); }

void kprC_StaticStep::AssertValid() const {
  kprC_AssertStabilizationSolver(matrixSolver, *this);
  kprC_AssertIncrements(timePeriod, *this);
  kprC_AssertSolution(*this);
}
