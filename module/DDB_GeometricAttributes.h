#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library once before use: the libraries that it depends on, then its modules, in their fixed order. Counted:
/// the first call alone works, and adds one to \p count; every further call does nothing. Not thread safe.
DDB_API void DDB_GeometricAttributes_initialize(int& count);

/// Stops the library at the end: the call that mirrors the first start stops the modules and the libraries in the reverse
/// order and frees the singletons. A new start works. Models must be gone by then.
DDB_API void DDB_GeometricAttributes_finalize(int& count);
