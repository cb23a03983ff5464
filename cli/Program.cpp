#include "cli/Program.h"

#include <CLI/App.hpp>
#include <CLI/Validators.hpp>
#include <algorithm>
#include <sstream>
#include <utility>

#include "text/Text.h"

namespace gattr::cli {

std::vector<CLI::App const*> Subcommands(CLI::App const& program) {
  return program.get_subcommands([](CLI::App const*) { return true; });
}

// The parser asks a validator, but does not tell what it would take; its name does.
void AddChoice(CLI::Option& option, std::vector<std::string> const& choices) {
  std::string name;
  for (std::string const& choice : choices) { name += choice + "\n"; }
  option.check(CLI::IsMember(choices).description("").name(name));
}

std::vector<std::string> ChoicesOf(CLI::Option const& option) {
  std::vector<std::string> choices;
  CLI::Validator const* validator = nullptr;
  try {
    validator = const_cast<CLI::Option&>(option).get_validator(0);  // changes nothing
  } catch (CLI::OptionNotFound const&) { return choices; }
  std::istringstream names(validator->get_name());
  for (std::string choice; std::getline(names, choice);) { choices.push_back(choice); }
  return choices;
}

CLI::Option& AddFormat(CLI::App& command, Format& format, std::vector<std::string> const& offered) {
  static constexpr std::pair<char const*, Format> kFormats[] = {{"text", Format::Text}, {"csv", Format::Csv},     {"json", Format::Json},
                                                                {"html", Format::Html}, {"sarif", Format::Sarif}, {"junit", Format::Junit}};
  auto const take = [&format](std::string const& text) {
    for (auto const& [name, value] : kFormats) {
      if (text == name) { format = value; }
    }
  };
  std::string texts;
  for (std::string const& text : offered) { texts += (texts.empty() ? "" : ", ") + text; }
  CLI::Option& option = *command.add_option_function<std::string>("--format", take, texts + " (default: text)")->type_name("FORMAT");
  AddChoice(option, offered);
  return option;
}

void AddColor(CLI::App& command, std::string& choice) {
  choice = "auto";
  AddChoice(*command.add_option("--color", choice, "auto (on a terminal, unless NO_COLOR is set), always, never")->type_name("WHEN"),
            {"auto", "always", "never"});
}

void AssertKnown(std::string const& what, std::string const& name, std::vector<std::string> const& known) {
  if (std::ranges::any_of(known, [&](std::string const& one) { return Fits(name, one); })) { return; }
  if (name.find_first_of("*?") != std::string::npos) { throw BadInput("no " + what + " fits " + Quoted(name)); }
  throw BadInput("there is no " + what + " " + Quoted(name) + ". " + Suggestion(name, known, "There are"));
}

}  // namespace gattr::cli
