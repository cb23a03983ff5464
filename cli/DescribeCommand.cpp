#include <CLI/App.hpp>
#include <iostream>
#include <map>
#include <memory>

#include "cli/Console.h"
#include "cli/Description.h"
#include "cli/Program.h"
#include "report/TextTable.h"
#include "text/JsonText.h"

namespace gattr::cli {
namespace {

struct DescribeOptions {
  std::string name;
  Format format = Format::Text;
  std::string color;
};

constexpr std::string_view kDryRun =
    R"(as every command it takes "dryRun": true (--dry-run in `gattr do`): tells what would be refused, created, changed and deleted, and changes nothing)";

std::string Joined(std::vector<std::string> const& texts) {
  std::string joined;
  for (std::string const& text : texts) { joined += (joined.empty() ? "" : ", ") + text; }
  return joined.empty() ? "none" : joined;
}

Json ToJson(Description const& description) {
  Json entries = Json::array();
  for (auto const& entry : description.entries) {
    entries.push_back({{"name", entry.name},
                       {"type", entry.Type()},
                       {"required", entry.required},
                       {"perStep", entry.perStep},
                       {"default", gattr::ToJson(entry.preset)},
                       {"unit", entry.unit},
                       {"permissible", entry.permissible},
                       {"meaning", entry.meaning}});
  }
  Json json = {{"name", description.name},
               {"class", description.className},
               {"meaning", description.meaning},
               {"commands", description.commands},
               {"members", std::move(entries)}};
  if (description.createdIn) { json["createdIn"] = *description.createdIn; }
  if (description.carriedInto) { json["carriedInto"] = *description.carriedInto; }
  if (description.createdIn) { json["inBaseStateOf"] = description.inBaseStateOf; }
  if (!description.inLoadCases.empty()) { json["inLoadCases"] = description.inLoadCases; }
  return json;
}

std::string PresetText(ArgumentInfo const& entry) {
  if (entry.required) { return "required"; }
  if (entry.preset.IsNull()) { return "-"; }
  auto const* text = entry.preset.As<std::string>();
  return text == nullptr || text->empty() ? JsonText(entry.preset) : *text;
}

/// \p text broken to the terminal's width, its further lines under the first.
void PrintLabelled(std::string const& label, std::string_view text, bool color) {
  constexpr std::size_t kIndent = 14;
  std::size_t const width = TerminalWidth();
  std::string lead = Styled(Fitted(label, kIndent), Style::Strong, color);
  for (std::string const& line : WrappedLines(Shown(text), width > 2 * kIndent ? width - kIndent : 0)) {
    std::cout << lead << line << '\n';
    lead.assign(kIndent, ' ');
  }
}

void Print(Description const& description, bool color) {
  std::cout << Styled(description.name, Style::Strong, color) << (description.meaning.empty() ? "" : ": " + Shown(description.meaning))
            << '\n';
  if (!description.className.empty() && description.className != description.name) { PrintLabelled("class", description.className, color); }
  if (!description.commands.empty()) { PrintLabelled("made by", Joined(description.commands), color); }
  if (description.createdIn) { PrintLabelled("created in", Joined(*description.createdIn), color); }
  if (description.carriedInto) { PrintLabelled("carried into", Joined(*description.carriedInto), color); }
  if (!description.inBaseStateOf.empty()) { PrintLabelled("base state of", Joined(description.inBaseStateOf), color); }
  if (description.isCommand) { PrintLabelled("dryRun", kDryRun, color); }
  if (!description.inLoadCases.empty()) { PrintLabelled("load cases", description.inLoadCases, color); }
  if (description.entries.empty()) { return; }
  std::cout << '\n';
  TextTable table({description.name == description.className ? "member" : "argument", "type", "default", "unit", "meaning"});
  for (auto const& entry : description.entries) {
    std::string const type = entry.perStep ? entry.Type() + ", per step" : entry.Type();
    std::string const meaning = entry.permissible.empty() ? entry.meaning : entry.meaning + ": " + Joined(entry.permissible);
    table.Add({{entry.name, Style::Strong},
               {type, Style::Held},
               {PresetText(entry), entry.required ? Style::Changed : Style::Faint},
               {entry.unit, Style::Faint},
               meaning});
  }
  table.Print(std::cout, TerminalWidth(), color);
}

int List(DescribeOptions const& options) {
  std::vector<CommandInfo> const commands = Session::Commands();
  if (options.format == Format::Json) {
    Json list = Json::array();
    for (auto const& command : commands) {
      list.push_back({{"name", command.name}, {"group", command.group}, {"meaning", command.meaning}});
    }
    std::cout << JsonPage({{"commands", std::move(list)}, {"classes", ClassNames()}}) << '\n';
    return kDone;
  }
  bool const color = UseColor(options.color);
  TextTable table({"command", "group", "meaning"});
  for (auto const& command : commands) { table.Add({{command.name, Style::Strong}, {command.group, Style::Faint}, command.meaning}); }
  table.Print(std::cout, TerminalWidth(), color);
  std::map<std::string, std::vector<std::string>> modules;  // by prefix
  for (std::string const& name : ClassNames()) { modules[name.substr(0, name.find('_'))].push_back(name); }
  std::cout << '\n' << Styled("classes", Style::Strong, color) << '\n';
  for (auto const& [module, names] : modules) { PrintLabelled(module, Joined(names), color); }
  return kDone;
}

int Run(DescribeOptions const& options) {
  if (options.name.empty()) { return List(options); }
  Description const description = DescriptionOf(options.name);
  if (options.format == Format::Json) {
    std::cout << JsonPage(ToJson(description)) << '\n';
  } else {
    Print(description, UseColor(options.color));
  }
  return kDone;
}

}  // namespace

int Describe(std::string const& name) { return Run({name, Format::Text, "auto"}); }

void AddDescribe(CLI::App& program, Action& action) {
  auto const options = std::make_shared<DescribeOptions>();
  CLI::App& command = *program.add_subcommand("describe", "What a command or class takes: members, types, texts, units, procedures");
  command
      .add_option("CLASS", options->name,
                  "a command of journals (DisplacementBC, StaticStep, move) or a class, in any case of letters (default: list them)")
      ->type_name("");
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer("Example: gattr describe StaticStep");
  command.callback([options, &action] { action = [options] { return Run(*options); }; });
}

}  // namespace gattr::cli
