#include "module/kbc/kbcC_ConnectorBC.h"

#include "framework/ddr_ModelMembers.h"

void kbcC_ConnectorBC::AssertInModel(ddr_Model const& model) const {
  constexpr int kComponents = 6;
  auto const& known = model.ConstGet<ddr_ConnectorMap>(ddr_Model::connectorsCmd());
  unsigned offers = ~0U;
  for (cow_String const& name : connectors_) {
    conC_Connector const* connector = known.ConstGet(name);
    for (int component = 1; connector != nullptr && component <= kComponents; ++component) {
      if (!connector->Offers(component)) { offers &= ~(1U << component); }
    }
  }
  ForEachEditable([offers](kbcC_BCState const& state) {
    std::string const missing = kprC_ComponentsBeyond(state, offers);
    kbcC_AssertContent(missing.empty(), kbcC_ContentErrorEnm::UnavailableComponents, missing);
  });
}
