#include "module/kin/kinC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy) {code, exception, text, #name, raisedBy},
#include "module/kin/Errors.def"
#undef DDB_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 205, "Errors.def: in code order, none missing");

constexpr omu_RefusalTable kTable = {"kin", "generated/module/kin/com/impl/kinC_assert", 684, 678, kRows, {}, true};
}  // namespace

void kinC_Assert(bool condition, kinC_ErrorEnm code) { omu_Assert(kTable, condition, static_cast<int>(code)); }

nex_Catalogue kinC_Errors() { return omu_CatalogueOf(kTable); }
