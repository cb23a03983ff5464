#pragma once

#include "module/kpf/kpfC_Field.h"

/// Starts the module of predefined fields: number 748 in the component table, an empty repository as the model's extension
/// "predefinedFields", the classes' metadata, the catalogue of refusals. Counted: only the first call works, and adds one to \p count.
DDB_API void kpfC_initialize(int& count);
/// Mirrors kpfC_initialize at the last call.
DDB_API void kpfC_finalize(int& count);
