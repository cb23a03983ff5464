#pragma once

#include <string>
#include <string_view>

#include "platform/BasicUtils/cls_Value.h"
#include "platform/CoreUtils/ddb_Export.h"
#include "text/JsonError.h"

namespace gattr {

/// The value that a JSON text holds. Whole numbers beyond 64 bits become real ones. Raises a JsonError, without a place where a name
/// stands twice in an object and where a number is too large for any type.
DDB_API cls_Value ParseJson(std::string_view text);

/// A value as JSON on one line, from which ParseJson makes the same value. Texts stay UTF-8; a number that is not finite is null.
DDB_API std::string JsonText(cls_Value const& value);

/// The same behind what \p out holds.
void AppendJson(std::string& out, cls_Value const& value);
/// \p text in quotes, with what JSON wants escaped, and DEL.
void AppendJsonQuoted(std::string& out, std::string_view text);

}  // namespace gattr
