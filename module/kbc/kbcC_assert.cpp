#include "module/kbc/kbcC_assert.h"

#include <iterator>

#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CaeUtils/omu_Refusals.h"
#include "platform/CoreUtils/atr_String.h"

namespace {

constexpr bool Value = true;
constexpr bool Text = false;
constexpr nex_ErrorRow kRows[] = {
#define KBC_ERROR(code, name, exception, text) {code, exception, text, #name},
#include "module/kbc/Errors.def"
#undef KBC_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 61, "kbcC_Errors.def: in code order, none missing, none empty");

constexpr omu_RefusalTable kTable = {"kbc", "generated/module/kbc/com/impl/kbcC_assert", 193, 199, kRows};
constexpr char const* kContentText = "Unavailable connector components have been specified (CORM: %s).";

}  // namespace

void kbcC_Assert(bool condition, kbcC_ErrorEnm code) {
  if (!condition) { omu_Refuse(kTable, static_cast<int>(code)); }
}

void kbcC_AssertContent(bool condition, kbcC_ContentErrorEnm /*code*/, std::string_view text) {
  if (condition) { return; }
  nex_Exception::Throw(nex_TextException(atr_SubstituteFormat(atr_translate(kContentText), {text}), {kTable.module, -1}), kTable.sourceName,
                       kTable.textLine);
}

std::span<nex_ErrorRow const> kbcC_Errors() { return kRows; }
