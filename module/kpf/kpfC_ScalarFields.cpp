#include "module/kpf/kpfC_ScalarFields.h"

void kpfC_1DLinearDistrib::AssertValid() const {
  bool const linear = Distribution() == DistribTypeEnum::LINEAR;
  kpfC_Assert(linear || !HasMagnitudes(), kpfC_ErrorEnm::LinearMagnitudeSuperfluous);
  kpfC_Assert(linear || !HasCoords(), kpfC_ErrorEnm::LinearCoordSuperfluous);
  kpfC_Assert(!linear || HasBothMagnitudes(), kpfC_ErrorEnm::LinearMagnitudeMissing);
  kpfC_Assert(!linear || HasBothCoords(), kpfC_ErrorEnm::LinearCoordMissing);
}
