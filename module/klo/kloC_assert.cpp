#include "module/klo/kloC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy) {code, exception, text, #name, raisedBy},
#include "module/klo/Errors.def"
#undef DDB_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 73, "Errors.def: in code order, none missing, none empty");

constexpr omu_RefusalTable kTable = {"klo", "generated/module/klo/com/impl/kloC_assert", 277, 271, kRows, {}, true};
}  // namespace

void kloC_Assert(bool condition, kloC_ErrorEnm code) { omu_Assert(kTable, condition, static_cast<int>(code)); }

nex_Catalogue kloC_Errors() { return omu_CatalogueOf(kTable); }
