#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "platform/CoreUtils/ddb_Export.h"

/// Identity of a persistent object. A writer uses it to write an object that several owners share only once.
///
/// An identity is unique in the process. It has two parts so that the elements of a list, which need no storage for an
/// identity of their own, can be told apart: an element is named by the list's number and its own. All numbers come from one
/// source, so what is named by a number alone, an element or a member never take each other's identity.
class DDB_API cls_Uid {
public:
  /// The null identity: of nothing.
  constexpr cls_Uid() = default;

  /// A fresh number, all that an owner keeps of its identity: never 0, given once, below 2^kNumberBits. Each thread takes
  /// numbers in blocks: they rise within a thread, and cost no more than a look at the thread's own block. Thread safe.
  static std::uint64_t AllocateNumber() {
    if (last_ % kBlock == 0) { TakeBlock(); }
    return ++last_;
  }
  static constexpr int kNumberBits = 56;  // lasts for two years at a number every nanosecond
  /// The identity of an object that keeps \p number, from AllocateNumber.
  static constexpr cls_Uid OfObject(std::uint64_t number) { return {number, 0}; }
  /// The identity of an element of the list \p owner, known by a number of the list's own.
  static constexpr cls_Uid OfElement(cls_Uid owner, std::uint64_t part) { return {owner.number_, part}; }
  /// The identity of a member that keeps \p number, from AllocateNumber.
  static constexpr cls_Uid OfMember(std::uint64_t number) { return {number, kMemberPart}; }

  constexpr bool IsNull() const { return number_ == 0; }
  constexpr std::uint64_t Number() const { return number_; }
  constexpr std::uint64_t Part() const { return part_; }

  friend constexpr auto operator<=>(cls_Uid const&, cls_Uid const&) = default;

private:
  constexpr cls_Uid(std::uint64_t number, std::uint64_t part) : number_(number), part_(part) {}

  static void TakeBlock();

  static constexpr std::uint64_t kMemberPart = ~std::uint64_t{0};  // no number: the part of no element
  static constexpr std::uint64_t kBlock = 4096;
  // given last to the thread, in its own block of the program: a look at it is no call
  [[gnu::tls_model("initial-exec")]] constinit static thread_local std::uint64_t last_;

  std::uint64_t number_ = 0;
  std::uint64_t part_ = 0;
};

template <> struct std::hash<cls_Uid> {
  std::size_t operator()(cls_Uid const& uid) const noexcept {
    return static_cast<std::size_t>(uid.Number() * 0x9E3779B97F4A7C15ULL ^ uid.Part());
  }
};
