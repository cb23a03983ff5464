#pragma once

#include <cstddef>
#include <utility>

#include "platform/BasicUtils/cow_List.h"
#include "platform/CaeUtils/omu_PrimTuple.h"
#include "platform/CoreUtils/ddb_Export.h"

/// The changes made to a model's repositories, oldest first, one tuple each. Edits write to the history of their
/// thread, thr_ThreadSingleton<omu_ChangeHistory>::Instance(); whoever edits several models in one thread swaps each
/// model's history in and out. To go back, remember Size() and truncate: that keeps Append() at O(1), whereas the
/// first Append() after a copy copies the list.
class DDB_API omu_ChangeHistory {
public:
  std::size_t Size() const noexcept { return records_.Size(); }
  bool IsEmpty() const noexcept { return records_.IsEmpty(); }
  omu_PrimTuple const& operator[](std::size_t index) const { return records_[index]; }
  omu_PrimTuple const* begin() const noexcept { return records_.begin(); }
  omu_PrimTuple const* end() const noexcept { return records_.end(); }

  void Append(omu_PrimTuple record) { records_.Append(std::move(record)); }
  /// Forgets the records from \p size on.
  void TruncateTo(std::size_t size) { records_.TruncateTo(size); }
  /// O(1).
  void Swap(omu_ChangeHistory& other) noexcept { std::swap(records_, other.records_); }

private:
  cow_List<omu_PrimTuple> records_;
};
