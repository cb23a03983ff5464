#pragma once

#include "module/kor/korC_Output.h"

/// Starts the module of output requests: number 576 in the component table, empty repositories as the model's extensions "fieldOutputs"
/// and "historyOutputs", its integrated output sections and filters, the classes' metadata, the catalogue of refusals. Counted:
/// only the first call works, and adds one to \p count.
DDB_API void korC_initialize(int& count);
/// Mirrors korC_initialize at the last call.
DDB_API void korC_finalize(int& count);
