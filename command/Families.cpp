#include "command/Families.h"

#include "framework/ddr_Model.h"
#include "module/kbc/kbcC_ConnectorBC.h"
#include "module/kbc/kbcC_module.h"
#include "module/klo/kloC_module.h"

namespace gattr {

namespace {

template <auto Constructors> std::vector<Construction> List() {
  std::vector<Construction> list;
  for (auto const& constructor : Constructors()) { list.push_back({constructor.command, constructor.label}); }
  return list;
}

template <auto Constructors> std::unique_ptr<kprC_StepDependent> Make(std::string_view command) {
  for (auto const& constructor : Constructors()) {
    if (constructor.command == command) { return constructor.make(); }
  }
  return nullptr;
}

template <auto Constructors>
constexpr Family Row(std::string_view extension, std::string_view group, bool inInitialStep, std::span<OwnArgument const> own) {
  return {extension, group, inInitialStep, own, &List<Constructors>, &Make<Constructors>};
}

constexpr OwnArgument kBoundaryCondition[] = {
    {kbcC_BC::regionCmd(), kbcC_BC::regionCmd()},
    {kbcC_BC::csysCmd(), "csys"},
    {kbcC_BC::distributionTypeCmd(), kbcC_BC::distributionCmd()},
    {kbcC_BC::fieldNameCmd(), kbcC_BC::fieldNameCmd()},
    {kbcC_ConnectorBC::connectorsCmd(), kbcC_ConnectorBC::connectorsCmd()},
};

constexpr OwnArgument kLoad[] = {
    {kloC_Load::regionCmd(), kloC_Load::regionCmd()},
    {kloC_Load::fieldNameCmd(), kloC_Load::fieldNameCmd()},
};

constexpr Family kFamilies[] = {
    Row<kbcC_Constructors>(ddr_Model::bcCmd(), "boundary conditions", true, kBoundaryCondition),
    Row<kloC_Constructors>(kloC_Load::loadRepositoryCmd(), "loads", false, kLoad),
};

}  // namespace

std::span<Family const> Families() { return kFamilies; }

}  // namespace gattr
