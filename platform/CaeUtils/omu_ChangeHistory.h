#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <utility>

#include "platform/BasicUtils/cow_List.h"
#include "platform/CaeUtils/omu_PrimTuple.h"
#include "platform/CoreUtils/ddb_Export.h"

/// What a change record tells of a name, and the tuple that it reads as.
enum class omu_ChangeKind : std::uint8_t {
  Insert,       ///< ("Insert", name, -99)
  Remove,       ///< ("Remove", name)
  Modify,       ///< ("Modify", name + ".")
  RedoSummary,  ///< ("RedoSummary"): of no name
};

/// The names that one change concerns, in order: those of a repository all of whose objects have changed. What it tells stays
/// as it is while a history holds it, so it is made over a snapshot.
class DDB_API omu_ChangedNames : public mem_Counted {
public:
  using Visitor = std::function<void(cow_String const& name)>;

  virtual ~omu_ChangedNames();
  virtual std::size_t Size() const = 0;
  /// Visits Size() names.
  virtual void ForEach(Visitor const& visit) const = 0;
};

/// The changes made to a model's repositories, oldest first. Edits write to the history of their thread,
/// thr_ThreadSingleton<omu_ChangeHistory>::Instance(); whoever edits several models in one thread swaps each model's
/// history in and out. To go back, remember Size() and truncate: that keeps Append() at O(1), whereas the first Append()
/// after a copy copies the list.
///
/// Many more changes are recorded than are ever read. A record is therefore kept as its kind and a share of its name, 16
/// bytes, and the modification of all objects of a repository, which counts as a record each, as one entry for all of
/// them; the tuples are made when they are read. To append costs the growth of a vector. A history with r entries for
/// whole repositories, and for tuples of other forms, is read by index in O(log r), within a repository's entry in the
/// number of its names; iteration makes the names of each such entry once.
class DDB_API omu_ChangeHistory {
public:
  class const_iterator;
  using value_type = omu_PrimTuple;

  std::size_t Size() const noexcept { return SizeOfRuns() + records_.Size(); }
  bool IsEmpty() const noexcept { return Size() == 0; }
  omu_PrimTuple operator[](std::size_t index) const;
  const_iterator begin() const noexcept;
  const_iterator end() const noexcept;

  void Append(omu_ChangeKind kind, cow_String name = {}) { records_.Append({std::move(name), kind}); }
  /// Of every name of \p names in order: Modify. As many records as there are names.
  void AppendModifiedAll(cow_Handle<omu_ChangedNames> names);
  /// A record of any form.
  void Append(omu_PrimTuple record);
  /// The records of another history from \p index on, as compactly as that one keeps them.
  void AppendFrom(omu_ChangeHistory const& other, std::size_t index = 0);
  /// Forgets the records from \p size on.
  void TruncateTo(std::size_t size);
  /// O(1).
  void Swap(omu_ChangeHistory& other) noexcept { std::swap(*this, other); }

private:
  struct Record {
    cow_String name;
    omu_ChangeKind kind;
  };
  static_assert(sizeof(Record) == 16);

  /// Records that stand together between those of records_: Modify of each of \p names, or the one \p tuple.
  struct Run {
    cow_Handle<omu_ChangedNames> names = {};
    omu_PrimTuple tuple = {};     // read where there are no names
    std::size_t skipped = 0;      // of the names, before the first one that counts
    std::size_t size = 1;         // never 0
    std::size_t begin = 0;        // number of the first record in the history
    std::size_t recordsLeft = 0;  // of records_, before the run
  };
  struct Place {
    std::size_t record;  // position in records_ of the record, or of the next one
    std::size_t run;     // the same in runs_
    bool isInRun;
    std::size_t offset;  // in the run
  };

  std::size_t SizeOfRuns() const noexcept;
  /// Where the record \p index stands; it may be the one that would come next.
  DDB_LOCAL Place Find(std::size_t index) const;
  DDB_LOCAL void AppendRun(Run run);
  DDB_LOCAL static omu_PrimTuple TupleOf(omu_ChangeKind kind, cow_String const& name);

  cow_List<Record> records_;
  cow_List<Run> runs_;
};

/// Visits the records in order, each as a tuple of its own. Good until the next change of the history.
class DDB_API omu_ChangeHistory::const_iterator {
public:
  using iterator_concept = std::forward_iterator_tag;
  using iterator_category = std::input_iterator_tag;
  using value_type = omu_PrimTuple;
  using difference_type = std::ptrdiff_t;
  using pointer = void;
  using reference = omu_PrimTuple;

  const_iterator() noexcept = default;

  omu_PrimTuple operator*() const;
  const_iterator& operator++() noexcept {
    ++index_;
    return *this;
  }
  const_iterator operator++(int) noexcept {
    const_iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const_iterator const& left, const_iterator const& right) noexcept { return left.index_ == right.index_; }

private:
  friend class omu_ChangeHistory;
  const_iterator(omu_ChangeHistory const* history, std::size_t index) noexcept : history_(history), index_(index) {}

  omu_ChangeHistory const* history_ = nullptr;
  std::size_t index_ = 0;
  mutable std::size_t run_ = ~std::size_t{0};  // whose names these are
  mutable cow_List<cow_String> names_;
};

inline omu_ChangeHistory::const_iterator omu_ChangeHistory::begin() const noexcept { return {this, 0}; }
inline omu_ChangeHistory::const_iterator omu_ChangeHistory::end() const noexcept { return {this, Size()}; }
