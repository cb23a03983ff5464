#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI
class ddr_Model;

/// What the subcommands share. Each file <Name>Command.cpp declares one or two of them to the parser and runs them.
namespace gattr::cli {

/// The program's exit statuses.
enum ExitStatus : int {
  kDone = 0,      ///< everything asked for was done, nothing was found
  kRefused = 1,   ///< a command was refused, or the check found something
  kBadInput = 2,  ///< bad use or unreadable input
};

/// Bad use or unreadable input: ends the program with kBadInput and this message.
class BadInput : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// What is to be run once the arguments have been understood; answers the exit status.
using Action = std::function<int()>;

void AddReplay(CLI::App& program, Action& action);
void AddReport(CLI::App& program, Action& action);
void AddDo(CLI::App& program, Action& action);
void AddJournal(CLI::App& program, Action& action);
void AddHistory(CLI::App& program, Action& action);
void AddShow(CLI::App& program, Action& action);
void AddExplain(CLI::App& program, Action& action);
void AddInForce(CLI::App& program, Action& action);
void AddCheck(CLI::App& program, Action& action);
void AddSchema(CLI::App& program, Action& action);
void AddShell(CLI::App& program, Action& action);
void AddSteps(CLI::App& program, Action& action);
void AddDump(CLI::App& program, Action& action);
void AddLoad(CLI::App& program, Action& action);
void AddDescribe(CLI::App& program, Action& action);
void AddHelp(CLI::App& program, Action& action);
void AddCompletion(CLI::App& program, Action& action);
void AddCodes(CLI::App& program, Action& action);
void AddVariables(CLI::App& program, Action& action);
void AddDiff(CLI::App& program, Action& action);
void AddMerge(CLI::App& program, Action& action);
void AddGitSetup(CLI::App& program, Action& action);

inline constexpr char const* kModelHelp = "model file: .gadb, or .gattr.json for the text form";

/// A form of output.
enum class Format { Text, Csv, Json, Html, Sarif, Junit };
/// All subcommands, in the order of help.
std::vector<CLI::App const*> Subcommands(CLI::App const& program);
/// Has an option take one of \p choices alone, which completion then offers.
void AddChoice(CLI::Option& option, std::vector<std::string> const& choices);
/// The choices of an option; none where it takes others too.
std::vector<std::string> ChoicesOf(CLI::Option const& option);
/// Adds --format with the texts of \p offered.
CLI::Option& AddFormat(CLI::App& command, Format& format, std::vector<std::string> const& offered);
inline constexpr char const* kDryRunHelp =
    "tell what would be refused, created, changed and deleted, with statuses before and after; write nothing";

/// Adds --color.
void AddColor(CLI::App& command, std::string& choice);

/// Prints what a command or class takes; refuses an unknown one.
int Describe(std::string const& name);

/// Prints what is wrong in a model as a table, or that nothing was found; answers the exit status of `check`.
int PrintFindings(ddr_Model const& model);

/// Refuses a \p name that is not among \p known, nor a pattern that one of them fits: 'there is no step "Step-3". Did you mean "Step-2"?'
void AssertKnown(std::string const& what, std::string const& name, std::vector<std::string> const& known);

}  // namespace gattr::cli
