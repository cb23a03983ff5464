#include <CLI/App.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <system_error>

#include "cli/Description.h"
#include "cli/Program.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

struct HelpOptions {
  std::string name, manFolder;
};

/// A manual page, as `man` reads one, of what a program or subcommand says of itself.
class ManPage {
public:
  ManPage(CLI::App const& program, CLI::App const& command) : program_(program), command_(command) {}

  /// "gattr-history" without the ending.
  std::string Name() const { return IsProgram() ? program_.get_name() : program_.get_name() + "-" + command_.get_name(); }

  void Write(std::ostream& out) const {
    std::string title = Name();
    std::ranges::transform(title, title.begin(), [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    out << ".TH " << title << " 1 \"\" \"gattr " GATTR_VERSION "\"\n";
    out << ".SH NAME\n" << Line(Name() + " - " + OneLine(command_.get_description())) << ".SH SYNOPSIS\n" << Synopsis();
    WriteOptions(out, "ARGUMENTS", [](CLI::Option const* option) { return option->get_positional(); });
    WriteOptions(out, "OPTIONS", [](CLI::Option const* option) { return !option->get_positional(); });
    if (IsProgram()) { WriteSubcommands(out); }
    out << ".SH NOTES\n.nf\n";
    std::istringstream notes(command_.get_footer());
    for (std::string line; std::getline(notes, line);) { out << Line(line); }
    out << ".fi\n.SH EXIT STATUS\n0 all done, 1 something was refused, found or different, 2 bad use or unreadable input.\n";
    if (!IsProgram()) { out << ".SH SEE ALSO\n.BR " << program_.get_name() << " (1)\n"; }
  }

private:
  bool IsProgram() const { return &program_ == &command_; }

  /// A line of text in which nothing is a request or an escape.
  static std::string Line(std::string_view text) {
    std::string line = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (char const c : text) { line += c == '\\' ? std::string("\\e") : c == '-' ? std::string("\\-") : std::string(1, c); }
    return line + "\n";
  }

  std::string Synopsis() const {
    std::string line = program_.get_name() + (IsProgram() ? " SUBCOMMAND" : " " + command_.get_name());
    for (CLI::Option const* const option : command_.get_options()) {
      if (option->get_positional()) { line += option->get_required() ? " " + option->get_name() : " [" + option->get_name() + "]"; }
    }
    return Line(line + " [options]");
  }

  template <class Is> void WriteOptions(std::ostream& out, std::string_view title, Is&& is) const {
    bool first = true;
    for (CLI::Option const* const option : command_.get_options()) {
      if (!is(option)) { continue; }
      if (std::exchange(first, false)) { out << ".SH " << title << "\n"; }
      std::string const value = option->get_positional() || option->get_items_expected_max() == 0 ? "" : " " + option->get_type_name();
      out << ".TP\n" << Line(option->get_name(option->get_positional(), true) + value) << Line(OneLine(option->get_description()));
    }
  }
  void WriteSubcommands(std::ostream& out) const {
    out << ".SH SUBCOMMANDS\n";
    for (CLI::App const* const command : Subcommands(program_)) {
      out << ".TP\n.BR " << program_.get_name() << "\\-" << command->get_name() << " (1)\n" << Line(OneLine(command->get_description()));
    }
  }

  CLI::App const &program_, &command_;
};

void WriteManPages(CLI::App const& program, std::filesystem::path const& folder) {
  std::vector<CLI::App const*> commands = Subcommands(program);
  commands.push_back(&program);
  for (CLI::App const* const command : commands) {
    ManPage const page(program, *command);
    std::filesystem::path const path = folder / (page.Name() + ".1");
    std::ofstream out(path);
    page.Write(out);
    out.close();
    if (!out) { throw BadInput("cannot write " + Quoted(path.string()) + ": " + std::generic_category().message(errno)); }
  }
}

int Help(CLI::App const& program, HelpOptions const& options) {
  if (!options.manFolder.empty()) {
    WriteManPages(program, options.manFolder);
    return kDone;
  }
  if (options.name.empty()) {
    std::cout << program.get_formatter()->make_help(&program, program.get_name(),
                                                    CLI::AppFormatMode::Normal);  // help() is of what was parsed: this subcommand
    return kDone;
  }
  std::vector<std::string> known;
  for (CLI::App const* const command : Subcommands(program)) {
    known.push_back(command->get_name());
    if (command->get_name() != options.name) { continue; }
    std::cout << command->help(program.get_name());
    return kDone;
  }
  for (CommandInfo const& command : Session::Commands()) { known.push_back(command.name); }
  try {
    return Describe(options.name);
  } catch (BadInput const&) {
    AssertKnown("subcommand, command or class", options.name, known);
    throw;
  }
}

}  // namespace

void AddHelp(CLI::App& program, Action& action) {
  auto const options = std::make_shared<HelpOptions>();
  CLI::App& command = *program.add_subcommand("help", "Tell of a subcommand, a command of journals or a class");
  command.add_option("TOPIC", options->name, "a subcommand, a command or a class (default: the list of subcommands)")->type_name("");
  command.add_option("--man", options->manFolder, "write the manual pages of the program and its subcommands there instead")
      ->type_name("FOLDER");
  command.footer("Example: gattr help history");
  command.callback([&program, options, &action] { action = [&program, options] { return Help(program, *options); }; });
}

}  // namespace gattr::cli
