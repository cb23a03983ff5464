#include <fmt/core.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <exception>
#include <iostream>

#include "cli/Program.h"
#include "module/DDB_GeometricAttributes.h"
#include "report/Display.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

constexpr char const* kProgramFooter = R"(Examples:
  gattr replay forming.jsonl -o forming.gadb    run a journal of commands, keep the model
  gattr history forming.gadb                    what everything does in every step
  gattr describe DisplacementBC                 what a command takes and where it is admitted

Exit status: 0 all done, 1 something was refused or found, 2 bad use or unreadable input.
`gattr SUBCOMMAND --help` tells more and gives an example.)";

/// Runs the library as long as it lives.
struct Library {
  Library() { DDB_GeometricAttributes_initialize(count); }
  ~Library() { DDB_GeometricAttributes_finalize(count); }
  Library(Library const&) = delete;
  Library& operator=(Library const&) = delete;

  int count = 0;
};

/// Messages may hold names from files and arguments.
int Fail(std::string_view message) {
  std::cout.flush();
  fmt::print(stderr, "gattr: {}\n", Shown(message));
  return kBadInput;
}

int Parse(CLI::App& program, int argc, char** argv, Action& action) {
  std::vector<std::string> known;
  for (CLI::App const* command : program.get_subcommands([](CLI::App*) { return true; })) { known.push_back(command->get_name()); }
  if (argc == 1) {
    std::cerr << program.help();
    return kBadInput;
  }
  if (argv[1][0] != '-') { AssertKnown("subcommand", argv[1], known); }
  try {
    program.parse(argc, argv);
  } catch (CLI::ParseError const& error) {
    if (error.get_exit_code() == 0) { return program.exit(error, std::cout, std::cerr); }  // help or the version was asked for
    auto const chosen = program.get_subcommands();
    std::string const command = chosen.empty() ? "gattr" : "gattr " + chosen.front()->get_name();
    return Fail(fmt::format("{} (`{} --help` tells more)", OneLine(error.what()), command));
  }
  return action();
}

int Run(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  CLI::App program(
      "Sets up analysis models step by step: what acts in which step, the history of each over all steps, and why an edit is refused.",
      "gattr");
  program.footer(kProgramFooter)->require_subcommand(1);
  program.set_version_flag("--version", "gattr " GATTR_VERSION, "Print the version and exit");
  program.get_formatter()->column_width(30);
  program.get_formatter()->label("REQUIRED", "");
  Action action;
  AddReplay(program, action);
  AddHistory(program, action);
  AddCheck(program, action);
  AddSteps(program, action);
  AddDump(program, action);
  AddLoad(program, action);
  AddDescribe(program, action);
  AddCodes(program, action);
  try {
    Library const library;
    int const status = Parse(program, argc, argv, action);
    std::cout.flush();
    return std::cout ? status : Fail("cannot write to standard output");
  } catch (std::bad_alloc const&) { return Fail("out of memory"); } catch (std::exception const& error) {
    return Fail(error.what());
  }
}

}  // namespace
}  // namespace gattr::cli

int main(int argc, char** argv) { return gattr::cli::Run(argc, argv); }
