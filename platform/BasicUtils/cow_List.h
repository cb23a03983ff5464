#pragma once

#include <cstddef>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/BasicUtils/cow_Handle.h"
#include "platform/CoreUtils/ddb_Export.h"

/// Refuses the index of a value that is not there: a std::out_of_range that names index and size.
[[noreturn]] DDB_API void cow_RefuseIndex(std::size_t index, std::size_t size);

/// What the copy-on-write sequences have in common: values in order, contiguous, in one body that copies share until
/// one of them is changed. One pointer wide; the empty sequence owns nothing. Copying costs one count; the first
/// change after a copy costs a copy of all values, further changes what they cost in a std::vector.
/// Indices count from 0; one that does not exist is refused (cow_RefuseIndex). References and iterators are good until the
/// next change.
template <class T> class cow_Sequence {
  static_assert(!std::is_same_v<T, bool>, "std::vector<bool> has no bool to refer to: use a list of char");

public:
  using value_type = T;

  cow_Sequence() noexcept = default;
  cow_Sequence(std::initializer_list<T> values) : cow_Sequence(std::vector<T>(values)) {}
  explicit cow_Sequence(std::vector<T> values) {
    if (!values.empty()) { body_ = cow_Handle<Body>::Make(std::move(values)); }
  }
  /// \p size copies of \p value.
  cow_Sequence(std::size_t size, T const& value) : cow_Sequence(std::vector<T>(size, value)) {}

  std::size_t Size() const noexcept { return body_ ? body_->values.size() : 0; }
  bool IsEmpty() const noexcept { return Size() == 0; }
  T const& operator[](std::size_t index) const { return ConstGet(index); }
  T const& ConstGet(std::size_t index) const {
    AssertIndex(index, Size());
    return body_->values[index];
  }
  T const* begin() const noexcept { return body_ ? body_->values.data() : nullptr; }
  T const* end() const noexcept { return begin() + Size(); }

  /// The value at \p index, to be changed.
  T& Get(std::size_t index) {
    AssertIndex(index, Size());
    return Values()[index];
  }
  void Reserve(std::size_t size) { Values().reserve(size); }
  void Append(T value) { Values().push_back(std::move(value)); }
  /// \p index may be Size(): then the value is appended.
  void Insert(std::size_t index, T value) {
    AssertIndex(index, Size() + 1);
    std::vector<T>& values = Values();
    values.insert(values.begin() + static_cast<std::ptrdiff_t>(index), std::move(value));
  }
  void Remove(std::size_t index) {
    AssertIndex(index, Size());
    std::vector<T>& values = Values();
    values.erase(values.begin() + static_cast<std::ptrdiff_t>(index));
  }
  /// Removes the values from \p size on; nothing happens when there are none.
  void TruncateTo(std::size_t size) {
    if (size == 0) {
      Clear();
    } else if (size < Size()) {
      std::vector<T>& values = Values();
      values.erase(values.begin() + static_cast<std::ptrdiff_t>(size), values.end());
    }
  }
  void Clear() noexcept { body_.Reset(); }

  /// Whether both share one body, so that they are equal without looking; two empty sequences do.
  bool Same(cow_Sequence const& other) const noexcept { return body_.Same(other.body_); }
  friend bool operator==(cow_Sequence const& left, cow_Sequence const& right) {
    if (left.Same(right)) { return true; }
    if (left.Size() != right.Size()) { return false; }
    for (std::size_t i = 0; i < left.Size(); ++i) {
      if (!(left[i] == right[i])) { return false; }
    }
    return true;
  }

private:
  struct Body : mem_Counted {
    Body() = default;
    explicit Body(std::vector<T> initial) noexcept : values(std::move(initial)) {}
    std::vector<T> values;
  };

  void AssertIndex(std::size_t index, std::size_t end) const {
    if (index >= end) { cow_RefuseIndex(index, Size()); }
  }
  std::vector<T>& Values() {
    if (!body_) { body_ = cow_Handle<Body>::Make(); }
    return body_.Get().values;
  }

  cow_Handle<Body> body_;
};

/// A list of values that grows and shrinks.
template <class T> class cow_List : public cow_Sequence<T> {
public:
  using cow_Sequence<T>::cow_Sequence;
};
