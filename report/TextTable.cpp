#include "report/TextTable.h"

#include <algorithm>
#include <ostream>

namespace gattr {
namespace {
constexpr std::size_t kColumnGap = 2;
constexpr std::size_t kLeastLast = 24;  // a last column narrower than this is left to run over
}  // namespace

std::vector<std::string> WrappedLines(std::string_view shown, std::size_t width) {
  std::vector<std::string> lines;
  std::size_t used = 0;
  while (!shown.empty() && width > 0) {
    std::size_t const end = std::min(shown.find(' '), shown.size());
    std::string_view const word = shown.substr(0, end);
    std::size_t const more = Width(word);
    if (lines.empty() || used + 1 + more > width) {
      lines.emplace_back(word);
      used = more;
    } else {
      lines.back().append(" ").append(word);
      used += 1 + more;
    }
    shown.remove_prefix(std::min(end + 1, shown.size()));
  }
  if (lines.empty()) { lines.emplace_back(shown); }
  return lines;
}

void TextTable::Print(std::ostream& out, std::size_t width, bool color) const {
  std::vector<std::size_t> widths(header_.size());
  for (Row const& row : rows_) {
    for (std::size_t c = 0; c < row.size(); ++c) { widths[c] = std::max(widths[c], Width(row[c].shown)); }
  }
  std::vector<std::size_t> columns;
  for (std::size_t c = 0; c < header_.size(); ++c) {
    if (widths[c] > 0 || rows_.empty()) { columns.push_back(c); }
    widths[c] = std::max(widths[c], Width(header_[c]));
  }
  std::size_t const last = columns.back();
  columns.pop_back();
  std::size_t before = 0;
  for (std::size_t const c : columns) { before += widths[c] + kColumnGap; }
  std::size_t const room = width > before + kLeastLast ? width - before : 0;

  auto const print = [&](auto const& textOf, auto const& styleOf) {
    std::vector<std::string> const lines = WrappedLines(textOf(last), room);
    for (std::size_t line = 0; line < lines.size(); ++line) {
      std::string text;
      for (std::size_t const c : columns) {
        std::string const shown = line == 0 ? textOf(c) : "";
        text += Styled(shown, shown.empty() ? Style::Plain : styleOf(c), color);
        text.append(widths[c] + kColumnGap - Width(shown), ' ');
      }
      text += Styled(lines[line], lines[line].empty() ? Style::Plain : styleOf(last), color);
      text.erase(text.find_last_not_of(' ') + 1);
      out << text << '\n';
    }
  };
  print([&](std::size_t c) { return header_[c]; }, [](std::size_t) { return Style::Strong; });
  for (Row const& row : rows_) {
    print([&](std::size_t c) { return row[c].shown; }, [&](std::size_t c) { return row[c].style; });
  }
}

}  // namespace gattr
