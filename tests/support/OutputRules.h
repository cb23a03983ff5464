#pragma once

#include "tests/support/PlainHistory.h"

namespace test {

/// What the plain walk has to know of output requests.
inline plain::Rules const kOutputRules = {.passedOver = 7, .perturbationCarried = 7, .asksInPerturbation = true};

}  // namespace test
