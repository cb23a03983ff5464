#include <fmt/core.h>

#include <CLI/App.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "cli/Console.h"
#include "cli/LineReader.h"
#include "cli/Program.h"
#include "cli/ResultsFiles.h"
#include "command/CommandWords.h"
#include "report/Display.h"
#include "report/RenderEffects.h"
#include "store/ModelPath.h"
#include "store/StoreError.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

struct ShellOptions {
  std::string model, results;
};

/// A model that is edited line by line.
class Shell {
public:
  explicit Shell(std::string const& path)
      : path_(path),
        file_(path),
        session_(Opened()),
        opened_(session_.Model()),
        saved_(session_.Model()),
        lines_([this](std::string const& typed) { return Completions(typed); }) {}

  int Run() {
    while (!done_) {
      std::string const file = Shown(std::filesystem::path(path_).filename().string());
      std::string const branch = session_.Branches().size() == 1 ? "" : " [" + Shown(session_.CurrentBranch()) + "]";
      auto const line = lines_.Next(fmt::format("{}{}{}> ", file, IsSaved() ? "" : "*", branch));
      if (!line) { break; }
      Take(*line);
    }
    if (!done_) { Quit(); }
    return lines_.IsTerminal() ? kDone : status_;
  }

private:
  struct Own {
    std::string_view name, meaning;
    void (Shell::*run)(std::vector<std::string> const& words);
    std::vector<std::string> (Shell::*names)() const = nullptr;  // that its arguments may be
  };
  static std::vector<Own> const& OwnCommands() {
    static std::vector<Own> const commands = {
        {"save", "writes the model", &Shell::Save},
        {"history", "what attributes do in every step: of all, or of those named", &Shell::History, &Shell::Attributes},
        {"check", "finds what is wrong in the model", &Shell::Check},
        {"journal", "prints the commands of this session", &Shell::Journal},
        {"branch", "begins a branch: another version of the model; lists them, or --delete NAME", &Shell::Branch, &Shell::Branches},
        {"switch", "goes on in another branch", &Shell::Switch, &Shell::Branches},
        {"compare", "tells what this branch says that another does not", &Shell::Compare, &Shell::Branches},
        {"help", "lists the commands, or the arguments of one", &Shell::Help},
        {"quit", "ends; so does the end of input", &Shell::QuitCommand}};
    return commands;
  }

  std::vector<std::string> Attributes() const { return AttributeNames(session_.Model()); }
  std::vector<std::string> Branches() const { return session_.Branches(); }

  ddr_Model Opened() {
    if (std::filesystem::exists(path_)) { return file_.Open(); }
    Tell(fmt::format("gattr: {} is a new model\n", Shown(path_)));
    return Session().Model();
  }
  bool IsSaved() const { return session_.Model().Equals(saved_); }

  void Take(std::string const& line) {
    std::size_t const begin = line.find_first_not_of(" \t\r");
    if (begin == std::string::npos || line[begin] == '#') { return; }
    try {
      if (line[begin] == '{') { return Execute(ParseJson(line)); }
      std::vector<std::string> words = WordsOf(line);
      bool const dryRun = std::erase(words, "--dry-run") != 0;
      if (words.empty()) { throw BadInput("--dry-run stands behind a command"); }
      auto const own = std::ranges::find(OwnCommands(), words[0], &Own::name);
      if (own != OwnCommands().end()) {
        if (dryRun) { throw BadInput("--dry-run stands behind a command on the model, which " + Quoted(words[0]) + " is not"); }
        return (this->*own->run)(words);
      }
      cls_Value command = words_.Read(session_.Model(), words);
      if (dryRun) { std::get<cls_Value::Fields>(command.data).emplace_back("dryRun", true); }
      Execute(command);
    } catch (JsonError const& error) {
      Refuse(std::string("this is no JSON: ") + error.what() + ".");
    } catch (std::invalid_argument const& error) { Refuse(error.what()); } catch (BadInput const& error) {
      Refuse(error.what());
    } catch (StoreError const& error) { Refuse(error.what()); }
    std::cout.flush();
  }
  void Refuse(std::string_view message, int status = kBadInput) {
    status_ = std::max(status_, status);
    std::cout.flush();
    gattr::cli::Tell(fmt::format("gattr: {}\n", Shown(message)));
  }
  void Execute(cls_Value const& command) {
    Outcome const outcome = session_.Execute(command);
    std::cout << ShownLines(outcome.report);
    RenderText(std::cout, outcome.effects, {TerminalWidth(), UseColor("auto")});
    std::cout.flush();
    if (!outcome.ok) { return Refuse(outcome.message, outcome.badInput ? kBadInput : kRefused); }
    if (!outcome.message.empty()) { gattr::cli::Tell(fmt::format("gattr: {}\n", Shown(outcome.message))); }
  }

  void Save(std::vector<std::string> const& words) {
    if (words.size() > 1) { throw BadInput("save takes no argument: the model is written where it was opened"); }
    file_.Save(session_.Model());
    saved_ = session_.Model();
  }
  void History(std::vector<std::string> const& words) {
    HistoryFilter filter;
    filter.attributes.assign(words.begin() + 1, words.end());
    for (auto const& name : filter.attributes) { AssertKnown("attribute", name, AttributeNames(session_.Model())); }
    RenderText(std::cout, HistoriesOf(session_.Model(), filter), {TerminalWidth(), UseColor("auto")});
  }
  void Check(std::vector<std::string> const& /*words*/) { PrintFindings(session_.Model()); }
  void Journal(std::vector<std::string> const& /*words*/) {
    for (cls_Value const& command : session_.Journal()) { std::cout << JsonEscaped(JsonText(command)) << '\n'; }
  }
  void Branch(std::vector<std::string> const& words) {
    if (words.size() == 1) {
      for (std::string const& name : session_.Branches()) {
        std::cout << (name == session_.CurrentBranch() ? "* " : "  ") << Shown(name) << '\n';
      }
    } else if (words.size() == 3 && words[1] == "--delete") {
      session_.DeleteBranch(words[2]);
    } else if (words.size() == 2 && !words[1].starts_with('-')) {
      session_.Branch(words[1]);
    } else {
      throw BadInput("branch takes a name, or --delete and a name, or nothing");
    }
  }
  void Switch(std::vector<std::string> const& words) {
    if (words.size() != 2) { throw BadInput("switch takes the name of a branch"); }
    session_.Switch(words[1]);
  }
  void Compare(std::vector<std::string> const& words) {
    if (words.size() != 2) { throw BadInput("compare takes the name of another branch"); }
    RenderText(std::cout, session_.Compare(session_.CurrentBranch(), words[1]), {TerminalWidth(), UseColor("auto")});
  }
  static void TellOf(std::string_view command, std::string_view meaning) { std::cout << fmt::format("{:<28}{}\n", command, meaning); }
  void Help(std::vector<std::string> const& words) {
    if (words.size() == 1) {
      for (Own const& own : OwnCommands()) { TellOf(own.name, own.meaning); }
      for (CommandInfo const& info : Session::Commands()) { TellOf(info.name, info.meaning); }
      return;
    }
    std::vector<std::string> const command(words.begin() + 1, words.end());
    std::vector<ArgumentInfo> const arguments = words_.Arguments(session_.Model(), command);
    if (arguments.empty()) {
      for (Own const& own : OwnCommands()) {
        if (own.name == command[0]) { return TellOf(own.name, own.meaning); }
      }
      for (CommandInfo const& info : Session::Commands()) {
        if (info.name == command[0]) { return TellOf(info.name, info.meaning); }
      }
      return Refuse("there is nothing to tell of " + Quoted(command[0]));
    }
    for (ArgumentInfo const& argument : arguments) {
      std::cout << fmt::format("{:<28}{:<20}{}\n", argument.name, argument.Type(), argument.meaning);
    }
  }
  void QuitCommand(std::vector<std::string> const& /*words*/) { Quit(); }
  /// Ends, unless the person thinks better of it. Without one, what is not saved is told.
  void Quit() {
    done_ = true;
    for (std::string const& name : session_.Branches()) {
      ddr_Model const& model = session_.ModelOf(name);
      if (name == session_.CurrentBranch() || model.Equals(saved_) || model.Equals(opened_)) { continue; }
      gattr::cli::Tell(fmt::format("gattr: the branch {} was not saved\n", Shown(Quoted(name))));
    }
    if (IsSaved()) { return; }
    if (!lines_.IsTerminal()) { return Refuse("changes of " + path_ + " were not saved: \"save\" does that", kRefused); }
    for (;;) {
      auto const answer = lines_.Next("Save the changes? (y)es, (n)o, (c)ancel: ");
      if (!answer || *answer == "n" || *answer == "no") { return; }
      done_ = *answer != "c" && *answer != "cancel";
      if (!done_) { return; }
      if (*answer != "y" && *answer != "yes") { continue; }
      try {
        return Save({"save"});
      } catch (StoreError const& error) { Refuse(error.what()); }
    }
  }

  LineReader::Completion Completions(std::string const& typed) const {
    LineReader::Completion completion;
    std::vector<std::string> words = WordsOf(typed, &completion.at);
    if (completion.at == typed.size()) { words.emplace_back(); }
    std::vector<std::string>& found = completion.words;
    found = words_.Completions(session_.Model(), words);
    for (Own const& own : OwnCommands()) {
      if (words.size() == 1 && own.name.starts_with(words[0])) { found.emplace_back(own.name); }
      if (words.size() == 1 || own.name != words[0] || own.names == nullptr) { continue; }
      for (std::string const& name : (this->*own.names)()) {
        if (name.starts_with(words.back())) { found.push_back(InWord(name)); }
      }
    }
    return completion;
  }

  std::string path_;
  ModelPath file_;
  Session session_;
  ddr_Model const opened_;
  ddr_Model saved_;
  CommandWords words_;
  LineReader lines_;
  int status_ = kDone;
  bool done_ = false;
};

constexpr char const* kShellFooter =
    R"(A line is a command as `gattr do` takes it, or a JSON object as journals have it; "undo" and "redo" are commands too. With
--dry-run behind it a command tells what it would change, create and delete, and changes nothing.
"help" lists them, and save, history, check, journal, branch, switch, compare and quit. At a terminal, the tabulator key completes
commands, arguments, steps and names, and what was typed is kept for the next time in gattr/history below $XDG_STATE_HOME
(~/.local/state). Nothing is written before "save"; at a terminal, quitting asks.
From a pipe, the exit status is 1 where something was refused or not saved.

Example: gattr shell forming.gadb)";

}  // namespace

void AddShell(CLI::App& program, Action& action) {
  auto const options = std::make_shared<ShellOptions>();
  CLI::App& command = *program.add_subcommand("shell", "Edit a model line by line");
  command.add_option("MODEL", options->model, "model file, which may be new: .gadb, or .gattr.json for the text form")
      ->required()
      ->type_name("");
  command.add_option("--results", options->results, kResultsHelp)->type_name("FOLDER");
  command.footer(kShellFooter);
  command.callback([options, &action] {
    action = [options] {
      UseResults(options->results);
      return Shell(options->model).Run();
    };
  });
}

}  // namespace gattr::cli
