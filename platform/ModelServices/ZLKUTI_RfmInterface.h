#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of the interface to result files. Counted: the first call alone works, and adds one to \p count.
DDB_API void ZLKUTI_RfmInterface_initialize(int& count);
/// Mirrors ZLKUTI_RfmInterface_initialize at the last call.
DDB_API void ZLKUTI_RfmInterface_finalize(int& count);
