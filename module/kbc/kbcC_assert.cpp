#include "module/kbc/kbcC_assert.h"

#include <iterator>

#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"
#include "platform/CoreUtils/atr_String.h"

namespace {

constexpr bool Value = true;
constexpr bool Text = false;
constexpr nex_ErrorRow kRows[] = {
#define KBC_ERROR(code, name, exception, text) {code, exception, text, #name},
#include "module/kbc/kbcC_Errors.def"
#undef KBC_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 61, "kbcC_Errors.def: in code order, none missing, none empty");

constexpr char const* kSourceName = "generated/module/kbc/com/impl/kbcC_assert";
constexpr int kValueErrorLine = 193;
constexpr int kTextLine = 199;

constexpr char const* kContentText = "Unavailable connector components have been specified (CORM: %s).";

}  // namespace

void kbcC_Assert(bool condition, kbcC_ErrorEnm code) {
  if (condition) { return; }
  nex_ErrorRow const* const row = nex_FindRow(kRows, static_cast<int>(code));
  atr_String const text = row != nullptr ? atr_translate(row->text) : atr_String();
  nex_Origin const origin{"kbc", static_cast<int>(code)};
  if (row != nullptr && row->valueError) { nex_Exception::Throw(omu_ValueErrorException(text, origin), kSourceName, kValueErrorLine); }
  nex_Exception::Throw(nex_TextException(text, origin), kSourceName, kTextLine);
}

void kbcC_AssertContent(bool condition, kbcC_ContentErrorEnm /*code*/, std::string_view text) {
  if (condition) { return; }
  nex_Exception::Throw(nex_TextException(atr_SubstituteFormat(atr_translate(kContentText), {text}), {"kbc", -1}), kSourceName, kTextLine);
}

std::span<nex_ErrorRow const> kbcC_Errors() { return kRows; }
