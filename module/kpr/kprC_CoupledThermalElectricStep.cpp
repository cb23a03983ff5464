#include "module/kpr/kprC_CoupledThermalElectricStep.h"

kprC_CoupledThermalElectricStep::kprC_CoupledThermalElectricStep() = default;
kprC_CoupledThermalElectricStep::kprC_CoupledThermalElectricStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
