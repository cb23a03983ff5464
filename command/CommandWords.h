#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "command/Session.h"

/// Commands as they are typed: deactivate boundaryCondition=Punch stepName=Release.
namespace gattr {

/// A line taken apart into words, which blanks part; quotes, double or single, keep blanks, and a backslash what stands behind it. What is
/// inside brackets or braces stays one word with its quotes, as JSON. An unclosed one ends with the line. \p lastAt, where it is given,
/// tells where the last word begins; the line's end where none has begun behind a blank.
std::vector<std::string> WordsOf(std::string_view line, std::size_t* lastAt = nullptr);
/// The text as a word of such a line: in double quotes where it needs them.
std::string InWord(std::string_view text);

/// The command of that name; null where there is none.
CommandInfo const* FindCommand(std::span<CommandInfo const> commands, std::string_view name);

/// Understands typed commands. The list of commands is read once.
class CommandWords {
public:
  CommandWords() : commands_(Session::Commands()) {}

  /// The command that the words say: its name, then argument=value, in any order. A value is read as its argument asks, number, boolean,
  /// list or object as JSON, and else as a text, which may stand in double quotes as JSON has it; null is nothing for any argument.
  /// Whatever does not fit stays the text that it is: the command refuses it. Raises a std::invalid_argument for a word without "=".
  cls_Value Read(ddr_Model const& model, std::span<std::string const> words) const;

  /// The arguments that the command takes, as far as \p words, of the same form, tell: with the members of the object that is
  /// named. Empty for no command.
  std::vector<ArgumentInfo> Arguments(ddr_Model const& model, std::span<std::string const> words) const;

  /// What the last of \p words, which may be empty, may go on to be: commands for the first one, else arguments not yet given, with "=",
  /// or behind that values: names of steps and objects, texts that are known.
  std::vector<std::string> Completions(ddr_Model const& model, std::span<std::string const> words) const;

private:
  std::vector<CommandInfo> commands_;
};

}  // namespace gattr
