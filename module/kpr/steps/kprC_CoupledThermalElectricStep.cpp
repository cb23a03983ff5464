#include "module/kpr/steps/kprC_CoupledThermalElectricStep.h"

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_CoupledThermalElectricStep::kprC_CoupledThermalElectricStep() = default;
kprC_CoupledThermalElectricStep::kprC_CoupledThermalElectricStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_CoupledThermalElectricStep::AssertValid() const {
  kprC_AssertGeneral(*this);
  if (kprC_IsControlled(*this)) { kprC_AssertThermal(*this); }
}
