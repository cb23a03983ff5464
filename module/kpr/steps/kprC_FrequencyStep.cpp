#include "module/kpr/steps/kprC_FrequencyStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_FrequencyStep::kprC_FrequencyStep() { vectors = 0; }
kprC_FrequencyStep::kprC_FrequencyStep(cls_ReadVisitor const& in) : kprC_FrequencyStep() { cls_ReadMembers(*this, in); }

void kprC_FrequencyStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  kprC_Assert(kprC_IsPositiveIfGiven(maxEigen), MaxEigenvalue);
  kprC_Assert(kprC_IsPositiveIfGiven(numEigen), NumEigenvalues);
  bool const isSymmetric = matrixSolver == MatrixSolverEnm::DIRECT_SYMMETRIC || matrixSolver == MatrixSolverEnm::SOLVER_DEFAULT;
  kprC_Assert(isSymmetric, SolverForProcedure);
  kprC_Assert(kprC_IsNotNegativeIfGiven(propertyEvaluationFrequency), PropertyFrequency);
  kprC_Assert(secondCutoffMultiplier > 1.0, SecondCutoff);
  kprC_Assert(substructureCutoffMultiplier >= firstCutoffMultiplier, FirstCutoffAboveSubstructure);
  kprC_Assert(firstCutoffMultiplier >= secondCutoffMultiplier, SecondCutoffAboveFirst);
  kprC_Assert(residualModeRegion.Size() == residualModeDof.Size(), ResidualModeCounts);
  for (std::size_t i = 0; i < residualModeRegion.Size(); ++i) {
    kprC_Assert(!residualModeRegion[i].IsEmpty(), ResidualModeRegionEmpty);
    kprC_Assert(residualModeDof[i] >= 1, kprC_ErrorEnm::ResidualModeDof);
  }
  switch (eigensolver) {
    case EigensolverEnm::LANCZOS: return AssertLanczos();
    case EigensolverEnm::SUBSPACE: return AssertSubspace();
    case EigensolverEnm::AMS: return AssertMultilevel();
  }
  kprC_Assert(false, EigensolverUnknown);
}

void kprC_FrequencyStep::AssertLanczos() const {
  using enum kprC_ErrorEnm;
  kprC_Assert(acousticCoupling != AcousticEnm::AC_PROJECTION, AcousticCoupling);
  kprC_Assert(kprC_IsGiven(maxEigen) || kprC_IsGiven(numEigen), MaxFrequencyForAll);
  kprC_Assert(kprC_IsPositiveIfGiven(blockSize), BlockSize);
  kprC_Assert(kprC_IsPositiveIfGiven(maxBlocks), MaxBlocks);
  kprC_Assert(numberInterval >= 1, NumIntervals);
  if (intervalBoundaries.IsEmpty()) { return; }
  kprC_Assert(intervalBias == 1.0, IntervalBiasWithBoundaries);
  kprC_Assert(intervalBoundaries.Size() + 1 == static_cast<std::size_t>(numberInterval), IntervalBoundaryCount);
  for (double const boundary : intervalBoundaries) { kprC_Assert(boundary > 0.0, IntervalBoundaries); }
}

void kprC_FrequencyStep::AssertSubspace() const {
  kprC_Assert(kprC_IsGiven(numEigen), kprC_ErrorEnm::AllWithSubspace);
  kprC_Assert(vectors >= 1, kprC_ErrorEnm::NumVectors);
  kprC_Assert(maxIterations >= 1, kprC_ErrorEnm::NumIterations);
}

void kprC_FrequencyStep::AssertMultilevel() const {
  using enum kprC_ErrorEnm;
  kprC_Assert(acousticCoupling != AcousticEnm::AC_ON, AcousticCoupling);
  kprC_Assert(acousticRangeFactor > 0.0, AcousticRange);
  kprC_Assert(normalization == NormalizationEnm::MASS, AmsNormalization);
  kprC_Assert(kprC_IsGiven(maxEigen), MaxFrequencyForAms);
  kprC_Assert(!residualModes || !residualModeRegion.IsEmpty(), AmsResidualModeRegion);
}
