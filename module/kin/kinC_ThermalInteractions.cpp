#include "module/kin/kinC_ThermalInteractions.h"

void kinC_AssertEmissivity(mdl_PropAttr<double> const& emissivity) {
  double const value = emissivity.HasValue() ? emissivity.ConstGet() : 0.0;
  kinC_Assert(value >= 0.0 && value <= 1.0, kinC_ErrorEnm::Emissivity);
}

bool kinC_FilmCondition::IsDistributed(cls_Object const& state) {
  return dynamic_cast<kinC_FilmConditionState const&>(state).definition == kinC_FilmDefinitionEnm::FIELD;
}

void kinC_FilmCondition::AssertCreateStep(std::size_t index) const {
  kinC_Assert(!Steps().IsInitial(index), kinC_ErrorEnm::FilmInInitialStep);
}

bool kinC_RadiationToAmbient::IsDistributed(cls_Object const& state) {
  return dynamic_cast<kinC_RadiationToAmbientState const&>(state).distribution == kinC_EmissivityEnm::FIELD;
}

void kinC_RadiationToAmbient::AssertCreateStep(std::size_t index) const {
  kinC_Assert(!Steps().IsInitial(index), kinC_ErrorEnm::RadiationInInitialStep);
}
