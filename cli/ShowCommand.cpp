#include <CLI/App.hpp>
#include <CLI/Validators.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

#include "cli/Console.h"
#include "cli/Program.h"
#include "report/RenderMembers.h"
#include "store/ModelPath.h"
#include "text/Json.h"

namespace gattr::cli {
namespace {

constexpr char const* kNameHelp = "an attribute; kind:name, as load:Push, where two kinds have the name";

struct ShowOptions {
  std::string model, name, step, member;
  Format format = Format::Text;
  std::string color;
  bool changes = false;
  std::optional<double> at;

  TextLayout Layout() const { return {TerminalWidth(), UseColor(color)}; }
};

/// The time that values are asked at, null where none is.
class AskedTime {
public:
  AskedTime(ddr_Model const& model, ShowOptions const& options) {
    if (options.at) { at_.emplace(model, *options.at); }
  }
  AtTime const* Get() const { return at_ ? &*at_ : nullptr; }

private:
  std::optional<AtTime> at_;
};

void AddAt(CLI::App& command, std::optional<double>& at) {
  command
      .add_option(
          "--at", at,
          "values so long after the beginning of each step, or at its end: times the curve of their amplitude, where the model has it")
      ->type_name("TIME")
      ->check(CLI::NonNegativeNumber.description(""));
}

/// Text goes through the pager where it is long.
template <class Render> void Print(ShowOptions const& options, Render&& render) {
  if (options.format != Format::Text || TerminalWidth() == 0) { return render(std::cout); }
  std::ostringstream text;
  render(text);
  PrintPaged(text.str());
}

int Show(ShowOptions const& options) {
  ddr_Model const model = ModelPath(options.model).Open();
  FoundAttribute const attribute = FindAttribute(model, options.name);
  AskedTime const at(model, options);
  Print(options, [&](std::ostream& out) {
    switch (options.format) {
      case Format::Json: out << JsonPage(gattr::ToJson(ValueOf(attribute, at.Get()))) << '\n'; break;
      case Format::Csv: RenderMembersCsv(out, attribute, at.Get()); break;
      default: RenderMembers(out, attribute, options.Layout(), at.Get());
    }
  });
  return kDone;
}

int ExplainInStep(ShowOptions const& options) {
  ddr_Model const model = ModelPath(options.model).Open();
  FoundAttribute const attribute = FindAttribute(model, options.name);
  kprC_StepTable const& steps = attribute.item->Steps();
  Explanation const explanation = Explain(attribute, FindStep(model, options.step), options.member);
  Print(options, [&](std::ostream& out) {
    if (options.format == Format::Json) {
      out << JsonPage(gattr::ToJson(ValueOf(explanation, steps))) << '\n';
    } else {
      RenderExplanation(out, explanation, steps, options.Layout());
    }
  });
  return kDone;
}

int TellInForce(ShowOptions const& options) {
  ddr_Model const model = ModelPath(options.model).Open();
  InForce::Options told;
  told.still = !options.changes;
  if (!options.step.empty()) { told.first = told.last = FindStep(model, options.step); }
  AskedTime const at(model, options);
  InForce walk(model, told);
  if (options.format == Format::Json) {
    while (InForceAttribute const* const one = walk.Next()) { std::cout << JsonLine(gattr::ToJson(ValueOf(*one, at.Get()))) << '\n'; }
  } else {
    RenderInForce(std::cout, std::move(walk), options.Layout(), at.Get());
  }
  return kDone;
}

}  // namespace

void AddShow(CLI::App& program, Action& action) {
  auto const options = std::make_shared<ShowOptions>();
  CLI::App& command = *program.add_subcommand("show", "What the members of an attribute are in every step, and where that comes from");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("NAME", options->name, kNameHelp)->required()->type_name("");
  AddAt(command, options->at);
  AddFormat(command, options->format, {"text", "csv", "json"});
  AddColor(command, options->color);
  command.footer(
      "A value with an asterisk is said in that step, any other tells the step that said it. A step in which the\n"
      "attribute is not in force shows what it says itself, and nothing that it carries.\n"
      "\nExample: gattr show forming.gadb Punch");
  command.callback([options, &action] { action = [options] { return Show(*options); }; });
}

void AddExplain(CLI::App& program, Action& action) {
  auto const options = std::make_shared<ShowOptions>();
  CLI::App& command = *program.add_subcommand("explain", "Why an attribute, or a member of it, is in a step what it is");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("NAME", options->name, kNameHelp)->required()->type_name("");
  command.add_option("STEP", options->step, "the step")->required()->type_name("");
  command.add_option("MEMBER", options->member, "a member, as u2 or region (default: the attribute as a whole)")->type_name("");
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer("Example: gattr explain forming.gadb Punch Retract u2");
  command.callback([options, &action] { action = [options] { return ExplainInStep(*options); }; });
}

void AddInForce(CLI::App& program, Action& action) {
  auto const options = std::make_shared<ShowOptions>();
  CLI::App& command = *program.add_subcommand("inforce", "What is new, changed, gone and still in force, step by step");
  command.add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
  command.add_option("STEP", options->step, "only this step (default: all)")->type_name("");
  command.add_flag("--changes", options->changes, "leave out what is as in the step before");
  AddAt(command, options->at);
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer(
      "With --format json a line for each attribute in each step, with all that a writer of a solver's input needs.\n"
      "What is gone is switched off, passed over, held by modes or reset, as its status tells.\n"
      "\nExample: gattr inforce forming.gadb --changes --format json");
  command.callback([options, &action] { action = [options] { return TellInForce(*options); }; });
}

}  // namespace gattr::cli
