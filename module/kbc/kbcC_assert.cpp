#include "module/kbc/kbcC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy) {code, exception, text, #name, raisedBy},
#include "module/kbc/Errors.def"
#undef DDB_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 61, "Errors.def: in code order, none missing, none empty");

constexpr nex_ErrorRow kContents[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy)
#define DDB_CONTENT_ERROR(name, text, raisedBy) {-1, false, text, #name, raisedBy},
#include "module/kbc/Errors.def"
#undef DDB_ERROR
};

constexpr omu_RefusalTable kTable = {"kbc", "generated/module/kbc/com/impl/kbcC_assert", 193, 199, kRows, kContents};
}  // namespace

void kbcC_Assert(bool condition, kbcC_ErrorEnm code) { omu_Assert(kTable, condition, static_cast<int>(code)); }

void kbcC_AssertContent(bool condition, kbcC_ContentErrorEnm code, std::string_view text) {
  omu_AssertContent(kTable, condition, static_cast<std::size_t>(code), {text});
}

nex_Catalogue kbcC_Errors() { return omu_CatalogueOf(kTable); }
