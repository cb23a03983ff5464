#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of reduced-order models. Counted: the first call alone works, and adds one to \p count.
DDB_API void ZLKDDB_ROM_initialize(int& count);
/// Mirrors ZLKDDB_ROM_initialize at the last call.
DDB_API void ZLKDDB_ROM_finalize(int& count);
