#include "module/kpr/kprC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR OMU_REFUSAL_ROW
#include "module/kpr/Errors.def"
#undef DDB_ERROR
};
}  // namespace

OMU_REFUSALS(kpr, 251, .valueErrorLine = 20, .textLine = 20)
