#include <fmt/format.h>

#include <CLI/App.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/Program.h"
#include "command/HistoryTable.h"
#include "command/Variables.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "platform/CoreUtils/thr_Singleton.h"
#include "report/TextTable.h"
#include "store/ModelPath.h"

namespace gattr::cli {
namespace {

struct VariablesOptions {
  std::string model, step, procedure, channel, category;
  Format format = Format::Text;
  std::string color;
};

/// Refuses a \p name that is not one of \p known; a pattern is none.
void AssertOne(std::string const& what, std::string const& name, std::vector<std::string> const& known) {
  AssertKnown(what, name, known);
  if (std::ranges::find(known, name) == known.end()) { throw BadInput("a " + what + " goes by its name: " + name + " is a pattern"); }
}

/// A procedure by its label, or by the command that makes its steps, with or without "Step".
unsigned ProcedureCalled(std::string const& text) {
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    if (row.label.Size() != 0 && (row.command == text || row.command == text + "Step")) { return row.type; }
  }
  AssertOne("procedure", text, ProcedureLabels());
  return thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Type(text);
}

/// A category by its text in lists, or as variables name it: they write one of them otherwise.
korC_OdbRequestSpec::LabelEnm CategoryCalled(std::string const& text) {
  using LabelEnm = korC_OdbRequestSpec::LabelEnm;
  omu_PrimEnum<LabelEnm> label;
  if (label.SetValue(text.c_str()) && label != LabelEnm::INVALID_LABEL) { return label; }
  std::vector<std::string> const categories = VariableCategories();
  AssertOne("category", text, categories);
  return static_cast<LabelEnm>(std::ranges::find(categories, text) - categories.begin());
}

VariableQuery QueryOf(VariablesOptions const& options) {
  VariableQuery query;
  if (!options.step.empty()) {
    if (options.model.empty()) { throw BadInput("--step needs a MODEL that has the step"); }
    ddr_Model const model = ModelPath(options.model).Open();
    AssertOne("step", options.step, StepNames(model));
    kprC_StepContainer const& steps = kprC_Steps(model);
    query.procedureType = steps.Table().ProcedureType(steps.Index(cow_String(options.step)));
  } else if (!options.model.empty()) {
    throw BadInput("a MODEL goes with --step");
  }
  if (!options.procedure.empty()) { query.procedureType = ProcedureCalled(options.procedure); }
  if (!options.channel.empty()) { query.channel = options.channel == "field" ? korC_OdbChannel::FIELD : korC_OdbChannel::HISTORY; }
  if (!options.category.empty()) { query.category = CategoryCalled(options.category); }
  return query;
}

Json JsonOf(VariableInfo const& info, bool asked) {
  Json json = {{"name", info.name},         {"description", info.description}, {"category", info.category},
               {"location", info.location}, {"output", info.output},           {"components", info.components},
               {"parent", info.parent},     {"channels", info.channels},       {"procedures", info.procedures}};
  if (asked) { json["preselected"] = info.preselected; }
  return json;
}

void PrintCsv(std::vector<VariableInfo> const& variables) {
  std::cout << "name,category,channels,location,output,components,parent,preselected,description,procedures\r\n";
  for (VariableInfo const& info : variables) {
    std::cout << CsvField(info.name) << ',' << CsvField(info.category) << ',' << fmt::format("{}", fmt::join(info.channels, " ")) << ','
              << info.location << ',' << CsvField(info.output) << ',' << fmt::format("{}", fmt::join(info.components, " ")) << ','
              << info.parent << ',' << (info.preselected ? "true" : "false") << ',' << CsvField(info.description) << ','
              << fmt::format("{}", fmt::join(info.procedures, " ")) << "\r\n";
  }
}

int Run(VariablesOptions const& options) {
  VariableQuery const query = QueryOf(options);
  std::vector<VariableInfo> const variables = Variables(query);
  if (options.format == Format::Csv) {
    PrintCsv(variables);
    return kDone;
  }
  if (options.format == Format::Json) {
    Json list = Json::array();
    for (VariableInfo const& info : variables) { list.push_back(JsonOf(info, query.procedureType.has_value())); }
    std::cout << JsonPage(list) << '\n';
    return kDone;
  }
  TextTable table({"category", "variable", "in", "of", "preselected", "meaning and components"});
  std::string category;
  for (VariableInfo const& info : variables) {
    std::string const components = info.components.empty() ? "" : fmt::format(": {}", fmt::join(info.components, " "));
    table.Add({{info.category == category ? "" : info.category, Style::Faint},
               {info.name, Style::Strong},
               info.channels.empty() ? "-" : fmt::format("{}", fmt::join(info.channels, ", ")),
               {info.parent, Style::Faint},
               info.preselected ? "yes" : "",
               info.description + components});
    category = info.category;
  }
  if (table.IsEmpty()) {
    std::cout << "No variables.\n";
  } else {
    table.Print(std::cout, TerminalWidth(), UseColor(options.color));
  }
  return kDone;
}

}  // namespace

void AddVariables(CLI::App& program, Action& action) {
  auto const options = std::make_shared<VariablesOptions>();
  CLI::App& command = *program.add_subcommand(
      "variables", "What output requests may ask for: variables with their components, and where each may be asked for");
  command.add_option("MODEL", options->model, std::string(kModelHelp) + "; goes with --step")->type_name("");
  auto* const step = command.add_option("--step", options->step, "those that a step of MODEL has")->type_name("STEP");
  command.add_option("--procedure", options->procedure, "those that steps of a procedure have, STATIC_GENERAL or StaticStep for instance")
      ->type_name("PROCEDURE")
      ->excludes(step);
  AddChoice(*command.add_option("--channel", options->channel, "field, history (default: both)")->type_name("CHANNEL"),
            {"field", "history"});
  command.add_option("--category", options->category, "those of a category, Stresses for instance")->type_name("CATEGORY");
  AddFormat(command, options->format, {"text", "csv", "json"});
  AddColor(command, options->color);
  command.footer("Example: gattr variables forming.gadb --step Draw-1 --channel field");
  command.callback([options, &action] { action = [options] { return Run(*options); }; });
}

}  // namespace gattr::cli
