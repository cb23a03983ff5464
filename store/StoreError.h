#pragma once

#include <stdexcept>

#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// A model that cannot be read or written: damaged or foreign content, a later version, a file that cannot be opened.
/// The message is one line that names the file, the object, the member and what was expected. Neither the model in
/// memory nor the file has changed.
class DDB_API StoreError final : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

}  // namespace gattr
