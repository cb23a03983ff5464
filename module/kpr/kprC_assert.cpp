#include "module/kpr/kprC_assert.h"

#include <iterator>

#include "platform/CaeUtils/omu_Refusals.h"

namespace {

constexpr bool Text = false;
constexpr nex_ErrorRow kRows[] = {
#define KPR_ERROR(code, name, exception, text) {code, exception, text, #name},
#include "module/kpr/Errors.def"
#undef KPR_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 251, "kprC_Errors.def: in code order, none missing, none empty");

constexpr omu_RefusalTable kTable = {"kpr", "generated/module/kpr/com/impl/kprC_assert", __LINE__, __LINE__, kRows};

}  // namespace

void kprC_Assert(bool condition, kprC_ErrorEnm code) {
  if (!condition) { omu_Refuse(kTable, static_cast<int>(code)); }
}

std::span<nex_ErrorRow const> kprC_Errors() { return kRows; }
