#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/BasicUtils/mem_Counted.h"
#include "platform/CoreUtils/ddb_Export.h"

/// An immutable text whose characters are shared by all its copies: names of steps, sets and attributes, which many
/// records hold. One pointer wide; the empty text owns nothing. Copying costs one count, making one allocation.
class DDB_API cow_String {
public:
  cow_String() noexcept = default;
  /// A null pointer gives the empty text.
  cow_String(char const* text) : cow_String(std::string_view(text != nullptr ? text : "")) {}
  cow_String(std::string_view text) : body_(text.empty() ? nullptr : MakeBody(text)) {}
  cow_String(std::string const& text) : cow_String(std::string_view(text)) {}

  cow_String(cow_String const& other) noexcept : body_(other.body_) {
    if (body_ != nullptr) { body_->Retain(); }
  }
  cow_String(cow_String&& other) noexcept : body_(std::exchange(other.body_, nullptr)) {}
  cow_String& operator=(cow_String other) noexcept {
    std::swap(body_, other.body_);
    return *this;
  }
  ~cow_String() {
    if (body_ != nullptr && body_->Release()) { DestroyBody(body_); }
  }

  /// Ends with a zero; a text may also hold zeros inside.
  char const* c_str() const noexcept { return body_ != nullptr ? body_->Characters() : ""; }
  std::size_t Size() const noexcept { return body_ != nullptr ? body_->size : 0; }
  bool IsEmpty() const noexcept { return body_ == nullptr; }
  std::string_view View() const noexcept { return {c_str(), Size()}; }
  operator std::string_view() const noexcept { return View(); }

  friend bool operator==(cow_String const& left, cow_String const& right) noexcept {
    return left.body_ == right.body_ || left.View() == right.View();
  }
  friend std::strong_ordering operator<=>(cow_String const& left, cow_String const& right) noexcept {
    return left.body_ == right.body_ ? std::strong_ordering::equal : left.View() <=> right.View();
  }
  template <std::convertible_to<std::string_view> Text> friend bool operator==(cow_String const& left, Text const& right) noexcept {
    return left.View() == std::string_view(right);
  }
  template <std::convertible_to<std::string_view> Text>
  friend std::strong_ordering operator<=>(cow_String const& left, Text const& right) noexcept {
    return left.View() <=> std::string_view(right);
  }

private:
  /// Count and length; the characters and a closing zero follow in the same allocation.
  struct Body : mem_Counted {
    std::size_t size = 0;
    char const* Characters() const noexcept { return reinterpret_cast<char const*>(this + 1); }
  };
  static Body const* MakeBody(std::string_view text);
  static void DestroyBody(Body const* body) noexcept;

  Body const* body_ = nullptr;  // one share of it is ours
};

template <> struct std::hash<cow_String> {
  std::size_t operator()(cow_String const& text) const noexcept { return std::hash<std::string_view>{}(text.View()); }
};
