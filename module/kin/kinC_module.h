#pragma once

#include "module/kin/kinC_Interaction.h"

/// Starts the module of interactions: number 672 in the component table, an empty repository as the model's extension
/// "interactions" and the maps "interactionProperties" and "contactControls", the classes' metadata, the catalogue of refusals. Counted:
/// only the first call works, and adds one to \p count.
DDB_API void kinC_initialize(int& count);
/// Mirrors kinC_initialize at the last call.
DDB_API void kinC_finalize(int& count);
