#pragma once

#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/ddb_Export.h"

/// The refusals of output requests. The number of an enumerator is its code; Errors.def gives the texts.
enum class korC_ErrorEnm : int {
#define DDB_ERROR(code, name, exception, text, raisedBy) name = code,
#include "module/kor/Errors.def"
#undef DDB_ERROR
};

/// Does nothing when \p condition holds; otherwise throws the exception of \p code with its text: a nex_TextException or
/// an omu_ValueErrorException as the table says. A number that the table does not hold throws an omu_ValueErrorException with
/// an empty text.
DDB_API void korC_Assert(bool condition, korC_ErrorEnm code);

/// The refusals, in the order of their codes.
DDB_API nex_Catalogue korC_Errors();
