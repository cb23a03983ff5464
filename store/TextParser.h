#pragma once

#include <string_view>

#include "store/Document.h"

namespace gattr {

/// Takes JSON apart. Raises a StoreError where \p text is no JSON, with the line and the column; where a name stands twice
/// in an object and where a number is too large for any type, with the way there.
Document ParseText(std::string_view text, std::string_view fileName);

}  // namespace gattr
