#pragma once

#include <concepts>

#include "module/kpr/records/kprC_Checks.h"
#include "module/kpr/steps/kprC_StepGroups.h"

// What several step classes check, in the order in which each names it. Every function raises its first refusal.

/// Refuses: 74 a period that is not above 0.
void kprC_AssertPeriod(double timePeriod);

/// Refuses: 74 time period; 71 initial increment; 75 initial increment above the period; 5 number of increments; with
/// automatic increments alone their bounds: 72 smallest; 79 smallest above largest; 80 smallest above initial; 78 initial
/// above largest; 73 largest; 77 largest above the period.
void kprC_AssertIncrements(double timePeriod, kprC_Incrementation const& increments);

/// Refuses: 151 stabilization with the iterative solver.
void kprC_AssertStabilizationSolver(kprC_Step::MatrixSolverEnm solver, kprC_AdaptiveStabilization const& stabilization);
/// Refuses: 161 contact iterations without a direct solver; 236 with the quasi-Newton technique, where there is a technique.
void kprC_AssertContactIterations(kprC_Step::MatrixSolverEnm solver, kprC_ContactIterations const& contact,
                                  kprC_SolutionTechnique const* technique);
/// Refuses: 140 the quasi-Newton technique with an unsymmetric solver.
void kprC_AssertTechnique(kprC_Step::MatrixSolverEnm solver, kprC_SolutionTechnique const& technique);
/// Refuses: 249 a negative damping ratio; 250 damping factors continued without one.
void kprC_AssertAdaptiveDamping(kprC_AdaptiveStabilization const& stabilization);

/// Contact iterations, technique and adaptive damping, those of them that the class has.
template <class Step> void kprC_AssertSolution(Step const& step) {
  if constexpr (std::derived_from<Step, kprC_ContactIterations>) {
    kprC_SolutionTechnique const* technique = nullptr;
    if constexpr (std::derived_from<Step, kprC_SolutionTechnique>) { technique = &step; }
    kprC_AssertContactIterations(step.matrixSolver, step, technique);
  }
  if constexpr (std::derived_from<Step, kprC_SolutionTechnique>) { kprC_AssertTechnique(step.matrixSolver, step); }
  if constexpr (std::derived_from<Step, kprC_AdaptiveStabilization>) { kprC_AssertAdaptiveDamping(step); }
}

/// What every general step with increments checks first: the increments, 151 where it is stabilized, then its solution.
template <class Step> void kprC_AssertGeneral(Step const& step) {
  kprC_AssertIncrements(step.timePeriod, step);
  if constexpr (std::derived_from<Step, kprC_AdaptiveStabilization>) { kprC_AssertStabilizationSolver(step.matrixSolver, step); }
  kprC_AssertSolution(step);
}

/// Whether the increments follow a transient by a tolerance: then there must be one that fits.
template <class Step> bool kprC_IsControlled(Step const& step) {
  return step.IsAutomatic() && step.Response() != kprC_Step::ResponseEnm::STEADY_STATE;
}

/// Refuses, with increments that follow a transient: 8 a change of temperature, 11 a change of emissivity, 0 a rate of change
/// at the end that is given and not above 0.
void kprC_AssertThermal(kprC_ThermalControls const& controls);

/// Refuses: 74 time period; 12 factor on the increment; 13, 14 bulk viscosities; 6 the increment, with fixed increments, and
/// 73 the largest one with automatic ones; then what each mass scaling refuses.
void kprC_AssertExplicit(double timePeriod, kprC_ExplicitIntegration const& integration);

/// Refuses: 42 no range; then what each range refuses.
template <class Ranges> void kprC_AssertRanges(Ranges const& ranges) {
  kprC_Assert(!ranges.IsEmpty(), kprC_ErrorEnm::FrequencyRangeMissing);
  for (auto const& range : ranges) { range.AssertValid(); }
}
