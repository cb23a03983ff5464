#include <CLI/App.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/ModelPath.h"
#include "cli/Program.h"
#include "command/Check.h"
#include "report/TextTable.h"

namespace gattr::cli {
namespace {

struct CheckOptions {
  std::string model;
  Format format = Format::Text;
  std::string color;
};

Json ToJson(Finding const& finding) {
  return {{"kind", finding.kind},
          {"name", finding.name},
          {"step", finding.step},
          {"suppressed", finding.suppressed},
          {"note", finding.note},
          {"module", finding.refusal.module},
          {"code", finding.refusal.code},
          {"exception", finding.refusal.exception},
          {"message", finding.refusal.message},
          {"detail", finding.detail}};
}

int RunCheck(CheckOptions const& options) {
  std::vector<Finding> const findings = Check(ModelPath(options.model).Open());
  if (options.format == Format::Json) {
    Json list = Json::array();
    for (Finding const& finding : findings) { list.push_back(ToJson(finding)); }
    std::cout << JsonPage(list) << '\n';
  } else if (findings.empty()) {
    std::cout << "nothing found\n";
  } else {
    TextTable table({"object", "name", "step", "module", "code", "message"});
    for (Finding const& finding : findings) {
      std::string message = finding.refusal.message;
      if (!finding.detail.empty()) { message += " " + finding.detail; }
      if (finding.suppressed) { message += " (suppressed)"; }
      table.Add({{finding.kind, Style::Faint},
                 {finding.name, Style::Strong},
                 finding.step,
                 {finding.refusal.module, Style::Faint},
                 {finding.refusal.code < 0 ? "-" : std::to_string(finding.refusal.code), Style::Off},
                 message});
    }
    table.Print(std::cout, TerminalWidth(), UseColor(options.color));
  }
  return std::ranges::all_of(findings, &Finding::note) ? kDone : kRefused;
}

}  // namespace

void AddCheck(CLI::App& program, Action& action) {
  auto const options = std::make_shared<CheckOptions>();
  CLI::App& command = *program.add_subcommand("check", "Find what is wrong in a model");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer(
      R"(Steps that may not follow each other, parameters out of range, attributes where their type is not admitted, and names that
the model does not have: each with its object, step, module, code and message. Regions that deleted steps have left behind are
noted. Exit status 1 when something is found that is more than a note.

Example: gattr check forming.gadb --format json)");
  command.callback([options, &action] { action = [options] { return RunCheck(*options); }; });
}

}  // namespace gattr::cli
