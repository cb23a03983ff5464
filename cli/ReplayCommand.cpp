#include <fmt/core.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <system_error>

#include "cli/Console.h"
#include "cli/Findings.h"
#include "cli/Program.h"
#include "cli/ResultsFiles.h"
#include "command/Journal.h"
#include "command/JournalCheck.h"
#include "command/Session.h"
#include "report/Display.h"
#include "report/RenderEffects.h"
#include "store/ModelPath.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

struct ReplayOptions {
  std::string journal, on, output, results, record;
  bool trace = false, keepGoing = false, force = false, dryRun = false, check = false;
  FindingsOptions findings;
};

/// A journal as a stream, and how much of it has been read.
class JournalFile {
public:
  explicit JournalFile(std::string const& path) : name_(path == "-" ? "standard input" : path) {
    if (path == "-") { return; }
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) { throw BadInput(Quoted(path) + " is a directory, not a journal"); }
    bool const isFile = std::filesystem::is_regular_file(path, error);
    size_ = isFile ? static_cast<double>(std::filesystem::file_size(path, error)) : 0;
    if (error) { size_ = 0; }
    file_.open(path, std::ios::binary);
    if (!file_) { throw BadInput("cannot read " + Quoted(path) + ": " + std::generic_category().message(errno)); }
  }

  /// Whether a line of it may undo another, as far as can be known before it is read.
  bool MayUndo() {
    if (!(size_ > 0)) { return true; }
    constexpr std::size_t kPiece = 1 << 16;
    // the command's name, or an escape that may spell it, which is rare
    std::string_view const words[] = {"undo", "\\u00"};
    std::string text;
    bool found = false;
    while (!found && file_) {
      text.erase(0, text.size() - std::min<std::size_t>(text.size(), 3));  // a word may lie across two pieces
      std::size_t const kept = text.size();
      text.resize(kept + kPiece);
      file_.read(text.data() + kept, kPiece);
      text.resize(kept + static_cast<std::size_t>(file_.gcount()));
      found = std::ranges::any_of(words, [&](std::string_view word) { return text.find(word) != std::string::npos; });
    }
    file_.clear();
    file_.seekg(0);
    return found;
  }

  std::istream& Stream() { return file_.is_open() ? static_cast<std::istream&>(file_) : std::cin; }
  std::string const& Name() const { return name_; }
  /// From 0 to 1; negative where the whole is not known.
  double Fraction() {
    if (!(size_ > 0)) { return -1; }
    return static_cast<double>(file_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in)) / size_;
  }

private:
  std::string name_;
  std::ifstream file_;
  double size_ = 0;
};

/// A journal that commands are appended to.
class Record {
public:
  /// Nothing is appended where there is no path. Refuses the journal that is read.
  Record(std::string const& path, std::string const& journal) : path_(path) {
    if (path.empty()) { return; }
    std::error_code error;
    if (std::filesystem::equivalent(path, journal, error)) {
      throw BadInput("the commands of " + Quoted(path) + " cannot be appended to itself");
    }
    std::ifstream present(path, std::ios::binary | std::ios::ate);
    bool const isOpen = present && present.tellg() > 0 && present.seekg(-1, std::ios::end) && present.get() != '\n';  // its last line
    out_.open(path, std::ios::binary | std::ios::app);
    if (!out_) { throw BadInput("cannot write " + Quoted(path) + ": " + std::generic_category().message(errno)); }
    if (isOpen) { out_ << '\n'; }
  }
  void Append(cls_Value const& command) {
    if (path_.empty()) { return; }
    out_ << JsonText(command) << '\n';
    Assert();
  }
  void Finish() {
    if (path_.empty()) { return; }
    out_.flush();
    Assert();
  }

private:
  void Assert() const {
    if (!out_) { throw BadInput("cannot write " + Quoted(path_) + ": " + std::generic_category().message(errno)); }
  }

  std::string path_;
  std::ofstream out_;
};

/// Runs a journal and tells what became of each line.
class Replay {
public:
  Replay(Session& session, JournalFile& journal, Record& record, bool trace, JournalCheck* check)
      : session_(session), journal_(journal), record_(record), reader_(journal.Stream(), journal.Name()), check_(check), trace_(trace) {
    session_.SetTrace(trace);
  }

  /// Runs the next command; nothing at the end of the journal.
  std::optional<Outcome> Next() {
    std::optional<cls_Value> command;
    try {
      command = reader_.Next();
    } catch (JournalError const& error) {
      progress_.Clear();
      Outcome unreadable;
      unreadable.refused.message = error.what();
      Trace(error.Line(), nullptr, unreadable);
      throw;
    }
    if (!command) { return std::nullopt; }
    Outcome outcome = session_.Execute(*command);
    ++(outcome.ok ? done_ : refused_);
    if (check_ != nullptr) { check_->Note(reader_.Line(), *command, outcome); }
    if (outcome.ok && outcome.report.empty() && !IsDryRun(*command)) { record_.Append(*command); }
    cls_Value const* const name = command->Find("command");
    Trace(reader_.Line(), name == nullptr ? Json() : gattr::ToJson(*name), outcome);
    if (!outcome.message.empty() && check_ == nullptr) {
      progress_.Clear();
      std::cout.flush();
      Tell(fmt::format("gattr: {}, line {}: {}\n", Shown(journal_.Name()), reader_.Line(), Shown(outcome.message)));
    }
    if (done_ % 64 == 0) { progress_.Show(reader_.Line(), journal_.Fraction()); }
    return outcome;
  }

  std::size_t Done() const { return done_; }
  std::size_t Refused() const { return refused_; }

private:
  void Trace(std::size_t line, Json const& command, Outcome const& outcome) const {
    if (!trace_) {
      if (check_ != nullptr) { return; }  // what is told of is what was found
      std::cout << ShownLines(outcome.report);
      if (!outcome.effects.objects.empty()) { RenderText(std::cout, outcome.effects, {TerminalWidth(), UseColor("auto")}); }
      return;
    }
    Json told = {{"line", line}, {"command", command}};
    told.update(gattr::ToJson(outcome));
    std::cout << JsonLine(told) << '\n';
  }

  Session& session_;
  JournalFile& journal_;
  Record& record_;
  JournalReader reader_;
  Progress progress_;
  JournalCheck* check_;
  bool trace_;
  std::size_t done_ = 0, refused_ = 0;
};

void PrintEffects(Effects const& effects, bool asJson) {
  if (asJson) {
    std::cout << JsonLine({{"effects", gattr::ToJson(effects)}}) << '\n';
  } else {
    RenderText(std::cout, effects, {TerminalWidth(), UseColor("auto")});
  }
}

int Run(ReplayOptions const& options) {
  UseResults(options.results);
  AssertChoice(options.findings.choice);
  std::optional<ModelPath> on, output;
  if (!options.on.empty()) { on.emplace(options.on); }
  if (!options.output.empty() && options.output != options.on) { output.emplace(options.output); }
  ModelPath* const target = options.output.empty() ? nullptr : output ? &*output : &*on;
  JournalFile journal(options.journal);
  Session session = on ? Session(on->Open()) : Session();
  if (!journal.MayUndo()) { session.ForgetPast(); }
  ddr_Model const before = session.Model();
  std::vector<Rename> renames;
  Subscription renaming;
  if (options.dryRun) {
    if (target != nullptr || !options.record.empty()) { throw BadInput("--dry-run writes nothing: leave --output and --record out"); }
    renaming = session.Subscribe([&renames](ChangeEvent const& event) {
      for (ObjectChange const& object : event.objects) {
        if (object.change == ChangeKind::Renamed) { renames.push_back({object.kind, object.before, object.name}); }
      }
    });
  }

  Record record(options.record, options.journal);
  std::optional<JournalCheck> check;
  if (options.check) { check.emplace(session); }
  Replay replay(session, journal, record, options.trace, check ? &*check : nullptr);
  int status = kDone;
  while (auto const outcome = replay.Next()) {
    if (outcome->ok) { continue; }
    status = std::max<int>(status, outcome->badInput ? kBadInput : kRefused);
    if (!options.keepGoing) { break; }
  }
  record.Finish();
  if (options.dryRun && (status == kDone || options.keepGoing)) {
    PrintEffects(EffectsBetween(before, session.Model(), renames), options.trace);
  }
  if (replay.Done() + replay.Refused() == 0) { throw BadInput(Quoted(journal.Name()) + " holds no commands"); }
  if (check) {
    bool const whole = status == kDone || options.keepGoing;
    std::string const named = options.journal == "-" ? "" : options.journal;
    int const found = PrintFindings(check->Findings(options.findings.choice, whole), options.findings, options.output, named);
    if (found != kDone && whole) { status = std::max<int>(status, found); }
  }
  if (status != kDone && !options.keepGoing && (!check || replay.Refused() > 0)) {
    if (target != nullptr) { Tell(fmt::format("gattr: {} was not written\n", Shown(options.output))); }
    return status;
  }
  if (target != nullptr) { target->Save(session.Model(), options.force ? Changed::Overwrite : Changed::Refuse); }
  if (status != kDone || isatty(STDERR_FILENO) != 0) {
    std::cout.flush();
    std::string told = fmt::format("gattr: {} done", Counted(replay.Done(), "command"));
    if (status != kDone) { told += fmt::format(", {} refused", replay.Refused()); }
    if (target != nullptr) { told += fmt::format(", {} written", Shown(options.output)); }
    Tell(told + "\n");
  }
  return status;
}

constexpr char const* kFooter = R"(A journal is a text with one command per line, each a JSON object:

  {"command": "StaticStep", "name": "Hold", "initialInc": 0.1}
  {"command": "StaticStep", "name": "Release", "initialInc": 0.1}
  {"command": "Set", "name": "Rim"}
  {"command": "DisplacementBC", "name": "Fix", "createStepName": "Hold", "region": "Rim", "u1": 0.0}
  {"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Release"}

`gattr describe` lists the commands. A command is done whole or not at all. The first one that is refused ends the run, and
no model is written; with --keep-going the others are done and written. A line that is no JSON ends the run in any case.

--check prints what `gattr check` finds in the model that comes out, each with the line that made it, and the lines that are refused or
change nothing, as a switch-off before the creation. Exit status 1 where there are errors (--fail-on warning: or warnings).

Example: gattr replay forming.jsonl --trace -o forming.gadb)";

}  // namespace

void AddReplay(CLI::App& program, Action& action) {
  auto const options = std::make_shared<ReplayOptions>();
  CLI::App& command = *program.add_subcommand("replay", "Run a journal of commands");
  command.add_option("JOURNAL", options->journal, "one JSON command per line; - is standard input")->required()->type_name("");
  command.add_option("-o,--output", options->output, "write the model when everything was done (.gadb, .gattr.json)")->type_name("MODEL");
  command.add_option("--on", options->on, "begin with this model instead of an empty one")->type_name("MODEL");
  command.add_option("--results", options->results, kResultsHelp)->type_name("FOLDER");
  command.add_option("--record", options->record, "append the commands that are done to this journal of lines")->type_name("LOG");
  CLI::Option* const trace =
      command.add_flag("--trace", options->trace, "print a JSON object per line: the outcome, and the histories it made");
  CLI::Option* const dryRun = command.add_flag("--dry-run", options->dryRun, kDryRunHelp);
  command.add_flag("--check", options->check, "tell what `check` finds, with the lines that made it, and the lines that leave no trace")
      ->excludes(trace)
      ->excludes(dryRun);
  AddFindings(command, options->findings, command.get_option("--check"));
  command.add_flag("--keep-going", options->keepGoing, "go on after a command that is refused");
  command.add_flag("--force", options->force, "write the model also where somebody else has changed it since it was opened");
  command.footer(kFooter);
  command.callback([options, &action] { action = [options] { return Run(*options); }; });
}

}  // namespace gattr::cli
