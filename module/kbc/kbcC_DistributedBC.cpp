#include "module/kbc/kbcC_DistributedBC.h"

std::uint32_t kbcC_TemperatureBCState::ComponentsInForce() const {
  bool const prescribed = kbcC_DistributedBCState::ComponentsInForce() != 0;
  constexpr int kFirst = 11;
  int const point = dof.HasValue() && kprC_IsTemperature(dof.ConstGet()) ? dof.ConstGet() : kFirst;
  return prescribed ? 1U << point : 0;
}

void kbcC_TemperatureBCState::AssertValid() const {
  kbcC_Assert(shell != true || dof.HasValue(), kbcC_ErrorEnm::ShellDofMissing);
  kbcC_Assert(!dof.HasValue() || kprC_IsTemperature(dof.ConstGet()), kbcC_ErrorEnm::DofOutOfRange);
}

void kbcC_TemperatureBC::AssertWhole() const {
  kbcC_Assert(!Region().IsMixed(), kbcC_ErrorEnm::RegionMixedDimensions);
  kbcC_Assert(Region().InstanceKind() != rgnC_Mixed, kbcC_ErrorEnm::RegionShellAndSolid);
}
