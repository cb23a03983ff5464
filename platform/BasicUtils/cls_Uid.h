#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "platform/CoreUtils/ddb_Export.h"

/// Identity of a persistent object. A writer uses it to write an object that several owners share only once.
///
/// An identity is unique in the process. It has two parts so that the elements of a list, which need no storage for an
/// identity of their own, can be told apart: an element is named by the list's number and its own.
class DDB_API cls_Uid {
public:
  /// The null identity: of nothing.
  constexpr cls_Uid() = default;

  /// A fresh identity. Thread safe.
  static cls_Uid AllocateUid();
  /// The identity of the element \p part of the list \p owner.
  static constexpr cls_Uid OfElement(cls_Uid owner, cls_Uid part) { return {owner.number_, part.number_}; }

  constexpr bool IsNull() const { return number_ == 0; }
  constexpr std::uint64_t Number() const { return number_; }
  constexpr std::uint64_t Part() const { return part_; }

  friend constexpr auto operator<=>(cls_Uid const&, cls_Uid const&) = default;

private:
  constexpr cls_Uid(std::uint64_t number, std::uint64_t part) : number_(number), part_(part) {}

  std::uint64_t number_ = 0;
  std::uint64_t part_ = 0;
};

template <> struct std::hash<cls_Uid> {
  std::size_t operator()(cls_Uid const& uid) const noexcept {
    return static_cast<std::size_t>(uid.Number() * 0x9E3779B97F4A7C15ULL ^ uid.Part());
  }
};
