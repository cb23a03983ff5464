#pragma once

#include "platform/BasicUtils/cow_Handle.h"
#include "platform/BasicUtils/cow_Map.h"

/// Shared objects by a number that is given once and never again: what is handed out by number stays findable while
/// objects come and go.
template <class T> class mdl_IdRepositoryOfCows {
public:
  /// Takes \p object and returns its number, counted from 1.
  int Insert(cow_Handle<T> object) {
    objects_.Insert(++last_, std::move(object));
    return last_;
  }
  bool Remove(int id) { return objects_.Remove(id); }
  /// The object for reading, or null.
  T const* ConstGet(int id) const {
    cow_Handle<T> const* found = objects_.ConstFind(id);
    return found == nullptr ? nullptr : found->ConstGet();
  }
  /// The object for change, separated from all who share it; null when there is none.
  T* Get(int id) {
    cow_Handle<T>* found = objects_.Get(id);
    return found == nullptr ? nullptr : &found->Get();
  }
  std::size_t Size() const { return objects_.Size(); }

private:
  cow_Map<int, cow_Handle<T>> objects_;
  int last_ = 0;
};
