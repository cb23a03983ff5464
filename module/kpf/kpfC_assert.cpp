#include "module/kpf/kpfC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR OMU_REFUSAL_ROW
#include "module/kpf/Errors.def"
#undef DDB_ERROR
};

constexpr nex_ErrorRow kContents[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy)
#define DDB_CONTENT_ERROR(name, text, raisedBy) {-1, false, text, #name, raisedBy},
#include "module/kpf/Errors.def"
#undef DDB_ERROR
};
}  // namespace

OMU_REFUSALS(kpf, 98, .valueErrorLine = 20, .textLine = 20, .contents = kContents)

atr_String kpfC_i18n(kpfC_ErrorEnm code) {
  nex_ErrorRow const* const row = nex_FindRow(kRows, static_cast<int>(code));
  return row == nullptr ? atr_String() : atr_translate(row->text);
}

void kpfC_AssertContent(bool condition, kpfC_ContentErrorEnm code, std::string_view first, std::string_view second) {
  omu_AssertContent(kTable, condition, static_cast<std::size_t>(code), {first, second});
}
