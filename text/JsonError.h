#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// A text that is no JSON, or nested too deep; what() says what was expected.
class DDB_API JsonError final : public std::runtime_error {
public:
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

  JsonError(std::size_t at, std::string const& expected) : std::runtime_error(expected), at_(at) {}
  std::size_t At() const { return at_; }  ///< in bytes from the beginning; kNowhere where the whole is meant

private:
  std::size_t at_;
};

}  // namespace gattr
