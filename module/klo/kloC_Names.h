#pragma once

#include "platform/CoreUtils/omn_FixedString.h"

// Documented names that nothing here uses: editing layers and scripts outside find them under their classes.

/// Names of kloC_Load.
struct kloC_LoadNames {
  static constexpr omn_FixedString copyConstructorCmd() { return "Load"; }
};
