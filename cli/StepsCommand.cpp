#include <fmt/format.h>

#include <CLI/App.hpp>
#include <iostream>
#include <memory>
#include <optional>

#include "cli/Console.h"
#include "cli/Program.h"
#include "command/HistoryTable.h"
#include "command/Words.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CoreUtils/thr_Singleton.h"
#include "report/TextTable.h"
#include "store/ModelPath.h"

namespace gattr::cli {
namespace {

struct StepsOptions {
  std::string model, mayFollow;
  Format format = Format::Text;
  std::string color;
};

/// A member that only some procedures have.
std::optional<double> MemberOf(kprC_Step const& step, std::string_view name) {
  cls_Value const value = step.Member(name);
  if (auto const* number = value.As<double>()) { return *number; }
  if (auto const* number = value.As<long long>()) { return static_cast<double>(*number); }
  return std::nullopt;
}

Json JsonOf(kprC_Step const& step, std::string_view name) {
  cls_Value const value = step.Member(name);
  if (auto const* number = value.As<long long>()) { return *number; }
  auto const real = MemberOf(step, name);
  return real ? Json(*real) : Json();
}

std::string_view NlgeomText(kprC_Step const& step) {
  switch (step.Nlgeom()) {
    case kprC_Step::NlgeomEnm::ON: return kprC_Step::NLGEOM_ON();
    case kprC_Step::NlgeomEnm::OFF: return kprC_Step::NLGEOM_OFF();
    default: return kprC_Step::NLGEOM_NA();
  }
}

/// "0.1 at first, 1e-05 to 1, at most 100", of what the procedure has.
std::string IncrementsText(kprC_Step const& step) {
  auto const first = MemberOf(step, "initialInc"), least = MemberOf(step, "minInc"), most = MemberOf(step, "maxInc");
  auto const count = MemberOf(step, "maxNumInc");
  std::vector<std::string> parts;
  if (first) { parts.push_back(fmt::format("{} at first", *first)); }
  if (least && most) { parts.push_back(fmt::format("{} to {}", *least, *most)); }
  if (count) { parts.push_back(fmt::format("at most {}", *count)); }
  return parts.empty() ? "-" : fmt::format("{}", fmt::join(parts, ", "));
}

void PrintSteps(kprC_StepContainer const& steps, StepsOptions const& options) {
  TextTable table({"#", "step", "procedure", "period", "nlgeom", "increments"});
  Json list = Json::array();
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    kprC_Step const& step = steps.Step(i);
    std::string const name(steps.Name(i).View()), procedure = ProcedureText(steps.Table().ProcedureType(i));
    if (options.format == Format::Json) {
      list.push_back({{"name", name},
                      {"procedure", procedure},
                      {"perturbation", step.Perturbation()},
                      {"timePeriod", step.TimePeriod()},
                      {"nlgeom", NlgeomText(step)},
                      {"initialInc", JsonOf(step, "initialInc")},
                      {"minInc", JsonOf(step, "minInc")},
                      {"maxInc", JsonOf(step, "maxInc")},
                      {"maxNumInc", JsonOf(step, "maxNumInc")}});
      continue;
    }
    table.Add({{std::to_string(i), Style::Faint},
               {name, Style::Strong},
               {procedure, step.Perturbation() ? Style::Held : Style::Plain},
               i == 0 ? std::string("-") : fmt::format("{}", step.TimePeriod()),
               NlgeomText(step),
               IncrementsText(step)});
  }
  if (options.format == Format::Json) {
    std::cout << JsonPage(list) << '\n';
  } else {
    table.Print(std::cout, TerminalWidth(), UseColor(options.color));
  }
}

/// Why a step of \p procedureType may not come behind the one called \p step; empty when it may.
std::string WhyNotAfter(kprC_StepContainer const& steps, std::string const& step, unsigned procedureType) {
  kprC_StepSequencer sequencer(steps, true);
  sequencer.Run(cow_String(step), false);
  std::string why = sequencer.WhyNot(procedureType);
  if (!why.empty()) { return why; }
  try {
    sequencer.InsertAfter(cow_String(step), procedureType);
  } catch (nex_TextException const&) { return "The steps behind it could not follow it."; }
  return "";
}

void PrintMayFollow(kprC_StepContainer const& steps, StepsOptions const& options) {
  TextTable table({"procedure", "may follow", "why not"});
  Json list = Json::array();
  for (auto const& entry : thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Entries()) {
    if (entry.type == kprC_ProcedureTypeLabelMap::kNone) { continue; }
    std::string const label(entry.label.View()), why = WhyNotAfter(steps, options.mayFollow, entry.type);
    list.push_back({{"procedure", label}, {"mayFollow", why.empty()}, {"whyNot", why}});
    table.Add(
        {{label, why.empty() ? Style::Strong : Style::Faint}, {why.empty() ? "yes" : "no", why.empty() ? Style::New : Style::Off}, why});
  }
  if (options.format == Format::Json) {
    std::cout << JsonPage(list) << '\n';
  } else {
    table.Print(std::cout, TerminalWidth(), UseColor(options.color));
  }
}

int Steps(StepsOptions const& options) {
  ddr_Model const model = ModelPath(options.model).Open();
  kprC_StepContainer const& steps = kprC_Steps(model);
  if (options.mayFollow.empty()) {
    PrintSteps(steps, options);
  } else {
    AssertKnown("step", options.mayFollow, StepNames(model));
    PrintMayFollow(steps, options);
  }
  return kDone;
}

}  // namespace

void AddSteps(CLI::App& program, Action& action) {
  auto const options = std::make_shared<StepsOptions>();
  CLI::App& command = *program.add_subcommand("steps", "The sequence of steps, or what may follow one of them");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("--may-follow", options->mayFollow, "which procedures may be inserted behind this step, and why one may not")
      ->type_name("STEP");
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer("Example: gattr steps forming.gadb --may-follow Draw-1");
  command.callback([options, &action] { action = [options] { return Steps(*options); }; });
}

}  // namespace gattr::cli
