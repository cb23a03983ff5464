#include "platform/CoreUtils/atr_String.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>

namespace {

constexpr bool IsConversion(char c) { return c == 's' || c == 'd'; }

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// What a "%" begins: how many characters it takes, and the number of the argument that a positional one asks for.
struct Conversion {
  std::size_t size = 0;                 ///< 0: no conversion
  std::optional<std::size_t> position;  ///< counted from 1
};

/// \p text begins with "%".
Conversion ParseConversion(std::string_view text) {
  if (text.size() >= 2 && IsConversion(text[1])) { return {.size = 2, .position = std::nullopt}; }
  std::size_t at = 1;
  std::size_t position = 0;
  constexpr std::size_t kMostDigits = 4;  // no message has more arguments, and the number cannot overflow
  while (at < text.size() && at <= kMostDigits && IsDigit(text[at])) {
    position = position * 10 + static_cast<std::size_t>(text[at] - '0');
    ++at;
  }
  bool const isPositional = at > 1 && at + 1 < text.size() && text[at] == '$' && IsConversion(text[at + 1]);
  return isPositional ? Conversion{.size = at + 2, .position = position} : Conversion{};
}

}  // namespace

atr_String atr_translate(char const* text) { return {text}; }

atr_String atr_SubstituteFormat(atr_String const& format, std::initializer_list<std::string_view> arguments) {
  std::span const values(arguments.begin(), arguments.size());
  std::string result;
  std::size_t inTurn = 0;
  std::string_view rest = format.View();
  while (!rest.empty()) {
    std::size_t const plain = std::min(rest.find('%'), rest.size());
    result += rest.substr(0, plain);
    rest.remove_prefix(plain);
    if (rest.empty()) { break; }
    if (rest.starts_with("%%")) {
      result += '%';
      rest.remove_prefix(2);
      continue;
    }
    Conversion const found = ParseConversion(rest);
    std::size_t const taken = found.size != 0 ? found.size : 1;
    // Position 0 does not exist: it wraps around to a number that no argument has.
    std::size_t const index = found.position ? *found.position - 1 : inTurn;
    if (found.size != 0 && index < values.size()) {
      result += values[index];
      inTurn += found.position ? 0 : 1;
    } else {
      result += rest.substr(0, taken);
    }
    rest.remove_prefix(taken);
  }
  return {std::move(result)};
}
