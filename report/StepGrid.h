#pragma once

#include <array>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "report/Display.h"

namespace gattr {

/// How a table is laid out for a terminal.
struct TextLayout {
  std::size_t width = 0;  ///< columns; wider tables are wrapped in blocks of steps. 0: unlimited
  bool color = false;
};

/// A table with a column per step, under its name and procedure, that is wrapped in blocks of steps where it is too wide.
struct StepGrid {
  struct Cell {
    std::string text;
    Style style = Style::Plain;
  };
  struct Step {
    std::string name, procedure;
  };
  using Lead = std::array<Cell, 2>;  ///< what a row is called, and what it is: told in the first block alone

  std::array<std::string, 2> header;  ///< of the lead
  std::vector<Step> steps;
  std::vector<Lead> rows;
  std::function<Cell(std::size_t row, std::size_t step)> cell;  ///< asked more than once

  void Print(std::ostream& out, TextLayout const& layout) const;
};

}  // namespace gattr
