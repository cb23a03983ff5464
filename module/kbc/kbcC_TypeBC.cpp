#include "module/kbc/kbcC_TypeBC.h"

#include <algorithm>

std::unique_ptr<kbcC_BCState> kbcC_TypeBC::NewState() const {
  auto state = std::make_unique<kbcC_TypeBCState>();
  state->typeName = kind_;
  return state;
}

std::string kbcC_TypeBC::ConstructionName() const {
  std::size_t const index = States().CreateStep();
  TypeNameEnm kind = kind_;
  if (index != kprC_StepTable::npos) { kind = dynamic_cast<kbcC_TypeBCState const&>(*StateAt(index)).typeName.ConstGet(); }
  return std::string(std::ranges::find(kKinds, kind, &kbcC_TypeBCKind::kind)->constructorCmd.View());
}
