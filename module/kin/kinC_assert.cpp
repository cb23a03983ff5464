#include "module/kin/kinC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR OMU_REFUSAL_ROW
#include "module/kin/Errors.def"
#undef DDB_ERROR
};
}  // namespace

OMU_REFUSALS(kin, 205, .valueErrorLine = 684, .textLine = 678, .otherIsValueError = true)
