#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Equilibrium of a soil or rock mass with its stresses in place, before anything is built or dug.
class DDB_API kprC_GeostaticStep final : public kprC_ProcedureStep<kprC_GeostaticStep, kprC_QuasiNewton, kprC_ContactIterations> {
public:
  kprC_GeostaticStep();
  explicit kprC_GeostaticStep(cls_ReadVisitor const& in);

  /// Refuses: 161 contact iterations without a direct solver, 236 with the quasi-Newton technique; 140 that technique with an
  /// unsymmetric solver, as every other step that has a technique does.
  void AssertValid() const override;
};
