#pragma once

#include <string_view>

#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/atr_String.h"

/// The refusals of predefined fields. The number of an enumerator is its code; Errors.def gives the texts.
enum class kpfC_ErrorEnm : int {
#define DDB_ERROR(code, name, exception, text, raisedBy) name = code,
#include "module/kpf/Errors.def"
#undef DDB_ERROR
};

/// The text of a refusal; empty for a number that the table does not hold.
DDB_API atr_String kpfC_i18n(kpfC_ErrorEnm code);

/// Does nothing when \p condition holds; otherwise throws the exception of \p code with its text: an
/// omu_ValueErrorException for the codes that refuse a value given by the user, a nex_TextException for every other. A
/// number that the table does not hold throws a nex_TextException with an empty text.
DDB_API void kpfC_Assert(bool condition, kpfC_ErrorEnm code);

/// Refusals whose text names what is refused.
enum class kpfC_ContentErrorEnm : int {
#define DDB_ERROR(code, name, exception, text, raisedBy)
#define DDB_CONTENT_ERROR(name, text, raisedBy) name,
#include "module/kpf/Errors.def"
#undef DDB_ERROR
};

/// Does nothing when \p condition holds; otherwise throws a nex_TextException whose message has \p first and \p second in their
/// places. These refusals have no code.
DDB_API void kpfC_AssertContent(bool condition, kpfC_ContentErrorEnm code, std::string_view first, std::string_view second);

/// The refusals, in the order of their codes.
DDB_API nex_Catalogue kpfC_Errors();
