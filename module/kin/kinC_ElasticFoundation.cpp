#include "module/kin/kinC_ElasticFoundation.h"

void kinC_ElasticFoundationState::AssertValid() const {
  kinC_Assert(stiffness.HasValue() && stiffness.ConstGet() > 0.0, kinC_ErrorEnm::FoundationStiffness);
}

void kinC_ElasticFoundation::AssertCreateStep(std::size_t index) const {
  kinC_Assert(Steps().IsInitial(index), kinC_ErrorEnm::FoundationNotInInitialStep);
}

void kinC_ElasticFoundation::AssertWhole() const {
  AssertNoOwn(mdl_PropagationStatusEnm::Deactivated, kinC_ErrorEnm::FoundationDeactivated);
  AssertNoOwn(mdl_PropagationStatusEnm::Modified, kinC_ErrorEnm::FoundationModified);
}

void kinC_ElasticFoundation::AssertInModel(ddr_Model const& /*model*/) const {
  kinC_Assert(!IsInExplicitAnalysis(), kinC_ErrorEnm::FoundationInExplicit);
}
