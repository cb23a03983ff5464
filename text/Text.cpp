#include "text/Text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace gattr {

namespace {

constexpr std::size_t kLongestShown = 80;

/// The length of the well-formed UTF-8 character that \p text starts with; 0 when it starts with none.
std::size_t CharacterSize(std::string_view text) {
  auto const byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
  unsigned const first = byte(0);
  if (first < 0x80) { return 1; }
  std::size_t const size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4) { return 0; }
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0) != 0x80) { return 0; }
  }
  unsigned const second = byte(1);
  bool const overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  bool const surrogate = first == 0xED && second >= 0xA0;
  bool const beyond = first == 0xF4 && second >= 0x90;
  return overlong || surrogate || beyond ? 0 : size;
}

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

/// Edits that turn \p a into \p b: Levenshtein's, with the exchange of neighbours (optimal string alignment).
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before(b.size() + 1), last(b.size() + 1), now(b.size() + 1);
  std::iota(last.begin(), last.end(), 0U);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    now[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      bool const same = Lower(a[i - 1]) == Lower(b[j - 1]);
      now[j] = std::min({last[j] + 1, now[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
      bool const exchanged = i > 1 && j > 1 && Lower(a[i - 1]) == Lower(b[j - 2]) && Lower(a[i - 2]) == Lower(b[j - 1]);
      if (exchanged) { now[j] = std::min(now[j], before[j - 2] + 1); }
    }
    before.swap(last);
    last.swap(now);
  }
  return last[b.size()];
}

/// Whether \p name goes on where \p text ends, case apart.
bool Begins(std::string_view text, std::string_view name) {
  return name.size() > text.size() && std::ranges::equal(text, name.substr(0, text.size()), {}, Lower, Lower);
}

/// Whether one of two words takes back what the other does: "activate" and "deactivate".
bool AreOpposite(std::string_view a, std::string_view b) {
  auto const negates = [](std::string_view prefix, std::string_view longer, std::string_view shorter) {
    return longer.size() == prefix.size() + shorter.size() && Begins(prefix, longer) &&
           std::ranges::equal(longer.substr(prefix.size()), shorter, {}, Lower, Lower);
  };
  return std::ranges::any_of(std::array<std::string_view, 3>{"de", "un", "in"},
                             [&](std::string_view prefix) { return negates(prefix, a, b) || negates(prefix, b, a); });
}

/// The name that somebody means with a word of the same sense, where there is that name.
std::string Meant(std::string_view text, std::span<std::string const> names) {
  struct Synonym {
    std::string_view said, meant;
  };
  static constexpr Synonym kSynonyms[] = {
      {"activate", "reset"},         {"force", "ConcentratedForce"}, {"modify", "setValuesInStep"}, {"edit", "setValuesInStep"},
      {"change", "setValuesInStep"}, {"set", "setValues"},           {"switchOff", "deactivate"},   {"erase", "delete"},
      {"enable", "resume"},          {"disable", "suppress"},
  };
  auto const synonym =
      std::ranges::find_if(kSynonyms, [text](Synonym const& row) { return std::ranges::equal(row.said, text, {}, Lower, Lower); });
  if (synonym == std::end(kSynonyms)) { return {}; }
  auto const name = std::ranges::find(names, synonym->meant);
  return name == names.end() ? "" : *name;
}

/// The words of a name: at capitals, digits and whatever is no letter.
std::vector<std::string_view> WordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  std::size_t begin = 0;
  auto const isLetter = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
  for (std::size_t at = 1; at <= text.size(); ++at) {
    bool const ends = at == text.size() || !isLetter(text[at]) || std::isupper(static_cast<unsigned char>(text[at])) != 0;
    if (!ends) { continue; }
    std::size_t const first = isLetter(text[begin]) ? begin : begin + 1;
    if (at > first + 2) { words.push_back(text.substr(first, at - first)); }
    begin = at;
  }
  return words;
}

/// The name that shares most words with \p text, a word being as good as its beginning; of equals the shortest. Empty where less than half
/// of the words are shared.
std::string NearestByWords(std::string_view text, std::span<std::string const> names) {
  std::vector<std::string_view> const said = WordsOf(text);
  auto const alike = [](std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, Lower, Lower) || Begins(a, b) || Begins(b, a);
  };
  std::string nearest;
  double best = 0.0;
  for (std::string const& name : names) {
    std::vector<std::string_view> const words = WordsOf(name);
    auto const shared = static_cast<double>(std::ranges::count_if(
        said, [&](std::string_view word) { return std::ranges::any_of(words, [&](auto other) { return alike(word, other); }); }));
    double const score =
        shared / static_cast<double>(std::max(said.size() + words.size(), std::size_t{1}) - static_cast<std::size_t>(shared));
    bool const enough = 2 * shared >= static_cast<double>(said.size()) && shared > 0;
    if (!enough || score < best || (score == best && name.size() >= nearest.size())) { continue; }
    best = score;
    nearest = name;
  }
  return nearest;
}

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  bool const plain = std::ranges::all_of(text, [](char c) { return c >= 0x20 && c < 0x7F; });
  if (plain && text.size() <= kLongestShown) { return quoted.append(text).append("\""); }
  while (!text.empty()) {
    if (quoted.size() > kLongestShown) { return quoted + "...\""; }
    std::size_t const size = CharacterSize(text);
    unsigned const first = static_cast<unsigned char>(text[0]);
    bool const c1 = size == 2 && first == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0;  // control characters too
    if (text[0] == '\n') {
      quoted += "\\n";
    } else if (size == 0 || c1 || first < 0x20 || first == 0x7F) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c1 ? static_cast<unsigned char>(text[1]) : first);
      quoted += escaped;
    } else {
      quoted += text.substr(0, size);
    }
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return quoted + "\"";
}

std::string SplitWords(std::string_view name, char between) {
  std::string words;
  for (char const c : name) {
    bool const begins = c >= 'A' && c <= 'Z';
    if (begins) { words += between; }
    words += begins ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return words;
}

std::string Counted(std::size_t count, std::string_view one) {
  return std::to_string(count).append(" ").append(one).append(count == 1 ? "" : "s");
}

std::string OneLine(std::string_view text) {
  std::string line;
  for (char const c : text) {
    bool const blank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
    if (!blank) {
      line += c;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  return line;
}

std::string WithArticle(std::string_view noun) {
  bool const isVowel = !noun.empty() && std::string_view("aeiou").find(noun.front()) != std::string_view::npos;
  return (isVowel ? "an " : "a ") + std::string(noun);
}

std::string QuotedList(std::span<std::string const> names, std::size_t shown) {
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), shown); ++i) { list += (i == 0 ? "" : ", ") + Quoted(names[i]); }
  if (names.size() > shown) { list += " and " + std::to_string(names.size() - shown) + " more"; }
  return list;
}

std::string Nearest(std::string_view text, std::span<std::string const> names) {
  constexpr std::size_t kLongestCompared = 200;
  if (text.size() > kLongestCompared) { return {}; }
  if (std::string meant = Meant(text, names); !meant.empty()) { return meant; }
  std::string nearest;
  std::size_t least = std::max<std::size_t>(2, text.size() / 3) + 1;
  for (std::string const& name : names) {
    std::size_t const apart = name.size() > text.size() ? name.size() - text.size() : text.size() - name.size();
    if (apart >= least || AreOpposite(text, name)) { continue; }
    std::size_t const distance = Distance(text, name);
    if (distance < least && distance < name.size()) {
      least = distance;
      nearest = name;
    }
  }
  if (!nearest.empty() || text.size() < 3) { return nearest; }
  for (std::string const& name : names) {  // a text that somebody left off
    if (Begins(text, name) && (nearest.empty() || name.size() < nearest.size())) { nearest = name; }
  }
  return nearest.empty() ? NearestByWords(text, names) : nearest;
}

std::string Suggestion(std::string_view text, std::span<std::string const> names, std::string_view known) {
  if (std::string const nearest = Nearest(text, names); !nearest.empty()) { return "Did you mean " + Quoted(nearest) + "?"; }
  if (names.empty()) { return "There are none."; }
  return std::string(known) + ": " + QuotedList(names) + ".";
}

std::string_view Digits(double number, char (&digits)[32]) {
  constexpr double kMost = 1e5;  // from here on a power of ten may be shorter
  auto const whole = static_cast<int>(std::abs(number) < kMost ? number : 0.0);
  bool const isWhole = static_cast<double>(whole) == number && !std::signbit(number);  // as most are, and quickly written
  char* const end = digits + sizeof digits;
  return {digits, isWhole ? std::to_chars(digits, end, whole).ptr : std::to_chars(digits, end, number).ptr};
}

bool IsUtf8(std::string_view text) {
  unsigned bits = 0;
  for (char const c : text) { bits |= static_cast<unsigned char>(c); }
  if ((bits & 0x80) == 0) { return true; }
  while (!text.empty()) {
    std::size_t const size = text[0] > 0 ? 1 : CharacterSize(text);
    if (size == 0) { return false; }
    text.remove_prefix(size);
  }
  return true;
}

bool Fits(std::string_view pattern, std::string_view name) {
  if (pattern == name) { return true; }
  std::size_t at = 0, in = 0, star = std::string_view::npos, from = 0;
  while (in < name.size()) {
    if (at < pattern.size() && pattern[at] == '*') {
      star = at++;
      from = in;
    } else if (at < pattern.size() && (pattern[at] == '?' || pattern[at] == name[in])) {
      ++at;
      ++in;
    } else if (star != std::string_view::npos) {  // the last star takes one more
      at = star + 1;
      in = ++from;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

}  // namespace gattr
