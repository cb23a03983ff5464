#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

/// The terminal that the program may be talking to.
namespace gattr::cli {

/// Whether standard output is coloured: "always", "never", or "auto": a terminal, not a dumb one, and NO_COLOR not set.
bool UseColor(std::string_view choice);

/// Columns of the terminal behind standard output; 0 where there is none.
std::size_t TerminalWidth();

/// Writes \p text to standard output: through $PAGER, or `less` where there is one, when it is longer than the terminal behind it.
void PrintPaged(std::string const& text);

/// Writes to standard error. Raises nothing: who cannot be told stays untold, and CannotTell says so.
void Tell(std::string_view text) noexcept;
/// Whether something could not be written to standard error.
bool CannotTell() noexcept;

/// A line on a terminal's standard error that tells how far a long work has come. Silent elsewhere and in the first second.
class Progress {
public:
  Progress();
  /// Takes the line away.
  ~Progress();
  Progress(Progress const&) = delete;
  Progress& operator=(Progress const&) = delete;

  /// \p fraction of the whole, negative where the whole is not known. Cheap enough for every line of a journal.
  void Show(std::size_t lines, double fraction);
  /// Takes the line away, so that something else can be written.
  void Clear();

private:
  bool terminal_, shown_ = false;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace gattr::cli
