#include "report/Display.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

#include "command/Origins.h"

namespace gattr {
namespace {

struct Range {
  char32_t first, last;
};

bool In(std::span<Range const> ranges, char32_t point) {
  auto const* range =
      std::lower_bound(ranges.data(), ranges.data() + ranges.size(), point, [](Range const& a, char32_t value) { return a.last < value; });
  return range != ranges.data() + ranges.size() && range->first <= point;
}

// Controls, invisible characters and what turns the direction of a line. Joiners stay: scripts need them to be read.
constexpr Range kActing[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F}, {0x00AD, 0x00AD}, {0x061C, 0x061C}, {0x115F, 0x1160},
    {0x180E, 0x180E}, {0x200B, 0x200B}, {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F},
    {0x3164, 0x3164}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xFFFE, 0xFFFF}, {0xE0000, 0xE007F},
};
// Combining marks of the scripts in common use, joiners, variation selectors.
constexpr Range kZeroWidth[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD},   {0x05BF, 0x05BF},   {0x05C1, 0x05C2}, {0x05C4, 0x05C5}, {0x05C7, 0x05C7},
    {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},   {0x06D6, 0x06DC},   {0x06DF, 0x06E4}, {0x06E7, 0x06E8}, {0x06EA, 0x06ED},
    {0x0900, 0x0902}, {0x093A, 0x093A}, {0x093C, 0x093C},   {0x0941, 0x0948},   {0x094D, 0x094D}, {0x0951, 0x0957}, {0x0962, 0x0963},
    {0x0981, 0x0981}, {0x09BC, 0x09BC}, {0x09C1, 0x09C4},   {0x09CD, 0x09CD},   {0x0A3C, 0x0A51}, {0x0A70, 0x0A71}, {0x0ABC, 0x0ABC},
    {0x0AC1, 0x0AC8}, {0x0ACD, 0x0ACD}, {0x0B3C, 0x0B3C},   {0x0B41, 0x0B44},   {0x0B4D, 0x0B56}, {0x0BC0, 0x0BC0}, {0x0BCD, 0x0BCD},
    {0x0C3E, 0x0C40}, {0x0C46, 0x0C56}, {0x0CBC, 0x0CBC},   {0x0CCC, 0x0CCD},   {0x0D41, 0x0D44}, {0x0D4D, 0x0D4D}, {0x0DCA, 0x0DCA},
    {0x0DD2, 0x0DD6}, {0x0E31, 0x0E31}, {0x0E34, 0x0E3A},   {0x0E47, 0x0E4E},   {0x0EB1, 0x0EB1}, {0x0EB4, 0x0EBC}, {0x0EC8, 0x0ECD},
    {0x1161, 0x11FF}, {0x1AB0, 0x1ACE}, {0x1DC0, 0x1DFF},   {0x200C, 0x200D},   {0x20D0, 0x20F0}, {0x302A, 0x302D}, {0x3099, 0x309A},
    {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0x1F3FB, 0x1F3FF}, {0xE0100, 0xE01EF},
};
// East Asian wide and fullwidth characters, and emoji shown as pictures.
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x23E9, 0x23EC},   {0x23F0, 0x23F0},   {0x23F3, 0x23F3},
    {0x25FD, 0x25FE},   {0x2614, 0x2615},   {0x2648, 0x2653},   {0x267F, 0x267F},   {0x2693, 0x2693},   {0x26A1, 0x26A1},
    {0x26AA, 0x26AB},   {0x26BD, 0x26BE},   {0x26C4, 0x26C5},   {0x26CE, 0x26CE},   {0x26D4, 0x26D4},   {0x26EA, 0x26EA},
    {0x26F2, 0x26F3},   {0x26F5, 0x26F5},   {0x26FA, 0x26FA},   {0x26FD, 0x26FD},   {0x2705, 0x2705},   {0x270A, 0x270B},
    {0x2728, 0x2728},   {0x274C, 0x274C},   {0x274E, 0x274E},   {0x2753, 0x2755},   {0x2757, 0x2757},   {0x2795, 0x2797},
    {0x27B0, 0x27B0},   {0x27BF, 0x27BF},   {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},   {0x2B55, 0x2B55},   {0x2E80, 0x303E},
    {0x3041, 0x3247},   {0x3250, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97C},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE10, 0xFE19},   {0xFE30, 0xFE6B},   {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},   {0x16FE0, 0x18CFF}, {0x1B000, 0x1B2FB},
    {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF}, {0x1F18E, 0x1F18E}, {0x1F191, 0x1F19A}, {0x1F200, 0x1F320}, {0x1F32D, 0x1F335},
    {0x1F337, 0x1F37C}, {0x1F37E, 0x1F393}, {0x1F3A0, 0x1F3CA}, {0x1F3CF, 0x1F3D3}, {0x1F3E0, 0x1F3F0}, {0x1F3F4, 0x1F3F4},
    {0x1F3F8, 0x1F43E}, {0x1F440, 0x1F440}, {0x1F442, 0x1F4FC}, {0x1F4FF, 0x1F53D}, {0x1F54B, 0x1F54E}, {0x1F550, 0x1F567},
    {0x1F57A, 0x1F57A}, {0x1F595, 0x1F596}, {0x1F5A4, 0x1F5A4}, {0x1F5FB, 0x1F64F}, {0x1F680, 0x1F6C5}, {0x1F6CC, 0x1F6CC},
    {0x1F6D0, 0x1F6D2}, {0x1F6D5, 0x1F6DF}, {0x1F6EB, 0x1F6EC}, {0x1F6F4, 0x1F6FC}, {0x1F7E0, 0x1F7F0}, {0x1F90C, 0x1F93A},
    {0x1F93C, 0x1F945}, {0x1F947, 0x1F9FF}, {0x1FA70, 0x1FAFF}, {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD},
};

constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// Takes one code point from the front of \p text; kNoCharacter, and one byte, where there is none.
char32_t Take(std::string_view& text) {
  auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned const lead = byte(0);
  std::size_t const length = lead < 0x80                   ? 1
                             : lead >= 0xC2 && lead < 0xE0 ? 2
                             : lead >= 0xE0 && lead < 0xF0 ? 3
                             : lead >= 0xF0 && lead < 0xF5 ? 4
                                                           : 0;
  char32_t point = length <= 1 ? lead : lead & (0x7FU >> length);
  bool good = length != 0 && length <= text.size();
  for (std::size_t i = 1; good && i < length; ++i) {
    good = (byte(i) & 0xC0U) == 0x80;
    point = point << 6 | (byte(i) & 0x3FU);
  }
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  good = good && point >= kLeast[length] && point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
  text.remove_prefix(good ? length : 1);
  return good ? point : kNoCharacter;
}

std::string Hex(char32_t value, std::size_t digits) {
  std::string text(digits, '0');
  for (std::size_t i = digits; i > 0; value >>= 4) { text[--i] = "0123456789abcdef"[value & 0xF]; }
  return text;
}

/// Copies \p text with every acting code point and every stray byte replaced by what \p escape makes of it.
template <class Escape> std::string Escaped(std::string_view text, Escape&& escape) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    std::string_view const before = text;
    char32_t const point = Take(text);
    std::string_view const bytes = before.substr(0, before.size() - text.size());
    point == kNoCharacter || In(kActing, point) ? out += escape(point, bytes) : out += bytes;
  }
  return out;
}

std::string Written(Json const& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

bool HoldsNested(Json const& value) {
  return std::any_of(value.begin(), value.end(), [](Json const& item) { return item.is_structured() && !item.empty(); });
}

/// Objects and lists over several lines down to \p depth levels, on one line below.
void Write(std::string& out, Json const& value, std::size_t indent, bool page) {
  if (!value.is_structured()) {
    out += Written(value);
    return;
  }
  bool const object = value.is_object();
  bool const open = page && !value.empty() && (indent == 0 || HoldsNested(value));
  out += object ? '{' : '[';
  char const* separator = "";
  for (auto item = value.begin(); item != value.end(); ++item) {
    out += separator;
    if (open) { out.append("\n").append(indent + 2, ' '); }
    if (object) { out.append(Written(item.key())).append(": "); }
    Write(out, *item, indent + 2, page);
    separator = open ? "," : ", ";
  }
  if (open) { out.append("\n").append(indent, ' '); }
  out += object ? '}' : ']';
}

std::string WrittenJson(Json const& value, bool page) {
  std::string out;
  Write(out, value, 0, page);
  return JsonEscaped(out);
}

}  // namespace

// acting code points stand in texts only
std::string JsonEscaped(std::string_view written) {
  return Escaped(written, [](char32_t point, std::string_view bytes) -> std::string {
    if (point == '\n') { return "\n"; }  // between the lines of a page; inside a text the writer has escaped it
    if (point == kNoCharacter) { return std::string(bytes); }
    if (point < 0x10000) { return "\\u" + Hex(point, 4); }
    return "\\u" + Hex(0xD800 + ((point - 0x10000) >> 10), 4) + "\\u" + Hex(0xDC00 + ((point - 0x10000) & 0x3FF), 4);
  });
}

std::string Shown(std::string_view text) {
  return Escaped(text, [](char32_t point, std::string_view bytes) -> std::string {
    switch (point) {
      case '\n': return "\\n";
      case '\r': return "\\r";
      case '\t': return "\\t";
      case kNoCharacter: return "\\x" + Hex(static_cast<unsigned char>(bytes[0]), 2);
      default: return point < 0x10000 ? "\\u" + Hex(point, 4) : "\\U" + Hex(point, 8);
    }
  });
}

std::string ShownLines(std::string_view text) {
  std::string shown;
  for (std::size_t end = 0; end != std::string_view::npos; text.remove_prefix(end == std::string_view::npos ? 0 : end + 1)) {
    end = text.find_first_of("\n\t");
    shown += Shown(text.substr(0, end));
    if (end != std::string_view::npos) { shown += text[end]; }
  }
  return shown;
}

std::size_t Width(std::string_view shown) {
  std::size_t width = 0;
  while (!shown.empty()) {
    char32_t const point = Take(shown);
    width += In(kZeroWidth, point) ? 0 : In(kWide, point) ? 2 : 1;
  }
  return width;
}

std::string Fitted(std::string_view shown, std::size_t width) {
  std::size_t const whole = Width(shown);
  if (whole <= width) { return std::string(shown).append(width - whole, ' '); }
  std::size_t used = 0;
  std::string_view rest = shown, fits = shown.substr(0, 0);
  while (!rest.empty()) {
    std::string_view next = rest;
    Take(next);
    std::size_t const more = Width(rest.substr(0, rest.size() - next.size()));
    if (used + more + 1 > width) { break; }
    used += more;
    rest = next;
    fits = shown.substr(0, shown.size() - rest.size());
  }
  return width == 0 ? "" : std::string(fits).append("…").append(width - used - 1, ' ');
}

std::string_view StyleOn(Style style) {
  constexpr std::string_view kOn[] = {"", "\033[1m", "\033[2m", "\033[1;32m", "\033[32m", "\033[1;33m", "\033[31m", "\033[36m"};
  return kOn[static_cast<std::size_t>(style)];
}

std::string_view StyleOff(Style style) { return style == Style::Plain ? "" : "\033[0m"; }

std::string Styled(std::string_view text, Style style, bool color) {
  if (!color) { return std::string(text); }
  return std::string(StyleOn(style)).append(text).append(StyleOff(style));
}

std::string CsvField(std::string_view text) {
  std::string field = Shown(text);
  if (!field.empty() && std::string_view("=+-@").find(field.front()) != std::string_view::npos) { field.insert(0, 1, '\''); }
  bool const blank = !field.empty() && (field.front() == ' ' || field.back() == ' ');
  if (!blank && field.find_first_of(",;\"") == std::string::npos) { return field; }
  std::string quoted = "\"";
  for (char const c : field) { quoted.append(c == '"' ? 2 : 1, c); }
  return quoted += '"';
}

std::string CsvValue(cls_Value const& value) {
  bool const isNumber = value.As<double>() != nullptr || value.As<long long>() != nullptr;
  return isNumber ? ValueText(value) : CsvField(value.IsNull() ? "" : ValueText(value));
}

std::string HtmlContent(std::string_view text) {
  std::string html;
  for (char const c : Shown(text)) {
    switch (c) {
      case '&': html += "&amp;"; break;
      case '<': html += "&lt;"; break;
      case '>': html += "&gt;"; break;
      default: html += c;
    }
  }
  return html;
}

std::string HtmlText(std::string_view text) {
  std::string html;
  for (char const c : HtmlContent(text)) { c == '"' ? html += "&quot;" : c == '\'' ? html += "&#39;" : html += c; }
  return html;
}

std::string JsonLine(Json const& value) { return WrittenJson(value, false); }
std::string JsonPage(Json const& value) { return WrittenJson(value, true); }

}  // namespace gattr
