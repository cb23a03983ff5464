#pragma once

#include "module/kbc/kbcC_BC.h"

/// Starts the module of boundary conditions: number 664 in the component table, an empty repository as the model's
/// extension "boundaryConditions", the classes' metadata, the catalogue of refusals. Counted: only the first call works,
/// and adds one to \p count.
DDB_API void kbcC_initialize(int& count);
/// Mirrors kbcC_initialize at the last call.
DDB_API void kbcC_finalize(int& count);
