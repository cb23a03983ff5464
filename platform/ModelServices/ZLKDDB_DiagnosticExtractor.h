#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the library of diagnostics of a model. Counted: the first call alone works, and adds one to \p count.
DDB_API void ZLKDDB_DiagnosticExtractor_initialize(int& count);
/// Mirrors ZLKDDB_DiagnosticExtractor_initialize at the last call.
DDB_API void ZLKDDB_DiagnosticExtractor_finalize(int& count);
