#include "cli/Console.h"

#include <fmt/core.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

namespace gattr::cli {
namespace {
std::string_view Environment(char const* name) {
  char const* value = std::getenv(name);
  return value == nullptr ? "" : value;
}
}  // namespace

bool UseColor(std::string_view choice) {
  if (choice != "auto") { return choice == "always"; }
  return isatty(STDOUT_FILENO) != 0 && Environment("NO_COLOR").empty() && Environment("TERM") != "dumb";
}

std::size_t TerminalWidth() {
  if (isatty(STDOUT_FILENO) == 0) { return 0; }
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

namespace {

std::size_t TerminalHeight() {
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 ? size.ws_row : 24;
}

/// Whether a folder of $PATH holds the program.
bool IsInstalled(std::string const& program) {
  std::string_view path = Environment("PATH");
  while (!path.empty()) {
    std::size_t const end = std::min(path.find(':'), path.size());
    if (::access((std::string(path.substr(0, end)) + "/" + program).c_str(), X_OK) == 0) { return true; }
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return false;
}

/// The command that shows a text page by page; empty where there is none or nobody to look at it.
std::string Pager() {
  if (isatty(STDOUT_FILENO) == 0 || isatty(STDIN_FILENO) == 0 || Environment("TERM") == "dumb") { return {}; }
  if (std::getenv("PAGER") != nullptr) { return std::string(Environment("PAGER")); }
  return IsInstalled("less") ? "less" : "";
}

/// Whether the pager has been started and took what it wanted.
bool Paged(std::string const& pager, std::string const& text) {
  ::setenv("LESS", "FRX", 0);                          // keeps colours, and ends by itself where all fits
  auto* const before = std::signal(SIGPIPE, SIG_IGN);  // who has seen enough ends the pager
  bool shown = false;
  if (FILE* const pipe = ::popen(pager.c_str(), "w")) {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), pipe));
    int const status = ::pclose(pipe);
    constexpr int kCannotRun = 126, kNotFound = 127;
    shown = status != -1 && (!WIFEXITED(status) || (WEXITSTATUS(status) != kCannotRun && WEXITSTATUS(status) != kNotFound));
  }
  static_cast<void>(std::signal(SIGPIPE, before));
  return shown;
}

}  // namespace

void PrintPaged(std::string const& text) {
  auto const lines = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  std::string const pager = lines < TerminalHeight() ? "" : Pager();
  if (pager.empty() || !Paged(pager, text)) { std::cout << text; }
}

void Tell(std::string_view text) noexcept { static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr)); }

bool CannotTell() noexcept { return std::ferror(stderr) != 0; }

Progress::Progress() : terminal_(isatty(STDERR_FILENO) != 0), next_(std::chrono::steady_clock::now() + std::chrono::seconds(1)) {}

Progress::~Progress() { Clear(); }

void Progress::Show(std::size_t lines, double fraction) {
  if (!terminal_ || lines % 64 != 0) { return; }
  auto const now = std::chrono::steady_clock::now();
  if (now < next_) { return; }
  next_ = now + std::chrono::milliseconds(100);
  shown_ = true;
  Tell(fmt::format("\r\033[K{} lines{}", lines, fraction < 0 ? "" : fmt::format(", {:.0f} %", 100 * fraction)));
}

void Progress::Clear() {
  if (shown_) { Tell("\r\033[K"); }
  shown_ = false;
}

}  // namespace gattr::cli
