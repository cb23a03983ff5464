#pragma once

#include <cstddef>
#include <initializer_list>
#include <variant>

#include "platform/BasicUtils/cow_List.h"
#include "platform/BasicUtils/cow_String.h"

/// A text or an integer.
using omu_PrimValue = std::variant<cow_String, int>;

/// A few primitive values in order, such as {"Insert", name, -99}. Copies share the values.
class omu_PrimTuple {
public:
  omu_PrimTuple() noexcept = default;
  omu_PrimTuple(std::initializer_list<omu_PrimValue> values) : values_(values) {}

  std::size_t Size() const noexcept { return values_.Size(); }
  omu_PrimValue const& operator[](std::size_t index) const { return values_[index]; }
  omu_PrimValue const* begin() const noexcept { return values_.begin(); }
  omu_PrimValue const* end() const noexcept { return values_.end(); }

  friend bool operator==(omu_PrimTuple const&, omu_PrimTuple const&) = default;

private:
  cow_List<omu_PrimValue> values_;
};
