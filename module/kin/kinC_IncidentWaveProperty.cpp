#include "module/kin/kinC_IncidentWaveProperty.h"

#include <algorithm>

#include "module/kin/kinC_Checks.h"

using enum kinC_ErrorEnm;

kinC_UndexCharge::kinC_UndexCharge() = default;
kinC_UndexCharge::kinC_UndexCharge(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
kinC_IncidentWaveProperty::kinC_IncidentWaveProperty() = default;
kinC_IncidentWaveProperty::kinC_IncidentWaveProperty(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

bool kinC_UndexCharge::IsComplete() const {
  return std::ranges::none_of(Values(), [](double value) { return value == cls_unsetReal; });
}
bool kinC_UndexCharge::IsPositive() const {
  return std::ranges::all_of(Values(), [](double value) { return value > 0.0; });
}

void kinC_IncidentWaveProperty::AssertValid() const {
  bool const needsCharge = propagationModel == PropagationModelEnm::UNDEX_CHARGE;
  kinC_Assert(!needsCharge || (undexCharge && undexCharge->IsComplete()), ChargeDataIncomplete);
  kinC_Assert(!undexCharge || undexCharge->IsPositive(), ChargeData);
  kinC_Assert(soundSpeed > 0.0, SoundSpeed);
  kinC_Assert(specificHeatRatio >= 1.0, SpecificHeatRatio);
  kinC_Assert(fluidDragCoefficient >= 0.0, FluidDragCoefficient);
  kinC_Assert(fluidDragExponent >= 0.0, FluidDragExponent);
  kinC_Assert((controlExponent > 0.0 && controlExponent <= 1.0) || controlExponent == cls_unsetReal, ControlExponent);
  kinC_Assert(fluidDensity > 0.0, FluidDensity);
  kinC_Assert(generalizedDecayA > -1.0, DecayA);
  kinC_Assert(generalizedDecayB > -1.0, DecayB);
  kinC_Assert(generalizedDecayC >= 0.0, DecayC);
}
