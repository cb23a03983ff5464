#include "module/kor/korC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy) {code, exception, text, #name, raisedBy},
#include "module/kor/Errors.def"
#undef DDB_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 81, "Errors.def: in code order, none missing, none empty");

constexpr omu_RefusalTable kTable = {"kor", "generated/module/kor/com/impl/korC_assert", 291, 285, kRows, {}, true};
}  // namespace

void korC_Assert(bool condition, korC_ErrorEnm code) { omu_Assert(kTable, condition, static_cast<int>(code)); }

nex_Catalogue korC_Errors() { return omu_CatalogueOf(kTable); }
