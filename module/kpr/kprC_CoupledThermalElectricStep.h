#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Electric potential and temperature solved together: currents heat the body, whose conductivity depends on temperature.
class DDB_API kprC_CoupledThermalElectricStep final : public kprC_ProcedureStep<kprC_CoupledThermalElectricStep> {
public:
  kprC_CoupledThermalElectricStep();
  explicit kprC_CoupledThermalElectricStep(cls_ReadVisitor const& in);
};
