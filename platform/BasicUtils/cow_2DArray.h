#pragma once

#include <cassert>
#include <cstddef>

#include "platform/BasicUtils/cow_List.h"

/// A copy-on-write table of \p T with a fixed number of columns, kept row by row. Copying costs one count, the first
/// change after a copy a copy of all values. Rows and columns count from 0; those that do not exist are refused, as
/// by a sequence.
template <class T> class cow_2DArray {
public:
  cow_2DArray() noexcept = default;
  cow_2DArray(std::size_t rows, std::size_t columns, T const& value = T())
      : values_(rows * columns, value), rows_(rows), columns_(columns) {}

  std::size_t Rows() const noexcept { return rows_; }
  std::size_t Columns() const noexcept { return columns_; }
  bool IsEmpty() const noexcept { return values_.IsEmpty(); }
  T const& ConstGet(std::size_t row, std::size_t column) const { return values_[Index(row, column)]; }
  /// The value, to be changed.
  T& Get(std::size_t row, std::size_t column) { return values_.Get(Index(row, column)); }

  /// Row by row.
  T const* begin() const noexcept { return values_.begin(); }
  T const* end() const noexcept { return values_.end(); }

  /// Adds a row of Columns() values below the others; a table without columns takes its width from the row.
  void AppendRow(cow_Sequence<T> const& row) {
    if (columns_ == 0) { columns_ = row.Size(); }
    assert(row.Size() == columns_);
    for (T const& value : row) { values_.Append(value); }
    ++rows_;
  }

  friend bool operator==(cow_2DArray const& left, cow_2DArray const& right) {
    return left.rows_ == right.rows_ && left.columns_ == right.columns_ && left.values_ == right.values_;
  }

private:
  std::size_t Index(std::size_t row, std::size_t column) const {
    if (row >= rows_) { cow_RefuseIndex(row, rows_); }
    if (column >= columns_) { cow_RefuseIndex(column, columns_); }
    return row * columns_ + column;
  }

  cow_Sequence<T> values_;
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
};
