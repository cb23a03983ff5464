#pragma once

#include <cstddef>
#include <string_view>

#include "store/Document.h"
#include "text/Progress.h"

namespace gattr {

inline constexpr std::size_t kLargestText = std::size_t{1} << 30;  ///< bytes of a model's text; more is refused

/// Takes JSON apart (text/JsonParser.h). Linear in \p text, in memory too: 24 bytes for each value, about 70 for each text that has not
/// stood before. Raises a StoreError where it is no JSON or nested too deep, with the line and the
/// column; \p tick is told of every object and list. Where a name stands twice in an object and where a number is too large for any type,
/// with the way there.
Document ParseText(std::string_view text, std::string_view fileName, Ticker& tick);

}  // namespace gattr
