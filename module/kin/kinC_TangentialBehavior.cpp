#include "module/kin/kinC_TangentialBehavior.h"

#include <algorithm>

#include "module/kin/kinC_Checks.h"

using enum kinC_ErrorEnm;

kinC_TangentialBehavior::kinC_TangentialBehavior() = default;
kinC_TangentialBehavior::kinC_TangentialBehavior(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kinC_TangentialBehavior::AssertFrictionTable() const {
  std::size_t const coefficients = directionality == DirectionalityEnm::ANISOTROPIC ? 2 : 1;
  kinC_Assert(!table.IsEmpty() && table.Columns() >= coefficients, FrictionMissing);
  std::size_t const slipRate = coefficients;
  std::size_t const pressure = slipRate + (slipRateDependency ? 1 : 0);
  std::size_t const temperature = pressure + (pressureDependency ? 1 : 0);
  std::size_t const fields = temperature + (temperatureDependency ? 1 : 0);
  kinC_Assert(table.Columns() >= fields + static_cast<std::size_t>(std::max(dependencies, 0)), FrictionTableIncomplete);
  for (std::size_t i = 0; i < coefficients; ++i) { kinC_Assert(kinC_IsNotNegative(table, i), FrictionCoefficient); }
  kinC_Assert(!slipRateDependency || kinC_IsNotNegative(table, slipRate), SlipRate);
  kinC_Assert(!pressureDependency || kinC_IsNotNegative(table, pressure), FrictionPressure);
}

void kinC_TangentialBehavior::AssertDecay() const {
  std::size_t const given = table.Rows() == 0 ? 0 : table.Columns();
  if (exponentialDecayDefinition == ExponentialDecayDefinitionEnm::COEFFICIENTS) {
    kinC_Assert(given >= 3, DecayMissing);
    double const atRest = table.ConstGet(0, 0), sliding = table.ConstGet(0, 1);
    kinC_Assert(atRest >= 0.0 && sliding >= 0.0, FrictionCoefficient);
    kinC_Assert(atRest - sliding >= 0.0, DynamicFriction);
    kinC_Assert(table.ConstGet(0, 2) >= 0.0, DecayCoefficient);
    return;
  }
  kinC_Assert(given >= 2, FrictionMissing);
  kinC_Assert(given >= 3, SlipRateMissing);
  kinC_Assert(table.ConstGet(0, 2) > 0.0, SlipRateNotPositive);
  kinC_Assert(elasticSlipStiffness >= 0.0, ElasticSlipStiffness);
}

void kinC_TangentialBehavior::AssertValid() const {
  using enum kinC_FrictionFormulationEnm;
  switch (formulation) {
    case FRICTIONLESS:
    case ROUGH: break;
    case PENALTY:
    case LAGRANGE:
      kinC_Assert(shearStressLimit > 0.0, ShearStressLimit);
      AssertFrictionTable();
      break;
    case USER_DEFINED: kinC_Assert(nStateDependentVars >= 0, StateDependentVariables); break;
    case EXPONENTIAL_DECAY: AssertDecay(); break;
  }
  bool const isFraction = maximumElasticSlip == MaximumElasticSlipEnm::FRACTION;
  kinC_Assert(!isFraction || fraction > 0.0, ElasticSlipFraction);
  kinC_Assert(isFraction || absoluteDistance > 0.0, ElasticSlipDistance);
  kinC_Assert(elasticSlipStiffness >= 0.0, ElasticSlipStiffness);
  kinC_Assert(directionality != DirectionalityEnm::ORTHOTROPIC, OrthotropicReplaced);
}
