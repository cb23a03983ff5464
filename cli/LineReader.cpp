#include "cli/LineReader.h"

#include <editline/readline.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <system_error>

namespace gattr::cli {

namespace {

constexpr int kKeptLines = 1000;

// The package calls back without an argument of ours, and its own state is one for the process.
LineReader::Completer const* activeCompleter = nullptr;
std::vector<std::string> completions;

char* NextFound(char const* /*text*/, int index) {
  auto const at = static_cast<std::size_t>(index);
  return at < completions.size() ? ::strdup(completions[at].c_str()) : nullptr;
}

char** Complete(char const* text, int begin, int end) {
  ::rl_attempted_completion_over = 1;  // no names of files
  if (activeCompleter == nullptr) { return nullptr; }
  try {
    std::string const typed(::rl_line_buffer, static_cast<std::size_t>(end));
    LineReader::Completion found = (*activeCompleter)(typed);
    completions = std::move(found.words);
    // The package puts a completion in the place of what stands behind the last blank, which may be inside quotes.
    auto const behind = static_cast<std::size_t>(begin);
    std::string const kept = found.at < behind ? typed.substr(found.at, behind - found.at) : std::string();
    std::erase_if(completions, [&](std::string const& one) { return !one.starts_with(kept); });
    for (std::string& one : completions) { one.erase(0, kept.size()); }
  } catch (std::exception const&) { completions.clear(); }  // must not pass through the package
  constexpr int kNothing = 0, kBlank = ' ';
  ::rl_completion_append_character = completions.size() == 1 && completions[0].ends_with('=') ? kNothing : kBlank;
  return completions.empty() ? nullptr : ::rl_completion_matches(text, &NextFound);
}

}  // namespace

std::filesystem::path LineReader::HistoryPath() {
  auto const folder = [](char const* name) {
    char const* const value = std::getenv(name);
    return value == nullptr || *value != '/' ? std::filesystem::path() : std::filesystem::path(value);
  };
  std::filesystem::path state = folder("XDG_STATE_HOME");
  if (state.empty() && !folder("HOME").empty()) { state = folder("HOME") / ".local/state"; }
  return state.empty() ? state : state / "gattr/history";
}

LineReader::LineReader(Completer take) : terminal_(isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0), completer_(std::move(take)) {
  if (!terminal_) { return; }
  static char programName[] = "gattr", blanks[] = " \t";
  activeCompleter = &completer_;
  ::rl_readline_name = programName;
  ::rl_initialize();
  ::rl_basic_word_break_characters = ::rl_completer_word_break_characters = blanks;  // which of both counts depends on the package
  ::rl_attempted_completion_function = &Complete;
  ::using_history();
  ::stifle_history(kKeptLines);
  if (std::string const path = HistoryPath().string(); !path.empty()) { ::read_history(path.c_str()); }
}

LineReader::~LineReader() {
  if (!terminal_) { return; }
  activeCompleter = nullptr;
  std::filesystem::path const path = HistoryPath();
  std::error_code error;
  if (path.empty()) { return; }
  std::filesystem::create_directories(path.parent_path(), error);
  ::write_history(path.string().c_str());  // who cannot keep it goes without
  std::filesystem::permissions(path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write, error);
}

std::optional<std::string> LineReader::Next(std::string const& prompt) {
  if (!terminal_) {
    std::string line;
    return std::getline(std::cin, line) ? std::optional(std::move(line)) : std::nullopt;
  }
  std::cout.flush();
  char* const typed = ::readline(prompt.c_str());
  if (typed == nullptr) {
    std::cout << '\n';
    return std::nullopt;
  }
  std::string line = typed;
  std::free(typed);
  if (line.find_first_not_of(" \t") != std::string::npos) { ::add_history(line.c_str()); }
  return line;
}

}  // namespace gattr::cli
