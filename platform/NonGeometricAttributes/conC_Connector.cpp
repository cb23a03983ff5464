#include "platform/NonGeometricAttributes/conC_Connector.h"

#include <algorithm>

#include "platform/CaeUtils/omu_ValueErrorException.h"
#include "platform/CoreUtils/atr_String.h"

namespace {

/// Those that a connector cannot have, as a message names them; empty when there is none.
std::string Refused(cow_List<int> const& components) {
  std::string refused;
  for (auto component = components.begin(); component != components.end(); ++component) {
    bool const again = std::find(components.begin(), component, *component) != component;
    if (*component >= 1 && *component <= 6 && !again) { continue; }
    refused += (refused.empty() ? "" : ", ") + std::to_string(*component) + (again ? " again" : "");
  }
  return refused;
}

}  // namespace

conC_Connector::conC_Connector() = default;
conC_Connector::conC_Connector(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

bool conC_Connector::Offers(int component) const {
  return std::find(components_.begin(), components_.end(), component) != components_.end();
}

void conC_Connector::AssertValid() const {
  std::string const refused = Refused(components_);
  if (refused.empty()) { return; }
  nex_Exception::Throw(omu_ValueErrorException(atr_SubstituteFormat(
                           atr_translate("The components of a connector are integers from 1 to 6, each at most once, not %s."), {refused})),
                       "platform/NonGeometricAttributes/conC_Connector", __LINE__);
}

void conC_Connector::Restored(cls_ReadVisitor const& in) {
  if (!Refused(components_).empty()) { in.Refuse("components", "integers from 1 to 6, each at most once"); }
}
