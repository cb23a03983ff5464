#pragma once

#include "module/kin/kinC_assert.h"
#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cow_2DArray.h"

// What the checks of properties and controls say of values and tables. Each is written as what must hold, so that a value that is no
// number does not pass. A value that is not given is the largest number, and passes every bound from below.

/// In [0, 1), or not given.
constexpr bool kinC_IsRatioIfGiven(double value) { return (value >= 0.0 && value < 1.0) || value == cls_unsetReal; }
/// In [0, 1].
constexpr bool kinC_IsFraction(double value) { return value >= 0.0 && value <= 1.0; }

/// Whether no value of the column is negative.
inline bool kinC_IsNotNegative(cow_2DArray<double> const& table, std::size_t column) {
  for (std::size_t row = 0; row < table.Rows(); ++row) {
    if (!(table.ConstGet(row, column) >= 0.0)) { return false; }
  }
  return true;
}
/// Whether the values of the column rise strictly from row to row.
inline bool kinC_IsIncreasing(cow_2DArray<double> const& table, std::size_t column) {
  for (std::size_t row = 1; row < table.Rows(); ++row) {
    if (!(table.ConstGet(row, column) > table.ConstGet(row - 1, column))) { return false; }
  }
  return true;
}
