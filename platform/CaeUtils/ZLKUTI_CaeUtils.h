#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of primitive values and the change history. Counted: the first call alone works, and adds one to \p count.
DDB_API void ZLKUTI_CaeUtils_initialize(int& count);
/// Mirrors ZLKUTI_CaeUtils_initialize at the last call.
DDB_API void ZLKUTI_CaeUtils_finalize(int& count);
