#include "framework/mdl_PropAttr.h"

#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CoreUtils/atr_String.h"

void mdl_RefuseMemberState(std::string_view name) {
  constexpr char const* kSource = "generated/include/mdl_PropagatingAttribute";
  atr_String const format = atr_translate("Invalid propagation status for '%s' attribute.");
  nex_Exception::Throw(nex_TextException(atr_SubstituteFormat(format, {name})), kSource, __LINE__);
}
