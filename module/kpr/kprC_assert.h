#pragma once

#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/ddb_Export.h"

/// The refusals of steps and adaptive mesh constraints. The number of an enumerator is its code; Errors.def gives
/// the texts.
enum class kprC_ErrorEnm : int {
#define DDB_ERROR(code, name, exception, text, raisedBy) name = code,
#include "module/kpr/Errors.def"
#undef DDB_ERROR
};

/// Does nothing when \p condition holds; otherwise throws a nex_TextException with the text of \p code, which is empty
/// for a number that the table does not hold.
DDB_API void kprC_Assert(bool condition, kprC_ErrorEnm code);

/// The refusals, in the order of their codes.
DDB_API nex_Catalogue kprC_Errors();
