#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// Starts the module of steps: number 572 in the component table, a container with the initial step as the model's
/// extension "steps", its time points as "timePoints", the classes' metadata, the catalogue of refusals. Counted: only
/// the first call works, and adds one to \p count.
DDB_API void kprC_initialize(int& count);
/// Mirrors kprC_initialize at the last call, and drops the tables of labels.
DDB_API void kprC_finalize(int& count);
