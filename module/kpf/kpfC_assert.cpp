#include "module/kpf/kpfC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy) {code, exception, text, #name, raisedBy},
#include "module/kpf/Errors.def"
#undef DDB_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 98, "Errors.def: in code order, none missing, none empty");

constexpr nex_ErrorRow kContents[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy)
#define DDB_CONTENT_ERROR(name, text, raisedBy) {-1, false, text, #name, raisedBy},
#include "module/kpf/Errors.def"
#undef DDB_ERROR
};

constexpr omu_RefusalTable kTable = {"kpf", "generated/module/kpf/com/impl/kpfC_assert", 20, 20, kRows, kContents};
}  // namespace

atr_String kpfC_i18n(kpfC_ErrorEnm code) {
  nex_ErrorRow const* const row = nex_FindRow(kRows, static_cast<int>(code));
  return row == nullptr ? atr_String() : atr_translate(row->text);
}

void kpfC_Assert(bool condition, kpfC_ErrorEnm code) { omu_Assert(kTable, condition, static_cast<int>(code)); }

void kpfC_AssertContent(bool condition, kpfC_ContentErrorEnm code, std::string_view first, std::string_view second) {
  omu_AssertContent(kTable, condition, static_cast<std::size_t>(code), {first, second});
}

nex_Catalogue kpfC_Errors() { return omu_CatalogueOf(kTable); }
