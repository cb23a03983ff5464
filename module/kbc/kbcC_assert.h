#pragma once

#include <string_view>

#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/ddb_Export.h"

/// The refusals of boundary conditions. The number of an enumerator is its code; Errors.def gives the texts.
enum class kbcC_ErrorEnm : int {
#define DDB_ERROR(code, name, exception, text, raisedBy) name = code,
#include "module/kbc/Errors.def"
#undef DDB_ERROR
};

/// Does nothing when \p condition holds; otherwise throws the exception of \p code with its text: an
/// omu_ValueErrorException for the codes that refuse a value given by the user, a nex_TextException for every other. A
/// number that the table does not hold throws a nex_TextException with an empty text.
DDB_API void kbcC_Assert(bool condition, kbcC_ErrorEnm code);

/// Refusals whose text names what is refused.
enum class kbcC_ContentErrorEnm : int {
#define DDB_ERROR(code, name, exception, text, raisedBy)
#define DDB_CONTENT_ERROR(name, text, raisedBy) name,
#include "module/kbc/Errors.def"
#undef DDB_ERROR
};

/// Does nothing when \p condition holds; otherwise throws a nex_TextException whose message has \p text, such as the
/// names of the components that a connector does not offer, in its place. These refusals have no code.
DDB_API void kbcC_AssertContent(bool condition, kbcC_ContentErrorEnm code, std::string_view text);

/// The refusals, in the order of their codes.
DDB_API nex_Catalogue kbcC_Errors();
