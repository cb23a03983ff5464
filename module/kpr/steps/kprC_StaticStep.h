#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Static equilibrium under loads that are applied in increments, with or without large displacements. The increments
/// must be given before the step is valid.
class DDB_API kprC_StaticStep : public kprC_ProcedureStep<kprC_StaticStep, kprC_Incrementation, kprC_QuasiNewton, kprC_ContactIterations,
                                                          kprC_Stabilization, kprC_StaticControls> {
public:
  using StabilizationEnm = kprC_StabilizationEnm;

  kprC_StaticStep();
  explicit kprC_StaticStep(cls_ReadVisitor const& in);

  virtual StabilizationEnm StabilizationMethod() const { return stabilizationMethod; }
  virtual double StabilizationMagnitude() const { return stabilizationMagnitude; }

  /// Refuses, in this order: 151 stabilization with the iterative solver; 74 time period, 71 initial increment; 75
  /// initial increment above the period; 5 number of increments; with automatic increments alone 72, 79, 80, 78, 73, 77
  /// their bounds; contact iterations 161 without a direct solver, 236 with another solution technique; 140 quasi-Newton
  /// with an unsymmetric solver; 249 adaptive damping ratio; 250 damping factors continued without one.
  void AssertValid() const override;
};
