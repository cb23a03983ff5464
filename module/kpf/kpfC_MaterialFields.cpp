#include "module/kpf/kpfC_MaterialFields.h"

void kpfC_HardeningState::AssertValid() const {
  kpfC_Assert(IsUniform() || !equivPlasticStrain.HasValue(), kpfC_ErrorEnm::PlasticStrainSuperfluous);
  kpfC_Assert(!IsUniform() || equivPlasticStrain.HasValue(), kpfC_ErrorEnm::PlasticStrainMissing);
}

void kpfC_SDVState::AssertValid() const {
  kpfC_Assert(IsUniform() || !magnitudes.HasValue(), kpfC_ErrorEnm::MagnitudesSuperfluous);
  kpfC_Assert(!IsUniform() || (magnitudes.HasValue() && !magnitudes.ConstGet().IsEmpty()), kpfC_ErrorEnm::MagnitudesMissing);
}
