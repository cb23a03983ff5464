#include <CLI/App.hpp>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Description.h"
#include "cli/Program.h"
#include "command/CommandWords.h"
#include "command/HistoryTable.h"
#include "command/Lookup.h"
#include "command/Variables.h"
#include "command/Words.h"
#include "store/ModelPath.h"

namespace gattr::cli {
namespace {

// Each asks `gattr completion --line` what may stand where the cursor is. The answer's first line says "files", or "words" which follow
// from the third line on; the second line is the word that is begun, without its quotes.

constexpr std::string_view kBash = R"(# Completion of gattr for bash: source this, or install it as bash-completion has it.
_gattr() {
  local lines word=${COMP_WORDS[COMP_CWORD]} head i
  mapfile -t lines < <(gattr completion --line "${COMP_LINE:0:COMP_POINT}" 2>/dev/null)
  COMPREPLY=()
  if [[ ${lines[0]} == files ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "${lines[1]}")
    return
  fi
  [[ $word == '=' || $word == ':' ]] && word=
  head=${lines[1]%"${lines[1]##*[=:]}"}  # bash completes what stands behind these alone
  [[ $word == [\"\']* ]] && head=
  for ((i = 2; i < ${#lines[@]}; i++)); do
    local found=${lines[i]#"$head"}
    [[ $word == [\"\']* ]] || printf -v found '%q' "$found"
    COMPREPLY+=("$found")
  done
  [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *= ]] && compopt -o nospace 2>/dev/null
  return 0
}
complete -F _gattr gattr
)";

constexpr std::string_view kZsh = R"(#compdef gattr
# Completion of gattr for zsh: put this as _gattr into a folder of $fpath, or source it behind compinit.
_gattr() {
  local -a lines
  lines=("${(@f)$(gattr completion --line "${(j: :)words[1,CURRENT-1]} $PREFIX" 2>/dev/null)}")
  if [[ ${lines[1]} == files ]]; then
    _files
  else
    compadd -S '' -- ${(M)lines[3,-1]:#*=}
    compadd -- ${lines[3,-1]:#*=}
  fi
}
if [[ $zsh_eval_context[-1] == loadautofunc ]]; then _gattr "$@"; else compdef _gattr gattr; fi
)";

constexpr std::string_view kFish = R"(# Completion of gattr for fish: put this into ~/.config/fish/completions.
function __gattr_complete
    set -l lines (gattr completion --line (commandline -cp) 2>/dev/null)
    if test "$lines[1]" = files
        __fish_complete_path (commandline -ct)
    else if test (count $lines) -gt 2
        printf '%s\n' $lines[3..-1]
    end
end
complete -c gattr -f -a '(__gattr_complete)'
)";

struct ShellScript {
  std::string_view name, script;
};
constexpr ShellScript kShells[] = {{"bash", kBash}, {"zsh", kZsh}, {"fish", kFish}};

/// What help calls values that are typed; others that are not known here are files.
constexpr std::string_view kNoFiles[] = {"N", "MODULE", "MEMBER", "MEMBERS", "ID", "TIME", "TEXT"};

/// What may stand at the end of a line.
struct Answer {
  bool files = false;
  std::string begun;
  std::vector<std::string> words = {};
};

/// A line of the program taken apart as far as it is written.
class Line {
public:
  Line(CLI::App const& program, std::string const& text) : program_(program) {
    std::size_t lastAt = 0;
    words_ = WordsOf(text, &lastAt);
    if (lastAt == text.size()) { words_.emplace_back(); }
    if (words_.size() < 2) { words_.resize(2); }
  }

  Answer Complete() {
    begun_ = words_.back();
    if (words_.size() == 2) {
      for (CLI::App const* const command : Subcommands(program_)) { Offer(command->get_name()); }
      OfferOptions(program_);
      return Told();
    }
    for (CLI::App const* const command : Subcommands(program_)) {
      if (command->get_name() == words_[1]) { return Complete(*command); }
    }
    return Told();
  }

private:
  Answer Complete(CLI::App const& command) {
    std::vector<CLI::Option const*> const positionals = command.get_options([](CLI::Option const* one) { return one->get_positional(); });
    CLI::Option const* open = nullptr;  // waits for its value
    std::size_t place = 0, firstOfLast = words_.size() - 1;
    auto const next = [&]() -> CLI::Option const* {
      return positionals.empty() ? nullptr : positionals[std::min(place, positionals.size() - 1)];
    };
    for (std::size_t i = 2; i + 1 < words_.size(); ++i) {
      if (open != nullptr) {
        open = nullptr;
      } else if (words_[i].starts_with('-') && words_[i].size() > 1) {
        CLI::Option const* const option = command.get_option_no_throw(words_[i]);
        if (option != nullptr && option->get_items_expected_max() > 0) { open = option; }
      } else {
        if (next() != nullptr && next()->get_name() == "MODEL") { model_ = words_[i]; }
        if (place + 1 == positionals.size()) { firstOfLast = std::min(firstOfLast, i); }
        ++place;
      }
    }
    if (open != nullptr) { return Values(*open, open->get_type_name()); }
    if (begun_.starts_with('-')) {
      OfferOptions(command);
      return Told();
    }
    if (next() == nullptr || (place >= positionals.size() && next()->get_items_expected_max() <= 1)) { return Told(); }
    if (next()->get_name() == "COMMAND") {
      answer_.words = CommandWords().Completions(Model(), std::span(words_).subspan(firstOfLast));
      return Told();
    }
    return Values(*next(), next()->get_name());
  }

  /// What may stand for an option or argument that help calls \p name.
  Answer Values(CLI::Option const& option, std::string const& name) {
    std::vector<std::string> const choices = ChoicesOf(option);
    if (!choices.empty()) {
      Offer(choices);
    } else if (name == "NAME") {
      Offer(option.get_positional() ? FindableNames(Model()) : AttributeNames(Model()));
    } else if (name == "STEP") {
      Offer(StepNames(Model()));
    } else if (name == "MEMBER" || name == "MEMBER,...") {
      Offer(MemberNames(Model()));
    } else if (name == "TYPE") {
      Offer(TypeNames(Model()));
    } else if (name == "WORD") {
      for (std::size_t status = 1; status < kStatusCount; ++status) {
        Offer(std::string(WordOf(static_cast<mdl_PropagationStatusEnm>(status)).word));
      }
    } else if (name == "CLASS" || name == "TOPIC") {
      if (name == "TOPIC") {
        for (CLI::App const* const command : Subcommands(program_)) { Offer(command->get_name()); }
      }
      for (CommandInfo const& command : Session::Commands()) { Offer(command.name); }
      Offer(ClassNames());
    } else if (name == "PROCEDURE") {
      Offer(ProcedureLabels());
    } else if (name == "CATEGORY") {
      Offer(VariableCategories());
    } else if (!std::ranges::count(kNoFiles, name)) {
      answer_.files = true;
    }
    return Told();
  }

  /// The model that the line names; an empty one where it cannot be read.
  ddr_Model Model() const {
    try {
      char const* const home = model_.starts_with("~/") ? std::getenv("HOME") : nullptr;  // the shell has not put it in yet
      if (!model_.empty()) { return ModelPath(home == nullptr ? model_ : home + model_.substr(1)).Open(); }
    } catch (std::exception const&) {}  // who types is told when the line is run
    return Session().Model();
  }
  void OfferOptions(CLI::App const& command) {
    for (CLI::Option const* const option : command.get_options()) {
      for (std::string const& name : option->get_lnames()) { Offer("--" + name); }
    }
  }
  void Offer(std::vector<std::string> const& words) {
    for (std::string const& word : words) { Offer(word); }
  }
  void Offer(std::string const& word) {
    if (word.starts_with(begun_)) { answer_.words.push_back(word); }
  }
  Answer Told() {
    answer_.begun = begun_;
    return std::move(answer_);
  }

  CLI::App const& program_;
  std::vector<std::string> words_;
  std::string begun_, model_;
  Answer answer_;
};

struct CompletionOptions {
  std::string shell;
  std::optional<std::string> line;
};

int Complete(CLI::App const& program, CompletionOptions const& options) {
  if (options.line) {
    Answer const answer = Line(program, *options.line).Complete();
    std::cout << (answer.files ? "files" : "words") << '\n' << answer.begun << '\n';
    for (std::string const& word : answer.words) {
      if (word.find('\n') == std::string::npos) { std::cout << word << '\n'; }
    }
    return kDone;
  }
  for (ShellScript const& shell : kShells) {
    if (options.shell == shell.name) { std::cout << shell.script; }
  }
  if (options.shell.empty()) { throw BadInput("which shell: bash, zsh or fish?"); }
  return kDone;
}

}  // namespace

void AddCompletion(CLI::App& program, Action& action) {
  auto const options = std::make_shared<CompletionOptions>();
  CLI::App& command = *program.add_subcommand("completion", "Have a shell complete subcommands, options, steps and names of a model");
  std::vector<std::string> shells;
  for (ShellScript const& one : kShells) { shells.emplace_back(one.name); }
  AddChoice(*command.add_option("SHELL", options->shell, "print the script for it: bash, zsh, fish")->type_name(""), shells);
  command.add_option("--line", options->line, "tell instead what may come next in this beginning of a line")->type_name("TEXT");
  command.footer(
      R"(Installing the program installs the scripts where these shells look. By hand: a line in ~/.bashrc or, behind compinit, in ~/.zshrc

  source <(gattr completion bash)
  source <(gattr completion zsh)

and for fish, once: gattr completion fish > ~/.config/fish/completions/gattr.fish

Names are those of the model that the line names.

Example: gattr completion bash)");
  command.callback([&program, options, &action] { action = [&program, options] { return Complete(program, *options); }; });
}

}  // namespace gattr::cli
