#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Electric potential and temperature solved together: currents heat the body, whose conductivity depends on temperature.
class DDB_API kprC_CoupledThermalElectricStep final
    : public kprC_ProcedureStep<kprC_CoupledThermalElectricStep, kprC_Incrementation, kprC_SolutionTechnique, kprC_ThermalControls> {
public:
  kprC_CoupledThermalElectricStep();
  explicit kprC_CoupledThermalElectricStep(cls_ReadVisitor const& in);

  /// Refuses what every general step refuses (kprC_AssertGeneral); then, with automatic increments of a transient, 8 change of
  /// temperature, 11 change of emissivity, and 0 a rate of change at the end, which a step of no other kind has.
  void AssertValid() const override;
};
