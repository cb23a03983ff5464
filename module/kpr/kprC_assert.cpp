#include "module/kpr/kprC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR(code, name, exception, text, raisedBy) {code, exception, text, #name, raisedBy},
#include "module/kpr/Errors.def"
#undef DDB_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 251, "Errors.def: in code order, none missing, none empty");

constexpr omu_RefusalTable kTable = {"kpr", "generated/module/kpr/com/impl/kprC_assert", 20, 20, kRows};
}  // namespace

void kprC_Assert(bool condition, kprC_ErrorEnm code) { omu_Assert(kTable, condition, static_cast<int>(code)); }

nex_Catalogue kprC_Errors() { return omu_CatalogueOf(kTable); }
