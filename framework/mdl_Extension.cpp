#include "framework/mdl_Extension.h"

#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CoreUtils/atr_String.h"

void mdl_RefuseMissing(std::string_view name, std::string_view where) {
  atr_String const text = atr_SubstituteFormat(atr_translate("There is no \"%s\" in the %s."), {name, where});
  nex_Exception::Throw(nex_TextException(text), "framework/mdl_Extension", __LINE__);
}
