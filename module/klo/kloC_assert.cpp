#include "module/klo/kloC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR OMU_REFUSAL_ROW
#include "module/klo/Errors.def"
#undef DDB_ERROR
};
}  // namespace

OMU_REFUSALS(klo, 73, .valueErrorLine = 277, .textLine = 271, .otherIsValueError = true)
