#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of texts, time and singletons. Counted: the first call alone works, and adds one to \p count.
DDB_API void ZLKUTI_CoreUtils_initialize(int& count);
/// Mirrors ZLKUTI_CoreUtils_initialize at the last call.
DDB_API void ZLKUTI_CoreUtils_finalize(int& count);
