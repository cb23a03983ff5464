#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Temperatures without deformation, steady or in time.
class DDB_API kprC_HeatTransferStep final
    : public kprC_ProcedureStep<kprC_HeatTransferStep, kprC_Incrementation, kprC_QuasiNewton, kprC_ThermalControls> {
public:
  kprC_HeatTransferStep();
  explicit kprC_HeatTransferStep(cls_ReadVisitor const& in);

  /// Refuses what every general step refuses (kprC_AssertGeneral); then, with automatic increments of a transient, 8 a change of
  /// temperature that is not given or not above 0, 11 change of emissivity, and 0 a rate of change at the end; 152 a transient with
  /// the iterative solver.
  void AssertValid() const override;
};
