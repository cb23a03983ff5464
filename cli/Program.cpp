#include "cli/Program.h"

#include <CLI/App.hpp>
#include <CLI/Validators.hpp>
#include <algorithm>
#include <utility>

#include "text/Text.h"

namespace gattr::cli {

void AddFormat(CLI::App& command, Format& format, std::vector<std::string> const& offered) {
  static constexpr std::pair<char const*, Format> kFormats[] = {
      {"text", Format::Text}, {"csv", Format::Csv}, {"json", Format::Json}, {"html", Format::Html}};
  auto const take = [&format](std::string const& text) {
    for (auto const& [name, value] : kFormats) {
      if (text == name) { format = value; }
    }
  };
  std::string texts;
  for (std::string const& text : offered) { texts += (texts.empty() ? "" : ", ") + text; }
  command.add_option_function<std::string>("--format", take, texts + " (default: text)")
      ->check(CLI::IsMember(offered).description(""))
      ->type_name("FORMAT");
}

void AddColor(CLI::App& command, std::string& choice) {
  choice = "auto";
  command.add_option("--color", choice, "auto (on a terminal, unless NO_COLOR is set), always, never")
      ->check(CLI::IsMember({"auto", "always", "never"}).description(""))
      ->type_name("WHEN");
}

void AssertKnown(std::string const& what, std::string const& name, std::vector<std::string> const& known) {
  if (std::ranges::any_of(known, [&](std::string const& one) { return Fits(name, one); })) { return; }
  if (name.find_first_of("*?") != std::string::npos) { throw BadInput("no " + what + " fits " + Quoted(name)); }
  throw BadInput("there is no " + what + " " + Quoted(name) + ". " + Suggestion(name, known, "There are"));
}

}  // namespace gattr::cli
