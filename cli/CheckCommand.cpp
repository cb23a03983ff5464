#include <CLI/App.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/Program.h"
#include "cli/ResultsFiles.h"
#include "command/Check.h"
#include "report/TextTable.h"
#include "store/ModelPath.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

struct CheckOptions {
  std::string model;
  Format format = Format::Text;
  std::string color, results;
};

Json ToJson(Finding const& finding) {
  return {{"id", finding.Row().id},
          {"severity", SeverityText(finding.Row().severity)},
          {"object", finding.kind + " " + Quoted(finding.name)},
          {"kind", finding.kind},
          {"name", finding.name},
          {"step", finding.step},
          {"member", finding.member},
          {"suppressed", finding.suppressed},
          {"module", finding.refusal.module},
          {"code", finding.refusal.code},
          {"exception", finding.refusal.exception},
          {"message", finding.refusal.message},
          {"detail", finding.detail},
          {"hint", finding.hint}};
}

Style StyleOf(Severity severity) {
  return severity == Severity::Error ? Style::Off : severity == Severity::Warning ? Style::Changed : Style::Faint;
}

/// What is wrong, with the member and the number, and what would do.
std::string MessageText(Finding const& finding) {
  std::string text = finding.member.empty() ? "" : Quoted(finding.member) + ": ";
  text += OneLine(finding.refusal.message);
  if (finding.refusal.code >= 0) { text += " [" + finding.refusal.module + " " + std::to_string(finding.refusal.code) + "]"; }
  for (std::string const& more : {finding.detail, finding.hint}) { text += (more.empty() ? "" : " ") + OneLine(more); }
  return finding.suppressed ? text + " (suppressed)" : text;
}

}  // namespace

int PrintFindings(ddr_Model const& model, Format format, std::string const& color) {
  std::vector<Finding> const findings = Check(model);
  if (format == Format::Json) {
    Json list = Json::array();
    for (Finding const& finding : findings) { list.push_back(ToJson(finding)); }
    std::cout << JsonPage(list) << '\n';
  } else if (findings.empty()) {
    std::cout << "nothing found\n";
  } else {
    TextTable table({"id", "severity", "object", "name", "step", "message"});
    for (Finding const& finding : findings) {
      Severity const severity = finding.Row().severity;
      table.Add({{finding.Row().id, Style::Faint},
                 {SeverityText(severity), StyleOf(severity)},
                 {finding.kind, Style::Faint},
                 {finding.name, Style::Strong},
                 finding.step,
                 MessageText(finding)});
    }
    table.Print(std::cout, TerminalWidth(), UseColor(color));
  }
  bool const inTheWay = std::ranges::any_of(findings, [](Finding const& found) { return found.Row().severity == Severity::Error; });
  return inTheWay ? kRefused : kDone;
}

void AddCheck(CLI::App& program, Action& action) {
  auto const options = std::make_shared<CheckOptions>();
  CLI::App& command = *program.add_subcommand("check", "Find what is wrong in a model");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("--results", options->results, kResultsHelp)->type_name("FOLDER");
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer(
      R"(Errors stand in the way of solving the model: steps that may not follow each other, parameters out of range, attributes where
their type is not admitted, names that the model does not have. Warnings tell what is allowed and hardly meant: an attribute
that acts on nothing, on a set where its type loads surfaces, that prescribes nothing, or what another one prescribes too. Notes
are worth knowing. Each has an identifier that stays, its object, step and member, and what would do; docs/check.md lists them.
Exit status 1 for errors, 0 for warnings and notes alone.

Example: gattr check forming.gadb --format json)");
  command.callback([options, &action] {
    action = [options] {
      UseResults(options->results);
      return PrintFindings(ModelPath(options->model).Open(), options->format, options->color);
    };
  });
}

}  // namespace gattr::cli
