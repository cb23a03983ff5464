#include "module/kbc/kbcC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR OMU_REFUSAL_ROW
#include "module/kbc/Errors.def"
#undef DDB_ERROR
};

constexpr nex_ErrorRow kContents[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy)
#define DDB_CONTENT_ERROR(name, text, raisedBy) {-1, false, text, #name, raisedBy},
#include "module/kbc/Errors.def"
#undef DDB_ERROR
};
}  // namespace

OMU_REFUSALS(kbc, 61, .valueErrorLine = 193, .textLine = 199, .contents = kContents)

void kbcC_AssertContent(bool condition, kbcC_ContentErrorEnm code, std::string_view text) {
  omu_AssertContent(kTable, condition, static_cast<std::size_t>(code), {text});
}
