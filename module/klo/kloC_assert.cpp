#include "module/klo/kloC_assert.h"

#include <iterator>

#include "platform/CaeUtils/omu_Refusals.h"

namespace {

constexpr bool Value = true;
constexpr bool Text = false;
constexpr nex_ErrorRow kRows[] = {
#define KLO_ERROR(code, name, exception, text) {code, exception, text, #name},
#include "module/klo/Errors.def"
#undef KLO_ERROR
};
static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == 73, "kloC_Errors.def: in code order, none missing, none empty");

constexpr omu_RefusalTable kTable = {"klo", "generated/module/klo/com/impl/kloC_assert", 277, 271, kRows};

}  // namespace

void kloC_Assert(bool condition, kloC_ErrorEnm code) {
  if (!condition) { omu_Refuse(kTable, static_cast<int>(code)); }
}

std::span<nex_ErrorRow const> kloC_Errors() { return kRows; }
