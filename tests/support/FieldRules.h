#pragma once

#include "tests/support/PlainHistory.h"

namespace test {

/// What the plain walk has to know of predefined fields.
inline plain::Rules const kFieldRules = {.off = 15, .afterOff = 13, .zeroInInitial = false};

}  // namespace test
