#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of handles, containers, exceptions and persistent classes. Counted: the first call alone works, and adds one to \p
/// count.
DDB_API void ZLKUTI_BasicUtils_initialize(int& count);
/// Mirrors ZLKUTI_BasicUtils_initialize at the last call.
DDB_API void ZLKUTI_BasicUtils_finalize(int& count);
