#include "framework/Refusal.h"

#include "platform/BasicUtils/nex_Exception.h"

namespace gattr {

Refusal RefusalOf(std::exception const& error) {
  auto const* refusal = dynamic_cast<nex_Refusal const*>(&error);
  if (refusal == nullptr) { return {{}, -1, {}, error.what()}; }
  return {refusal->Module(), refusal->Code(), refusal->ClassName(), std::string(refusal->Text().View())};
}

}  // namespace gattr
