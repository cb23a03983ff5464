#include <fmt/core.h>

#include <CLI/App.hpp>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/Program.h"
#include "cli/ResultsFiles.h"
#include "command/PythonScript.h"
#include "command/Recreate.h"
#include "report/Display.h"
#include "store/ModelPath.h"
#include "text/JsonText.h"

namespace gattr::cli {
namespace {

struct JournalOptions {
  std::string model, results;
  bool python = false;
};

int Run(JournalOptions const& options) {
  UseResults(options.results);
  ddr_Model const model = ModelPath(options.model).Open();
  PythonScript const script;
  if (options.python) { std::cout << PythonScript::Head(); }
  std::vector<Unmade> const unmade = Recreate(model, [&](cls_Value const& command) {
    std::cout << JsonEscaped(options.python ? script.Line(command) : JsonText(command)) << '\n';
  });
  std::cout.flush();
  for (Unmade const& one : unmade) { Tell(fmt::format("gattr: {}\n", Shown(one.Text()))); }
  return unmade.empty() ? kDone : kRefused;
}

}  // namespace

void AddJournal(CLI::App& program, Action& action) {
  auto const options = std::make_shared<JournalOptions>();
  CLI::App& command = *program.add_subcommand("journal", "Write the commands that make a model");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("--results", options->results, kResultsHelp)->type_name("FOLDER");
  command.add_flag("--python", options->python, "write the same as a Python script of the module gattr");
  command.footer(
      R"(One command for each object and one for each record of its own, from the model alone: its replay gives the same model. What
no command makes is told, and the exit status is 1.

Example: gattr journal forming.gadb > forming.jsonl)");
  command.callback([options, &action] { action = [options] { return Run(*options); }; });
}

}  // namespace gattr::cli
