#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of amplitudes and connectors. Counted: the first call alone works, and adds one to \p count.
DDB_API void ZLKDDB_NonGeometricAttributes_initialize(int& count);
/// Mirrors ZLKDDB_NonGeometricAttributes_initialize at the last call.
DDB_API void ZLKDDB_NonGeometricAttributes_finalize(int& count);
