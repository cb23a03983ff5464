#include "module/kbc/kbcC_TypeBC.h"

#include <algorithm>

std::unique_ptr<kbcC_BCState> kbcC_TypeBC::NewStateFor(unsigned /*procedureType*/) const {
  auto state = std::make_unique<kbcC_TypeBCState>();
  state->typeName = kind_;
  return state;
}

std::string kbcC_TypeBC::ConstructionName() const {
  struct Kind {
    TypeNameEnm kind;
    std::string_view command;
  };
  static constexpr Kind kKinds[] = {
#define DDB_KIND(Class, command, kind) {kind, command},
#include "module/kbc/Types.def"
  };
  std::size_t const index = States().CreateStep();
  TypeNameEnm kind = kind_;
  if (index != kprC_StepTable::npos) { kind = dynamic_cast<kbcC_TypeBCState const&>(*StateAt(index)).typeName.ConstGet(); }
  return std::string(std::ranges::find(kKinds, kind, &Kind::kind)->command);
}
