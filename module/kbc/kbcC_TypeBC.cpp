#include "module/kbc/kbcC_TypeBC.h"

#include <algorithm>

std::uint32_t kbcC_TypeBCState::Components() const {
  return 0b1111110;  // 1 to 3 along, 4 to 6 about the axes
}

std::uint32_t kbcC_TypeBCState::ComponentsInForce() const {
  if (!typeName.HasValue()) { return 0; }
  // symmetry holds the motion out of the plane, antisymmetry the one in it
  switch (typeName.ConstGet()) {
    case kbcC_TypeNameEnm::XSYMM: return 1U << 1 | 1U << 5 | 1U << 6;
    case kbcC_TypeNameEnm::YSYMM: return 1U << 2 | 1U << 4 | 1U << 6;
    case kbcC_TypeNameEnm::ZSYMM: return 1U << 3 | 1U << 4 | 1U << 5;
    case kbcC_TypeNameEnm::XASYMM: return 1U << 2 | 1U << 3 | 1U << 4;
    case kbcC_TypeNameEnm::YASYMM: return 1U << 1 | 1U << 3 | 1U << 5;
    case kbcC_TypeNameEnm::ZASYMM: return 1U << 1 | 1U << 2 | 1U << 6;
    case kbcC_TypeNameEnm::PINNED: return 1U << 1 | 1U << 2 | 1U << 3;
    case kbcC_TypeNameEnm::ENCASTRE: return Components();
  }
  return 0;
}

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
