#include <CLI/App.hpp>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/Findings.h"
#include "cli/Program.h"
#include "cli/ResultsFiles.h"
#include "store/ModelPath.h"

namespace gattr::cli {

void AddFindings(CLI::App& command, FindingsOptions& options, CLI::Option* needs) {
  CLI::Option* const format = &AddFormat(command, options.format, {"text", "json", "sarif", "junit"});
  CLI::Option* const failOn = command.add_option_function<std::string>(
      "--fail-on", [&options](std::string const& text) { options.warningsFail = text == "warning"; },
      "exit status 1 for error, or for warning too (default: error)");
  AddChoice(*failOn->type_name("SEVERITY"), {"error", "warning"});
  CLI::Option* const disable =
      command.add_option("--disable", options.choice.disable, "leave out warnings and notes by their identifiers: GA011,GA017");
  CLI::Option* const only = command.add_option("--only", options.choice.only, "tell findings of these identifiers alone");
  for (CLI::Option* const option : {disable, only}) { option->delimiter(',')->allow_extra_args(false)->type_name("ID"); }
  AddColor(command, options.color);
  for (CLI::Option* const option : {format, failOn, disable, only}) {
    if (needs != nullptr) { option->needs(needs); }
  }
}

void AssertChoice(FindingChoice const& choice) {
  if (auto const refusal = RefusalBy([&] { choice.AssertValid(); })) { throw BadInput(refusal->message); }
}

int PrintFindings(std::span<Finding const> findings, FindingsOptions const& options, std::string const& model, std::string const& journal) {
  FindingsStyle const style{GATTR_VERSION, model, journal, options.warningsFail, TerminalWidth(), UseColor(options.color)};
  switch (options.format) {
    case Format::Json: RenderJson(std::cout, findings); break;
    case Format::Sarif: RenderSarif(std::cout, findings, style); break;
    case Format::Junit: RenderJunit(std::cout, findings, style); break;
    default: RenderText(std::cout, findings, style);
  }
  return AnyFails(findings, options.warningsFail) ? kRefused : kDone;
}

int PrintFindings(ddr_Model const& model) { return PrintFindings(Check(model), {}, {}, {}); }

namespace {
struct CheckOptions {
  std::string model, results;
  FindingsOptions findings;
};
}  // namespace

void AddCheck(CLI::App& program, Action& action) {
  auto const options = std::make_shared<CheckOptions>();
  CLI::App& command = *program.add_subcommand("check", "Find what is wrong in a model");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("--results", options->results, kResultsHelp)->type_name("FOLDER");
  AddFindings(command, options->findings);
  command.footer(
      R"(Errors stand in the way of solving the model: steps that may not follow each other, parameters out of range, attributes where
their type is not admitted, names that the model does not have. Warnings tell what is allowed and hardly meant: an attribute
that acts on nothing, on a set where its type loads surfaces, that prescribes nothing or what another one prescribes too, a static
step in which nothing holds the model, what nobody uses. Notes are worth knowing. Each has an identifier that stays, its object,
step and member, and what would do; docs/check.md lists them. Exit status 1 for errors, 0 for warnings and notes alone.
`gattr replay JOURNAL --check` names the line that made what is at fault, too.

Example: gattr check forming.gadb --disable GA016,GA017 --format sarif)");
  command.callback([options, &action] {
    action = [options] {
      UseResults(options->results);
      AssertChoice(options->findings.choice);
      return PrintFindings(Check(ModelPath(options->model).Open(), options->findings.choice), options->findings, options->model, {});
    };
  });
}

}  // namespace gattr::cli
