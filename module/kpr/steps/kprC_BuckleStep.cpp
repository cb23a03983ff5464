#include "module/kpr/steps/kprC_BuckleStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_BuckleStep::kprC_BuckleStep() = default;
kprC_BuckleStep::kprC_BuckleStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_BuckleStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_Assert(kprC_IsPositiveIfGiven(numEigen), NumEigenvalues);
  kprC_Assert(kprC_IsPositiveIfGiven(maxEigen), MaxEigenvalue);
  kprC_Assert(kprC_IsPositiveIfGiven(vectors), NumVectors);
  kprC_Assert(kprC_IsPositiveIfGiven(maxIterations), NumIterations);
  kprC_Assert(kprC_IsPositiveIfGiven(blockSize), BlockSize);
  kprC_Assert(kprC_IsPositiveIfGiven(maxBlocks), MaxBlocks);
  kprC_Assert(kprC_IsPositiveIfGiven(minEigen), MinEigenvalue);
  kprC_Assert(eigensolver != EigensolverEnm::AMS, EigensolverUnknown);
}
