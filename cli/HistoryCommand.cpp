#include <CLI/App.hpp>
#include <CLI/Validators.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <sstream>

#include "cli/Console.h"
#include "cli/Program.h"
#include "command/Words.h"
#include "report/RenderHistory.h"
#include "store/ModelPath.h"

namespace gattr::cli {
namespace {

enum class Layout { Table, Compact, Ranges, Changes };

struct HistoryOptions {
  std::string model;
  HistoryFilter filter;
  std::vector<std::string> statuses, values;
  Layout layout = Layout::Table;
  Format format = Format::Text;
  std::string color;
  int width = -1;  // the terminal's
};

std::string Legend() {
  std::string legend = "What the words mean:\n";
  for (std::size_t status = 0; status < kStatusCount; ++status) {
    StatusWord const& word = WordOf(static_cast<mdl_PropagationStatusEnm>(status));
    legend.append("  ").append(1, word.sign).append("  ").append(Fitted(word.word, 16)).append(word.meaning).append("\n");
  }
  return legend;
}

/// The statuses that users call by their words.
std::vector<mdl_PropagationStatusEnm> StatusesOf(std::vector<std::string> const& words) {
  std::vector<std::string> known;
  for (std::size_t status = 0; status < kStatusCount; ++status) {
    StatusWord const& word = WordOf(static_cast<mdl_PropagationStatusEnm>(status));
    known.emplace_back(word.Text());
  }
  std::vector<mdl_PropagationStatusEnm> statuses;
  for (std::string const& word : words) {
    AssertKnown("status", word, known);
    statuses.push_back(static_cast<mdl_PropagationStatusEnm>(std::ranges::find(known, word) - known.begin()));
  }
  return statuses;
}

void Write(std::ostream& out, HistoryTable const& table, HistoryOptions const& options) {
  std::size_t const width = options.width < 0 ? TerminalWidth() : static_cast<std::size_t>(options.width);
  TextLayout const layout{width, UseColor(options.color)};
  switch (options.format) {
    case Format::Csv: return RenderCsv(out, table);
    case Format::Json: return RenderJson(out, table);
    case Format::Html: return RenderHtml(out, table);
    default: break;
  }
  switch (options.layout) {
    case Layout::Table: return RenderText(out, table, layout);
    case Layout::Compact: return RenderCompact(out, table, layout);
    case Layout::Ranges: return RenderRanges(out, table, layout);
    case Layout::Changes: return RenderChanges(out, table, layout);
  }
}

int History(HistoryOptions const& options) {
  if (options.layout != Layout::Table && options.format != Format::Text) {
    throw BadInput("--compact, --ranges and --changes are layouts of the text; --format has its own");
  }
  if (options.layout != Layout::Table && !options.values.empty()) {
    throw BadInput("--values are for the table, not for --compact, --ranges and --changes");
  }
  HistoryFilter filter = options.filter;
  filter.statuses = StatusesOf(options.statuses);
  filter.changes = options.layout == Layout::Changes;
  ddr_Model const model = ModelPath(options.model).Open();
  for (auto const& name : filter.attributes) { AssertKnown("attribute", name, AttributeNames(model)); }
  for (auto const& name : filter.steps) { AssertKnown("step", name, StepNames(model)); }
  for (auto const& name : filter.types) { AssertKnown("type", name, TypeNames(model)); }
  filter.values = options.values;
  for (auto const& name : filter.values) { AssertKnown("member", name, MemberNames(model)); }
  HistoryTable const table = HistoriesOf(model, filter);
  if (options.format == Format::Text && TerminalWidth() != 0) {
    std::ostringstream text;
    Write(text, table, options);
    PrintPaged(text.str());
  } else {
    Write(std::cout, table, options);
  }
  return kDone;
}

}  // namespace

void AddHistory(CLI::App& program, Action& action) {
  auto const options = std::make_shared<HistoryOptions>();
  CLI::App& command = *program.add_subcommand("history", "What every attribute does in every step, as a table");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("--attribute", options->filter.attributes, "only this one; * and ? stand for letters; may be given several times")
      ->type_name("NAME")
      ->allow_extra_args(false);
  command.add_option("--step", options->filter.steps, "only this one; * and ? stand for letters; may be given several times")
      ->type_name("STEP")
      ->allow_extra_args(false);
  command.add_option("--type", options->filter.types, "only attributes of this construction command, as DisplacementBC or *BC")
      ->type_name("TYPE")
      ->allow_extra_args(false);
  command.add_option("--status", options->statuses, "only attributes that are so in a step shown, by a word of the list below")
      ->type_name("WORD")
      ->allow_extra_args(false);
  command
      .add_option("--values", options->values,
                  "what these members are in place of the status words, of attributes that have one; * where the step itself says it")
      ->type_name("MEMBER,...")
      ->delimiter(',')
      ->allow_extra_args(false);
  std::vector<CLI::Option*> layouts;
  auto const addLayout = [&](char const* flag, Layout layout, char const* meaning) {
    CLI::Option* const option = command.add_flag_callback(
        flag, [options, layout] { options->layout = layout; }, meaning);
    for (CLI::Option* other : layouts) { option->excludes(other); }
    layouts.push_back(option);
  };
  addLayout("--compact", Layout::Compact, "a sign per step, by its number in `gattr steps`");
  addLayout("--ranges", Layout::Ranges, "a line per run of steps with one status");
  addLayout("--changes", Layout::Changes, "a line per step in which something is said, with the values");
  AddFormat(command, options->format, {"text", "csv", "json", "html"});
  AddColor(command, options->color);
  command.add_option("--width", options->width, "columns of a text table; 0: unlimited (default: the terminal's)")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber.description(""));
  command.footer(Legend() +
                 "\nA text that is longer than the terminal goes through $PAGER, or less.\n"
                 "\nExample: gattr history forming.gadb --attribute 'P*' --compact");
  command.callback([options, &action] { action = [options] { return History(*options); }; });
}

}  // namespace gattr::cli
