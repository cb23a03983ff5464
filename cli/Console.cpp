#include "cli/Console.h"

#include <fmt/core.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
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
