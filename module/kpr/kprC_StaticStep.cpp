#include "module/kpr/kprC_StaticStep.h"

#include "module/kpr/kprC_assert.h"

kprC_StaticStep::kprC_StaticStep() = default;
kprC_StaticStep::kprC_StaticStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

// A bound is written as what must hold, so that a value that is no number is refused too.
void kprC_StaticStep::AssertValid() const {
  using enum MatrixSolverEnm;
  using enum kprC_ErrorEnm;
  MatrixSolverEnm const solver = matrixSolver;

  if (stabilizationMethod != StabilizationEnm::NONE) { kprC_Assert(solver != DDM_ITERATIVE, IterativeSolverWithStabilization); }
  kprC_Assert(timePeriod > 0.0, kprC_ErrorEnm::TimePeriod);
  kprC_Assert(initialInc > 0.0, InitialIncrement);
  kprC_Assert(timePeriod >= initialInc, InitialAbovePeriod);
  kprC_Assert(maxNumInc >= 1, NumIncrements);
  if (timeIncrementationMethod == TimeIncrementationMethodEnm::AUTOMATIC) {
    kprC_Assert(minInc > 0.0, MinIncrement);
    kprC_Assert(maxInc >= minInc, MinAboveMax);
    kprC_Assert(initialInc >= minInc, MinAboveInitial);
    kprC_Assert(maxInc >= initialInc, InitialAboveMax);
    kprC_Assert(maxInc > 0.0, MaxIncrement);
    kprC_Assert(timePeriod >= maxInc, MaxAbovePeriod);
  }
  bool const quasiNewton = solutionTechnique == SolutionTechniqueEnm::QUASI_NEWTON;
  if (applyContactIterations) {
    kprC_Assert(solver == DIRECT_SYMMETRIC || solver == DIRECT_UNSYMMETRIC || solver == SOLVER_DEFAULT, ContactIterationsSolver);
    kprC_Assert(!quasiNewton, SolutionTechniquesMixed);
  }
  if (quasiNewton) { kprC_Assert(solver != DIRECT_UNSYMMETRIC, SolverForProcedure); }
  kprC_Assert(adaptiveDampingRatio >= 0.0, AdaptiveDamping);
  if (continueDampingFactors) { kprC_Assert(adaptiveDampingRatio != cls_unsetReal, AdaptiveDampingRequired); }
}
