#include "module/kor/korC_assert.h"

#include "platform/CaeUtils/omu_Refusals.h"

namespace {
constexpr bool Value = true, Text = false;
constexpr nex_ErrorRow kRows[] = {
#define DDB_ERROR OMU_REFUSAL_ROW
#include "module/kor/Errors.def"
#undef DDB_ERROR
};
}  // namespace

OMU_REFUSALS(kor, 81, .valueErrorLine = 291, .textLine = 285, .otherIsValueError = true)
