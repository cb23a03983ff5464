#pragma once

#include "tests/support/PlainHistory.h"

namespace test {

/// What the plain walk has to know of interactions.
inline plain::Rules const kInteractionRules = {.asksInPerturbation = true, .moveEmptiesBetween = false, .staysPut = 8};

}  // namespace test
