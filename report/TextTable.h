#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "report/Display.h"

namespace gattr {

/// A table of texts for a terminal, columns aligned; the last column is broken between words to fit the width. A column without any text is
/// left out.
class TextTable {
public:
  struct Cell {
    Cell(std::string_view text, Style cellStyle = Style::Plain) : shown(Shown(text)), style(cellStyle) {}
    Cell(std::string const& text, Style cellStyle = Style::Plain) : Cell(std::string_view(text), cellStyle) {}
    Cell(char const* text, Style cellStyle = Style::Plain) : Cell(std::string_view(text), cellStyle) {}

    std::string shown;
    Style style;
  };
  using Row = std::vector<Cell>;

  /// Names the columns.
  explicit TextTable(std::vector<std::string> header) : header_(std::move(header)) {}

  void Add(Row row) { rows_.push_back(std::move(row)); }
  bool IsEmpty() const { return rows_.empty(); }

  /// Writes the table. A \p width of 0 is unlimited; the last column is broken between words to fit it.
  void Print(std::ostream& out, std::size_t width, bool color) const;

private:
  std::vector<std::string> header_;
  std::vector<Row> rows_;
};

/// Breaks a shown text between words into lines of at most \p width columns; a longer word has a line of its own. One line
/// where the width is 0.
std::vector<std::string> WrappedLines(std::string_view shown, std::size_t width);

}  // namespace gattr
