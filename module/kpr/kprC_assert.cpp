#include "module/kpr/kprC_assert.h"

#include <iterator>

#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CoreUtils/atr_String.h"

namespace {

constexpr bool Text = false;
constexpr nex_ErrorRow kRows[] = {
#define KPR_ERROR(code, name, exception, text) {code, exception, text, #name},
#include "module/kpr/kprC_Errors.def"
#undef KPR_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 251, "kprC_Errors.def: in code order, none missing, none empty");

}  // namespace

void kprC_Assert(bool condition, kprC_ErrorEnm code) {
  if (condition) { return; }
  nex_ErrorRow const* const row = nex_FindRow(kRows, static_cast<int>(code));
  atr_String const text = row != nullptr ? atr_translate(row->text) : atr_String();
  nex_Exception::Throw(nex_TextException(text, {"kpr", static_cast<int>(code)}), "generated/module/kpr/com/impl/kprC_assert", __LINE__);
}

std::span<nex_ErrorRow const> kprC_Errors() { return kRows; }
