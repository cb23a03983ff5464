#include "report/RenderHistory.h"

#include <algorithm>
#include <ostream>

#include "command/Origins.h"
#include "command/Words.h"
#include "report/StepGrid.h"
#include "report/TextTable.h"

namespace gattr {
namespace {

constexpr Style kStyles[kStatusCount] = {
    Style::Faint, Style::New,  Style::Kept,    Style::Changed, Style::Off,  Style::Faint, Style::Faint, Style::Faint,
    Style::Held,  Style::Kept, Style::Changed, Style::Off,     Style::Held, Style::Kept,  Style::Held,  Style::Changed,
};

constexpr std::size_t kGap = 2;
constexpr std::size_t kLongestName = 32;  // of an attribute or a type in the first columns

std::string TypeText(HistoryTable::Row const& row) { return row.suppressed ? row.type + " (suppressed)" : row.type; }

std::string_view SpaceName(HistoryTable const& table) { return omu_PrimEnum<ddr_Model::SpaceEnm>(table.space).View(); }

/// "space: AXISYMMETRIC"; empty for a three-dimensional model, which goes without saying.
std::string SpaceText(HistoryTable const& table) {
  return table.space == ddr_Model::THREE_D ? "" : "space: " + std::string(SpaceName(table));
}

/// What members are there, "u2 -12*", the asterisk where the step says it.
std::string ValuesText(HistoryTable const& table, HistoryTable::Held const& held, std::string_view between, std::string_view mark) {
  std::string text;
  for (std::size_t i = 0; i < table.members.size(); ++i) {
    if (held.values[i].IsNull()) { continue; }
    if (!text.empty()) { text += between; }
    if (table.members.size() > 1) { text.append(table.members[i]).append(" "); }
    text.append(ValueText(held.values[i])).append(held.own[i] ? mark : "");
  }
  return text;
}
/// What a cell shows: the status, or what members are.
std::string CellText(HistoryTable const& table, HistoryTable::Row const& row, std::size_t column) {
  std::string text = table.members.empty() ? std::string() : ValuesText(table, row.At(column), ", ", "*");
  return text.empty() ? std::string(WordOf(row.Status(column)).word) : text;
}

/// A sign per step, block by block.
class CompactPage {
public:
  CompactPage(std::ostream& out, HistoryTable const& table, TextLayout const& layout) : out_(out), table_(table), layout_(layout) {
    for (auto const& row : table.rows) {
      names_.push_back(Shown(row.name));
      nameWidth_ = std::max(nameWidth_, std::min(Width(names_.back()), kLongestName));
      typeWidth_ = std::max(typeWidth_, std::min(Width(TypeText(row)), kLongestName));
    }
  }

  void Print() {
    std::size_t const lead = nameWidth_ + kGap + typeWidth_ + kGap;
    std::size_t groups = layout_.width == 0 ? table_.steps.size() / kGroup + 1 : 1;
    while (layout_.width != 0 && lead + (groups + 1) * (kGroup + 1) <= layout_.width + 1) { ++groups; }
    for (std::size_t begin = 0; begin < table_.steps.size(); begin += groups * kGroup) {
      if (begin != 0) { out_ << '\n'; }
      PrintBlock(begin, std::min(begin + groups * kGroup, table_.steps.size()));
    }
    PrintLegend();
  }

private:
  static constexpr std::size_t kGroup = 10;

  void PrintBlock(std::size_t begin, std::size_t end) {
    std::string ruler;  // the number of the first step of each group
    for (std::size_t i = begin; i < end; i += kGroup) { ruler += Fitted(std::to_string(i), kGroup + 1); }
    ruler.erase(ruler.find_last_not_of(' ') + 1);
    out_ << Styled(Fitted("attribute", nameWidth_), Style::Strong, layout_.color) << "  "
         << Styled(Fitted("type", typeWidth_), Style::Strong, layout_.color) << "  " << Styled(ruler, Style::Faint, layout_.color) << '\n';
    for (std::size_t r = 0; r < table_.rows.size(); ++r) {
      auto const& row = table_.rows[r];
      out_ << Styled(Fitted(names_[r], nameWidth_), row.suppressed ? Style::Faint : Style::Strong, layout_.color) << "  "
           << Styled(Fitted(TypeText(row), typeWidth_), Style::Faint, layout_.color) << "  ";
      for (std::size_t i = begin; i < end; ++i) {
        if (i != begin && (i - begin) % kGroup == 0) { out_ << ' '; }
        Style const style = row.suppressed ? Style::Faint : StyleOf(row.Status(i));
        out_ << Styled(std::string(1, WordOf(row.Status(i)).sign), style, layout_.color);
      }
      out_ << '\n';
    }
  }

  void PrintLegend() {
    unsigned used = 0;
    for (auto const& row : table_.rows) {
      for (std::uint8_t const status : row.statuses) { used |= 1U << status; }
    }
    std::string legend;
    for (std::size_t status = 0; status < kStatusCount; ++status) {
      if ((used >> status & 1U) == 0) { continue; }
      StatusWord const& word = WordOf(static_cast<mdl_PropagationStatusEnm>(status));
      legend += (legend.empty() ? "" : ", ") + std::string(1, word.sign) + " " + std::string(word.Text());
    }
    if (legend.empty()) { return; }
    out_ << '\n';
    for (std::string const& line : WrappedLines(legend, layout_.width)) { out_ << Styled(line, Style::Faint, layout_.color) << '\n'; }
  }

  std::ostream& out_;
  HistoryTable const& table_;
  TextLayout const& layout_;
  std::vector<std::string> names_;
  std::size_t nameWidth_ = 9, typeWidth_ = 4;  // of the headings
};

/// Prints a table whose lines are of attributes; what they have in common with the line above is left out.
void PrintLines(std::ostream& out, std::vector<std::string> header, HistoryTable const& table, TextLayout const& layout,
                auto&& forEachLine) {
  header.insert(header.begin(), {"attribute", "type"});
  TextTable lines(std::move(header));
  for (auto const& row : table.rows) {
    bool first = true;
    forEachLine(row, [&](TextTable::Row cells) {
      cells.insert(cells.begin(), {TextTable::Cell(first ? row.name : "", row.suppressed ? Style::Faint : Style::Strong),
                                   TextTable::Cell(first ? TypeText(row) : "", Style::Faint)});
      lines.Add(std::move(cells));
      first = false;
    });
  }
  lines.Print(out, layout.width, layout.color);
}

}  // namespace

std::string_view CssClass(Style style) {
  constexpr std::string_view kNames[] = {"", "strong", "faint", "new", "kept", "changed", "off", "held"};
  return kNames[static_cast<std::size_t>(style)];
}

Style StyleOf(mdl_PropagationStatusEnm status) { return kStyles[static_cast<std::size_t>(status) % kStatusCount]; }

void RenderText(std::ostream& out, HistoryTable const& table, TextLayout const& layout) {
  std::string const space = SpaceText(table);
  if (!space.empty()) { out << Styled(space, Style::Faint, layout.color) << '\n'; }
  StepGrid grid{{"attribute", "type"}, {}, {}, [&table](std::size_t r, std::size_t column) {
                  HistoryTable::Row const& row = table.rows[r];
                  return StepGrid::Cell{CellText(table, row, column), row.suppressed ? Style::Faint : StyleOf(row.Status(column))};
                }};
  for (auto const& step : table.steps) { grid.steps.push_back({step.name, ProcedureWords(step.procedure)}); }
  for (auto const& row : table.rows) {
    grid.rows.push_back(
        {StepGrid::Cell{row.name, row.suppressed ? Style::Faint : Style::Strong}, StepGrid::Cell{TypeText(row), Style::Faint}});
  }
  grid.Print(out, layout);
}

void RenderCompact(std::ostream& out, HistoryTable const& table, TextLayout const& layout) { CompactPage(out, table, layout).Print(); }

void RenderRanges(std::ostream& out, HistoryTable const& table, TextLayout const& layout) {
  PrintLines(out, {"from", "to", "steps", "status"}, table, layout, [&](HistoryTable::Row const& row, auto&& add) {
    for (std::size_t begin = 0, end = 0; begin < row.statuses.size(); begin = end) {
      while (end < row.statuses.size() && row.statuses[end] == row.statuses[begin]) { ++end; }
      mdl_PropagationStatusEnm const status = row.Status(begin);
      add({table.steps[begin].name,
           end - begin > 1 ? table.steps[end - 1].name : "",
           std::to_string(end - begin),
           {WordOf(status).word, StyleOf(status)}});
    }
  });
}

void RenderChanges(std::ostream& out, HistoryTable const& table, TextLayout const& layout) {
  PrintLines(out, {"step", "status", "values"}, table, layout, [&](HistoryTable::Row const& row, auto&& add) {
    for (HistoryTable::Change const& change : row.changes) {
      mdl_PropagationStatusEnm const status = row.Status(change.column);
      add({table.steps[change.column].name, {WordOf(status).word, StyleOf(status)}, change.values});
    }
  });
}

void RenderCsv(std::ostream& out, HistoryTable const& table) {
  out << "name,kind,type,suppressed";
  for (auto const& step : table.steps) { out << ',' << CsvField(step.name); }
  out << "\r\n";
  for (auto const& row : table.rows) {
    out << CsvField(row.name) << ',' << CsvField(row.kind) << ',' << CsvField(row.type) << ',' << (row.suppressed ? "true" : "false");
    for (std::size_t i = 0; i < row.statuses.size(); ++i) {
      HistoryTable::Held const* const held = table.members.empty() ? nullptr : &row.At(i);
      out << ','
          << (held == nullptr             ? std::string(WordOf(row.Status(i)).Text())
              : table.members.size() == 1 ? CsvValue(held->values.front())
                                          : CsvField(ValuesText(table, *held, "; ", "")));
    }
    out << "\r\n";
  }
}

void RenderJson(std::ostream& out, HistoryTable const& table) {
  // line by line: one value for the whole of a large model would take many times its memory
  out << "{\n  \"model\": " << JsonLine(table.model) << ",\n  \"space\": " << JsonLine(SpaceName(table)) << ",\n  \"steps\": [";
  char const* separator = "";
  for (auto const& step : table.steps) {
    out << separator << "\n    " << JsonLine({{"name", step.name}, {"procedure", step.procedure}, {"perturbation", step.perturbation}});
    separator = ",";
  }
  out << "\n  ],\n  \"attributes\": [";
  separator = "";
  for (auto const& row : table.rows) {
    Json line = {{"name", row.name}, {"kind", row.kind}, {"type", row.type}, {"suppressed", row.suppressed}, {"history", row.statuses}};
    for (std::size_t i = 0; i < table.members.size(); ++i) {
      Json& values = line["values"][table.members[i]] = Json::array();
      for (std::size_t column = 0; column < row.heldAt.size(); ++column) { values.push_back(ToJson(row.At(column).values[i])); }
    }
    out << separator << "\n    " << JsonLine(line);
    separator = ",";
  }
  out << "\n  ]\n}\n";
}

void RenderHtml(std::ostream& out, HistoryTable const& table) {
  std::string const title = HtmlText(table.model.empty() ? "Histories" : table.model);
  std::string const space = SpaceText(table);
  out << "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>" << title << R"(</title>
<style>
body { font: 14px/1.5 system-ui, sans-serif; margin: 2em; color: #222 }
table { border-collapse: collapse }
th, td { padding: .2em .8em; text-align: left; white-space: nowrap; border-bottom: 1px solid #e4e4e4 }
th:first-child { position: sticky; left: 0; background: #fff }
small, .faint { color: #999; font-weight: normal }
.new { background: #c9efd2; font-weight: 600 } .kept { background: #eaf7ee } .changed { background: #ffe9b8; font-weight: 600 }
.off { background: #ffd6d1 } .held { background: #dff1fa }
</style></head><body>
<h1>)" << title
      << "</h1>\n"
      << (space.empty() ? "" : "<p>" + space + "</p>\n") << "<table>\n<tr><th>attribute</th><th>type</th>";
  for (auto const& step : table.steps) {
    out << "<th>" << HtmlText(step.name) << "<br><small>" << HtmlText(ProcedureWords(step.procedure)) << "</small></th>";
  }
  out << "</tr>\n";
  for (auto const& row : table.rows) {
    out << (row.suppressed ? "<tr class=\"faint\"><th>" : "<tr><th>") << HtmlText(row.name) << "</th><td>" << HtmlText(TypeText(row))
        << "</td>";
    for (std::size_t i = 0; i < row.statuses.size(); ++i) {
      StatusWord const& word = WordOf(row.Status(i));
      out << "<td class=\"" << CssClass(StyleOf(row.Status(i))) << "\" title=\"" << word.meaning << "\">"
          << HtmlText(CellText(table, row, i)) << "</td>";
    }
    out << "</tr>\n";
  }
  out << "</table>\n</body></html>\n";
}

}  // namespace gattr
