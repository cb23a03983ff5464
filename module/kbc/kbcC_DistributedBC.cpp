#include "module/kbc/kbcC_DistributedBC.h"

void kbcC_TemperatureBCState::AssertValid() const {
  kbcC_Assert(shell != true || dof.HasValue(), kbcC_ErrorEnm::ShellDofMissing);
  kbcC_Assert(!dof.HasValue() || kprC_IsTemperature(dof.ConstGet()), kbcC_ErrorEnm::DofOutOfRange);
}

void kbcC_TemperatureBC::AssertWhole() const {
  kbcC_Assert(!Region().IsMixed(), kbcC_ErrorEnm::RegionMixedDimensions);
  kbcC_Assert(Region().InstanceKind() != rgnC_Mixed, kbcC_ErrorEnm::RegionShellAndSolid);
}
