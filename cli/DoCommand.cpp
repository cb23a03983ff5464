#include <fmt/core.h>
#include <CLI/App.hpp>

#include <iostream>
#include <memory>
#include <stdexcept>

#include "cli/Console.h"
#include "cli/Program.h"
#include "cli/ResultsFiles.h"
#include "command/CommandWords.h"
#include "report/Display.h"
#include "report/RenderEffects.h"
#include "store/ModelPath.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

struct DoOptions {
  std::string model, results;
  std::vector<std::string> words;
  Format format = Format::Text;
  bool dryRun = false, force = false;
};

int Run(DoOptions const& options) {
  UseResults(options.results);
  ModelPath path(options.model);
  Session session(path.Open());
  cls_Value command;
  try {
    command = CommandWords().Read(session.Model(), options.words);
  } catch (std::invalid_argument const& error) { throw BadInput(error.what()); }
  if (options.dryRun) { std::get<cls_Value::Fields>(command.data).emplace_back("dryRun", true); }
  Outcome const outcome = session.Execute(command);
  if (options.format == Format::Json) {
    std::cout << JsonPage(ToJson(outcome)) << '\n';
  } else {
    std::cout << ShownLines(outcome.report);
    RenderText(std::cout, outcome.effects, {TerminalWidth(), UseColor("auto")});
  }
  if (!outcome.message.empty()) {
    std::cout.flush();
    Tell(fmt::format("gattr: {}\n", Shown(outcome.message)));
  }
  if (!outcome.ok) { return outcome.badInput ? kBadInput : kRefused; }
  if (outcome.changed && outcome.report.empty() && !options.dryRun) {
    path.Save(session.Model(), options.force ? Changed::Overwrite : Changed::Refuse);
  }
  return kDone;
}

constexpr char const* kDoFooter =
    R"(A value is read as its argument asks: a number, true or false, a list or an object as JSON, else a text, which may stand in
double quotes as JSON has it; null is nothing. `gattr describe` lists the commands. The model is saved in place where the
command changed it.

Example: gattr do forming.gadb setValuesInStep boundaryCondition=Punch stepName=Draw-1 u2=-12.5)";

}  // namespace

void AddDo(CLI::App& program, Action& action) {
  auto const options = std::make_shared<DoOptions>();
  CLI::App& command = *program.add_subcommand("do", "Run one command on a model");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("COMMAND", options->words, "the command's name, then argument=value for each of its arguments")
      ->required()
      ->type_name("")
      ->expected(-1);
  command.add_option("--results", options->results, kResultsHelp)->type_name("FOLDER");
  command.add_flag("--dry-run", options->dryRun, kDryRunHelp);
  AddFormat(command, options->format, {"text", "json"});
  command.add_flag("--force", options->force, "write the model also where somebody else has changed it meanwhile");
  command.footer(kDoFooter);
  command.callback([options, &action] { action = [options] { return Run(*options); }; });
}

}  // namespace gattr::cli
