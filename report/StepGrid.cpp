#include "report/StepGrid.h"

#include <algorithm>
#include <ostream>

namespace gattr {

namespace {

/// The table, block by block.
class GridPage {
public:
  GridPage(std::ostream& out, StepGrid const& grid, TextLayout const& layout) : out_(out), grid_(grid), layout_(layout) {
    for (std::size_t i = 0; i < grid.steps.size(); ++i) {
      Column column{Shown(grid.steps[i].name), Shown(grid.steps[i].procedure), 0};
      column.width = std::max(std::min(Width(column.name), kLongestStepName), std::min(Width(column.procedure), kLongestProcedure));
      std::string last;
      for (std::size_t r = 0; r < grid.rows.size(); ++r) {
        std::string text = grid.cell(r, i).text;
        if (text == last) { continue; }
        column.width = std::max(column.width, std::min(Width(Shown(text)), kLongestCell));
        last = std::move(text);
      }
      columns_.push_back(std::move(column));
    }
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      widths_[i] = Width(grid.header[i]);
      for (StepGrid::Lead const& row : grid.rows) { widths_[i] = std::max(widths_[i], std::min(Width(Shown(row[i].text)), kLongestName)); }
    }
  }

  void Print() {
    std::size_t begin = 0;
    do {
      bool const whole = begin == 0 && widths_[1] != 0;
      std::size_t used = widths_[0] + (whole ? kGap + widths_[1] : 0), end = begin;
      while (end < columns_.size() && (end == begin || layout_.width == 0 || used + kGap + columns_[end].width <= layout_.width)) {
        used += kGap + columns_[end++].width;
      }
      PrintBlock(begin, end, whole);
      begin = end;
    } while (begin < columns_.size());
  }

private:
  static constexpr std::size_t kGap = 2;
  static constexpr std::size_t kLongestName = 32;      // of a row, or what it is
  static constexpr std::size_t kLongestStepName = 24;  // longer ones are cut in the table; lists and JSON give them whole
  static constexpr std::size_t kLongestProcedure = 19;
  static constexpr std::size_t kLongestCell = 40;

  struct Column {
    std::string name, procedure;  // shown
    std::size_t width;
  };

  void PrintBlock(std::size_t begin, std::size_t end, bool whole) {
    if (end - begin < columns_.size()) {
      std::string const title =
          "steps " + std::to_string(begin + 1) + " to " + std::to_string(end) + " of " + std::to_string(columns_.size());
      out_ << (begin == 0 ? "" : "\n") << Styled(title, Style::Faint, layout_.color) << '\n';
    }
    PutLead({{{grid_.header[0], Style::Strong}, {grid_.header[1], Style::Strong}}}, whole);
    for (std::size_t i = begin; i < end; ++i) { Put(columns_[i].name, columns_[i].width, Style::Strong); }
    EndLine();
    PutLead({}, whole);
    for (std::size_t i = begin; i < end; ++i) { Put(columns_[i].procedure, columns_[i].width, Style::Faint); }
    EndLine();
    for (std::size_t r = 0; r < grid_.rows.size(); ++r) {
      PutLead(grid_.rows[r], whole);
      for (std::size_t i = begin; i < end; ++i) {
        StepGrid::Cell const cell = grid_.cell(r, i);
        Put(Shown(cell.text), columns_[i].width, cell.style);
      }
      EndLine();
    }
  }
  void PutLead(StepGrid::Lead const& lead, bool whole) {
    Put(Shown(lead[0].text), widths_[0], lead[0].style);
    if (whole) { Put(Shown(lead[1].text), widths_[1], lead[1].style); }
  }

  /// Blanks are written only before the next cell, so that no line ends in them.
  void Put(std::string_view shown, std::size_t width, Style style) {
    std::size_t const own = Width(shown);
    if (own == 0) {
      pending_ += width + kGap;
      return;
    }
    line_.append(pending_, ' ');
    if (layout_.color) { line_ += StyleOn(style); }
    own > width ? line_ += Fitted(shown, width) : line_ += shown;
    if (layout_.color) { line_ += StyleOff(style); }
    pending_ = kGap + (own < width ? width - own : 0);
  }
  void EndLine() {
    out_ << line_ << '\n';
    line_.clear();
    pending_ = 0;
  }

  std::ostream& out_;
  StepGrid const& grid_;
  TextLayout const& layout_;
  std::vector<Column> columns_;
  std::array<std::size_t, 2> widths_{};
  std::string line_;
  std::size_t pending_ = 0;
};

}  // namespace

void StepGrid::Print(std::ostream& out, TextLayout const& layout) const { GridPage(out, *this, layout).Print(); }

}  // namespace gattr
