#pragma once

#include <concepts>
#include <cstddef>
#include <string_view>

/// A text that is fixed in the code, such as a member's name: a view of a string literal, free to copy, and known
/// to the compiler. It can be built from literals only, so that it never outlives its characters.
class omn_FixedString {
public:
  constexpr omn_FixedString() noexcept = default;
  template <std::size_t N> consteval omn_FixedString(char const (&literal)[N]) noexcept : text_(literal), size_(N - 1) {}

  constexpr char const* c_str() const noexcept { return text_; }
  constexpr std::size_t Size() const noexcept { return size_; }
  constexpr std::string_view View() const noexcept { return {text_, size_}; }
  constexpr operator std::string_view() const noexcept { return View(); }

  template <std::convertible_to<std::string_view> Text> friend constexpr bool operator==(omn_FixedString left, Text const& right) noexcept {
    return left.View() == std::string_view(right);
  }

private:
  char const* text_ = "";
  std::size_t size_ = 0;
};
