#pragma once

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/BasicUtils/cls_Value.h"
#include "platform/CoreUtils/ddb_Export.h"

/// Journals: one command per line, each a JSON object. Empty lines are passed over; there are no comments.
namespace gattr {

/// A line that cannot be read. The text names journal, line and column, and what was expected.
class DDB_API JournalError : public std::runtime_error {
public:
  JournalError(std::string const& journal, std::size_t line, std::size_t column, std::string const& text);

  std::size_t Line() const { return line_; }      ///< from 1
  std::size_t Column() const { return column_; }  ///< in bytes, from 1; 0 when the whole line is meant

private:
  std::size_t line_, column_;
};

/// Reads a journal command by command. Whatever its length, no more than one line is held in memory.
class DDB_API JournalReader {
public:
  static constexpr std::size_t kLongestLine = 16 << 20;  ///< bytes; a longer line is refused

  /// \p name stands for the journal in messages. The stream must outlive the reader.
  explicit JournalReader(std::istream& in, std::string name = "journal");

  /// The next command; nothing at the end. Raises JournalError for a line that is too long, is no JSON object, repeats a
  /// member or holds a number too large for a real; reading may go on with the line behind it.
  std::optional<cls_Value> Next();
  /// The line of the last command, from 1.
  std::size_t Line() const { return line_; }

private:
  DDB_LOCAL bool ReadLine();
  DDB_LOCAL cls_Value Parsed() const;
  [[noreturn]] DDB_LOCAL void Refuse(std::size_t column, std::string const& text) const;

  std::istream& in_;
  std::string name_;
  std::string text_;
  std::size_t line_ = 0;
};

/// The commands of a session one behind the other, as lines: a fraction of the memory that they take as they come.
class KeptJournal {
public:
  void Append(cls_Value const& command);
  void Clear() { blocks_.clear(); }
  /// The commands, made anew.
  std::vector<cls_Value> Commands() const;

private:
  std::deque<std::string> blocks_;  // of whole lines
};

}  // namespace gattr
