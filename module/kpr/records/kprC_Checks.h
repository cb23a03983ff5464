#pragma once

#include "module/kpr/kprC_assert.h"
#include "platform/BasicUtils/cls_Members.h"

// What the checks of steps and records say of a single value. Each is written as what must hold, so that a value that is
// no number does not pass.

constexpr bool kprC_IsGiven(double value) { return value != cls_unsetReal; }
constexpr bool kprC_IsGiven(int value) { return value != cls_unsetInteger; }

/// A value that must be given.
constexpr bool kprC_IsPositive(double value) { return value > 0.0 && kprC_IsGiven(value); }
constexpr bool kprC_IsNotNegative(double value) { return value >= 0.0 && kprC_IsGiven(value); }
constexpr bool kprC_IsPositive(int value) { return value >= 1 && kprC_IsGiven(value); }

/// A value that may be left out: "not specified" is the largest number there is, and passes as one.
constexpr bool kprC_IsPositiveIfGiven(double value) { return value > 0.0; }
constexpr bool kprC_IsNotNegativeIfGiven(double value) { return value >= 0.0; }
constexpr bool kprC_IsPositiveIfGiven(int value) { return value >= 1; }
