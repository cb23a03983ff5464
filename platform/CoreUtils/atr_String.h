#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "platform/CoreUtils/ddb_Export.h"

/// The text of a message, ready to be shown to a person. Names and other data are held as cow_String instead.
class DDB_API atr_String {
public:
  atr_String() = default;
  /// A null pointer gives the empty text.
  atr_String(char const* text) : text_(text != nullptr ? text : "") {}
  atr_String(std::string_view text) : text_(text) {}
  atr_String(std::string text) noexcept : text_(std::move(text)) {}

  char const* c_str() const noexcept { return text_.c_str(); }
  std::string_view View() const noexcept { return text_; }
  operator std::string_view() const noexcept { return text_; }
  bool IsEmpty() const noexcept { return text_.empty(); }

  template <std::convertible_to<std::string_view> Text> friend bool operator==(atr_String const& left, Text const& right) noexcept {
    return left.View() == std::string_view(right);
  }

private:
  std::string text_;
};

/// The text of a message in the user's language. Messages are English and fixed, so this is the text itself; every
/// message that is to be shown passes here all the same, which keeps one door for a translation.
DDB_API atr_String atr_translate(char const* text);

/// Puts \p arguments in the place of the conversions of \p format: "%1$s" takes the argument of that number, "%s" and
/// "%d" take the next one in turn (the numbered ones do not count), "%%" gives "%". A conversion without an argument
/// and a "%" before anything else stay as they are written. Arguments are inserted as they are, never searched.
DDB_API atr_String atr_SubstituteFormat(atr_String const& format, std::initializer_list<std::string_view> arguments);
