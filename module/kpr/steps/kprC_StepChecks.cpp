#include "module/kpr/steps/kprC_StepChecks.h"

#include <algorithm>
#include <utility>
#include <vector>

using enum kprC_ErrorEnm;
using MatrixSolver = kprC_Step::MatrixSolverEnm;

namespace {

bool IsQuasiNewton(kprC_SolutionTechnique const& technique) {
  return technique.solutionTechnique == kprC_Step::SolutionTechniqueEnm::QUASI_NEWTON;
}

/// What the two forms of a kind of damping refuse; whether only one of them is used, or none.
template <class ByModes, class ByFrequency> bool AssertForms(ByModes const& byModes, ByFrequency const& byFrequency) {
  byModes.AssertValid();
  byFrequency.AssertValid();
  return byModes.IsEmpty() || byFrequency.IsEmpty();
}

bool IsAnyModeTwice(kprC_CompositeDamping const& damping) {
  std::vector<std::pair<int, int>> ranges;
  for (kprC_CompositeDampingComponent const& component : damping.components) { ranges.emplace_back(component.start, component.end); }
  std::ranges::sort(ranges);
  return std::ranges::adjacent_find(ranges, [](auto const& a, auto const& b) { return b.first <= a.second; }) != ranges.end();
}

}  // namespace

void kprC_AssertPeriod(double timePeriod) { kprC_Assert(kprC_IsPositive(timePeriod), TimePeriod); }

void kprC_AssertIncrements(double timePeriod, kprC_Incrementation const& increments) {
  double const initialInc = increments.initialInc, minInc = increments.minInc, maxInc = increments.maxInc;
  kprC_AssertPeriod(timePeriod);
  kprC_Assert(kprC_IsPositive(initialInc), InitialIncrement);
  kprC_Assert(timePeriod >= initialInc, InitialAbovePeriod);
  kprC_Assert(increments.maxNumInc >= 1, NumIncrements);
  if (!increments.IsAutomatic()) { return; }
  kprC_Assert(kprC_IsPositive(minInc), MinIncrement);
  kprC_Assert(maxInc >= minInc, MinAboveMax);
  kprC_Assert(initialInc >= minInc, MinAboveInitial);
  kprC_Assert(maxInc >= initialInc, InitialAboveMax);
  kprC_Assert(maxInc > 0.0, MaxIncrement);
  kprC_Assert(timePeriod >= maxInc, MaxAbovePeriod);
}

void kprC_AssertStabilizationSolver(MatrixSolver solver, kprC_AdaptiveStabilization const& stabilization) {
  bool const isStabilized = stabilization.stabilizationMethod != kprC_StabilizationEnm::NONE;
  kprC_Assert(!isStabilized || solver != MatrixSolver::DDM_ITERATIVE, IterativeSolverWithStabilization);
}

void kprC_AssertContactIterations(MatrixSolver solver, kprC_ContactIterations const& contact, kprC_SolutionTechnique const* technique) {
  if (!contact.applyContactIterations) { return; }
  bool const isDirect =
      solver == MatrixSolver::DIRECT_SYMMETRIC || solver == MatrixSolver::DIRECT_UNSYMMETRIC || solver == MatrixSolver::SOLVER_DEFAULT;
  kprC_Assert(isDirect, ContactIterationsSolver);
  kprC_Assert(technique == nullptr || !IsQuasiNewton(*technique), SolutionTechniquesMixed);
}

void kprC_AssertTechnique(MatrixSolver solver, kprC_SolutionTechnique const& technique) {
  kprC_Assert(!IsQuasiNewton(technique) || solver != MatrixSolver::DIRECT_UNSYMMETRIC, SolverForProcedure);
}

void kprC_AssertAdaptiveDamping(kprC_AdaptiveStabilization const& stabilization) {
  kprC_Assert(kprC_IsNotNegativeIfGiven(stabilization.adaptiveDampingRatio), AdaptiveDamping);
  kprC_Assert(!stabilization.continueDampingFactors || kprC_IsGiven(stabilization.adaptiveDampingRatio), AdaptiveDampingRequired);
}

void kprC_AssertThermal(kprC_ThermalControls const& controls) {
  kprC_Assert(kprC_IsPositiveIfGiven(controls.deltmx), TemperatureDifference);
  kprC_Assert(kprC_IsPositiveIfGiven(controls.mxdem), EmissivityChange);
  kprC_Assert(kprC_IsPositiveIfGiven(controls.end), ChangeRate);
}

void kprC_AssertExplicit(double timePeriod, kprC_ExplicitIntegration const& integration) {
  kprC_AssertPeriod(timePeriod);
  kprC_Assert(kprC_IsPositiveIfGiven(integration.scaleFactor), IncrementScaleFactor);
  kprC_Assert(kprC_IsNotNegativeIfGiven(integration.linearBulkViscosity), LinearBulkViscosity);
  kprC_Assert(kprC_IsNotNegativeIfGiven(integration.quadBulkViscosity), QuadraticBulkViscosity);
  if (integration.timeIncrementationMethod == kprC_Step::TimeIncrementationMethodEnm::FIXED) {
    kprC_Assert(kprC_IsPositive(integration.userDefinedInc), FixedIncrementSize);
  } else {
    kprC_Assert(kprC_IsPositiveIfGiven(integration.maxIncrement), MaxIncrement);
  }
  for (kprC_MassScaling const& scaling : integration.massScaling) { scaling.AssertValid(); }
}

void kprC_ModalDamping::AssertDamping() const {
  bool const isDirectMixed = !AssertForms(directDamping, directDampingByFrequency);
  bool const isRayleighMixed = !AssertForms(rayleighDamping, rayleighDampingByFrequency);
  compositeDamping.AssertValid();
  kprC_Assert(!IsAnyModeTwice(compositeDamping), CompositeDamping);
  kprC_Assert(!isDirectMixed && !isRayleighMixed, DampingModesAndFrequencies);
}

void kprC_HarmonicDamping::AssertDamping() const {
  kprC_ModalDamping::AssertDamping();
  kprC_Assert(AssertForms(structuralDamping, structuralDampingByFrequency), DampingModesAndFrequencies);
}
