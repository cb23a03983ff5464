#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace gattr::cli {

/// Reads lines from a person at a terminal, who can edit them, have words completed and call up what was typed before, also in earlier
/// sessions; or from anything else as they come. One at a time: the editing package keeps one line.
class LineReader {
public:
  /// Words that may stand in the place of what was typed from a position on.
  struct Completion {
    std::size_t at = 0;
    std::vector<std::string> words = {};
  };
  /// Takes what was typed up to the cursor, gives what its last word may go on to be.
  using Completer = std::function<Completion(std::string const& typed)>;

  explicit LineReader(Completer completer);
  LineReader(LineReader const&) = delete;
  LineReader& operator=(LineReader const&) = delete;
  /// Keeps what was typed.
  ~LineReader();

  bool IsTerminal() const { return terminal_; }
  /// The next line; nothing at the end. The prompt is for terminals.
  std::optional<std::string> Next(std::string const& prompt);

  /// Where the lines of earlier sessions are kept: gattr/history in $XDG_STATE_HOME, or else in ~/.local/state. Empty where
  /// neither is known.
  static std::filesystem::path HistoryPath();

private:
  bool terminal_;
  Completer completer_;
};

}  // namespace gattr::cli
