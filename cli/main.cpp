#include <fcntl.h>
#include <fmt/core.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "cli/Console.h"
#include "cli/Program.h"
#include "command/Library.h"
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

/// Messages may hold names from files and arguments.
int Fail(std::string_view message) {
  std::cout.flush();
  Tell(fmt::format("gattr: {}\n", Shown(message)));
  return kBadInput;
}
int FailForMemory() {  // of which a message must not take any
  Tell("gattr: out of memory\n");
  return kBadInput;
}

/// Tells of memory that ran out where nothing catches it: before main, where packages make objects, and where one must not fail.
struct TellsOfMemory {
  TellsOfMemory() {
    std::set_terminate([] {
      try {
        if (auto const error = std::current_exception()) { std::rethrow_exception(error); }
      } catch (std::bad_alloc const&) { _exit(FailForMemory()); } catch (...) {
        std::abort();
      }
      std::abort();
    });
  }
};
[[gnu::init_priority(101)]] TellsOfMemory const tellsOfMemory;

/// Lets no file that is opened later be taken for a standard stream that was closed: what is written to those fails as before.
void OccupyStandardStreams() {
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) < 0) { static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY)); }
  }
}

int Parse(CLI::App& program, int argc, char** argv, Action& action) {
  std::vector<std::string> known;
  for (CLI::App const* command : Subcommands(program)) { known.push_back(command->get_name()); }
  if (argc == 1) {
    Tell(program.help());
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

int RunProgram(int argc, char** argv) {
  CLI::App program(
      "Sets up analysis models step by step: what acts in which step, the history of each over all steps, and why an edit is refused.",
      "gattr");
  program.footer(kProgramFooter)->require_subcommand(1);
  program.set_version_flag("--version", "gattr " GATTR_VERSION, "Print the version and exit");
  program.get_formatter()->column_width(30);
  program.get_formatter()->label("REQUIRED", "");
  Action action;
  AddReplay(program, action);
  AddDo(program, action);
  AddJournal(program, action);
  AddHistory(program, action);
  AddShow(program, action);
  AddExplain(program, action);
  AddInForce(program, action);
  AddCheck(program, action);
  AddReport(program, action);
  AddSteps(program, action);
  AddShell(program, action);
  AddSchema(program, action);
  AddDump(program, action);
  AddLoad(program, action);
  AddDescribe(program, action);
  AddHelp(program, action);
  AddCompletion(program, action);
  AddCodes(program, action);
  AddVariables(program, action);
  AddDiff(program, action);
  AddMerge(program, action);
  AddGitSetup(program, action);
  Library const library;
  int const status = Parse(program, argc, argv, action);
  std::cout.flush();
  return std::cout ? status : Fail("cannot write to standard output");
}

int Run(int argc, char** argv) {
  OccupyStandardStreams();
  int status = kBadInput;
  try {
    std::ios::sync_with_stdio(false);
    status = RunProgram(argc, argv);
  } catch (std::bad_alloc const&) { status = FailForMemory(); } catch (std::exception const& error) {
    try {
      status = Fail(error.what());
    } catch (std::bad_alloc const&) { status = FailForMemory(); }
  }
  return CannotTell() ? kBadInput : status;
}

}  // namespace
}  // namespace gattr::cli

int main(int argc, char** argv) { return gattr::cli::Run(argc, argv); }
