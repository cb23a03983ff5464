#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of regions and datum references. Counted: the first call alone works, and adds one to \p count.
DDB_API void ZLKDDB_CoreGeometry_initialize(int& count);
/// Mirrors ZLKDDB_CoreGeometry_initialize at the last call.
DDB_API void ZLKDDB_CoreGeometry_finalize(int& count);
