#include <CLI/App.hpp>
#include <CLI/Validators.hpp>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/ModelPath.h"
#include "cli/Program.h"
#include "report/RenderHistory.h"

namespace gattr::cli {
namespace {

struct HistoryOptions {
  std::string model;
  HistoryFilter filter;
  Format format = Format::Text;
  std::string color;
  int width = -1;  // the terminal's
};

std::string Legend() {
  std::string legend = "What the words mean:\n";
  for (std::size_t status = 0; status < kStatusCount; ++status) {
    StatusWord const& word = WordOf(static_cast<mdl_PropagationStatusEnm>(status));
    legend.append("  ").append(Fitted(word.word, 16)).append(word.meaning).append("\n");
  }
  return legend;
}

int History(HistoryOptions const& options) {
  ddr_Model const model = ModelPath(options.model).Open();
  for (auto const& name : options.filter.attributes) { AssertKnown("attribute", name, AttributeNames(model)); }
  for (auto const& name : options.filter.steps) { AssertKnown("step", name, StepNames(model)); }
  HistoryTable const table = HistoriesOf(model, options.filter);
  std::size_t const width = options.width < 0 ? TerminalWidth() : static_cast<std::size_t>(options.width);
  switch (options.format) {
    case Format::Text: RenderText(std::cout, table, {width, UseColor(options.color)}); break;
    case Format::Csv: RenderCsv(std::cout, table); break;
    case Format::Json: RenderJson(std::cout, table); break;
    case Format::Html: RenderHtml(std::cout, table); break;
  }
  return kDone;
}

}  // namespace

void AddHistory(CLI::App& program, Action& action) {
  auto const options = std::make_shared<HistoryOptions>();
  CLI::App& command = *program.add_subcommand("history", "What every attribute does in every step, as a table");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("--attribute", options->filter.attributes, "only this one; may be given several times")
      ->type_name("NAME")
      ->allow_extra_args(false);
  command.add_option("--step", options->filter.steps, "only this one; may be given several times")
      ->type_name("NAME")
      ->allow_extra_args(false);
  AddFormat(command, options->format, {"text", "csv", "json", "html"});
  AddColor(command, options->color);
  command.add_option("--width", options->width, "columns of a text table; 0: unlimited (default: the terminal's)")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber.description(""));
  command.footer(Legend() + "\nExample: gattr history forming.gadb --attribute Punch --attribute Die");
  command.callback([options, &action] { action = [options] { return History(*options); }; });
}

}  // namespace gattr::cli
