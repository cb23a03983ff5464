#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/BasicUtils/cls_Value.h"
#include "platform/CoreUtils/ddb_Export.h"

/// Journals: one command per line, each a JSON object, or one JSON document that has them in a list:
/// {"$schema": ..., "commands": [...]}. Empty lines are passed over, and lines that begin with "#".
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

/// Reads a journal command by command. Whatever its length, no more than one line, or one command of a document, is held in memory.
/// It is a document where its first member is called "$schema" or "commands", which no argument is.
class DDB_API JournalReader {
public:
  static constexpr std::size_t kLongestLine = 16 << 20;  ///< bytes; a longer line or command is refused

  /// \p name stands for the journal in messages. The stream must outlive the reader.
  explicit JournalReader(std::istream& in, std::string name = "journal");

  /// The next command; nothing at the end. Raises JournalError for a line that is too long, is no JSON object, repeats a
  /// member or holds a number too large for a real; reading may go on with the line behind it. What is wrong with a document beside its
  /// commands ends it.
  std::optional<cls_Value> Next();
  /// The line on which the last command began, from 1.
  std::size_t Line() const { return line_; }

private:
  enum class Form { Unknown, Lines, Document, Ended };

  DDB_LOCAL void FindForm();
  DDB_LOCAL bool ReadLine();
  DDB_LOCAL cls_Value Parsed(std::string_view text, std::size_t column) const;
  [[noreturn]] DDB_LOCAL void Refuse(std::size_t column, std::string const& text) const;

  // a document
  DDB_LOCAL int Look();
  DDB_LOCAL int Take();
  DDB_LOCAL int SkipSpace();
  DDB_LOCAL void Expect(std::string_view oneOf, std::string_view text);
  DDB_LOCAL void TakeValue();
  DDB_LOCAL std::optional<cls_Value> NextInDocument();
  DDB_LOCAL void PassMembers(bool first);
  DDB_LOCAL void AssertRead() const;
  [[noreturn]] DDB_LOCAL void EndDocument(std::string const& text);

  std::istream& in_;
  std::string name_;
  std::string text_;                            // a line, or a value of a document
  std::string ahead_;                           // what was read to find the form
  std::size_t taken_ = 0;                       // of that
  std::size_t line_ = 0, column_ = 0, at_ = 1;  // of the last command; the line that is being read
  std::size_t inLine_ = 0;                      // bytes of that line that were taken
  bool blankSoFar_ = true, hasCommands_ = false;
  Form form_ = Form::Unknown;
};

/// The commands of a session one behind the other, as bytes: a fraction of the memory that they take as they come. A copy shares what both
/// have.
class KeptJournal {
public:
  void Append(cls_Value const& command);
  void Clear() { blocks_.clear(); }
  /// The commands, made anew.
  std::vector<cls_Value> Commands() const;

private:
  struct Block {
    std::shared_ptr<char[]> bytes;
    std::size_t size, used = 0;
  };
  std::vector<Block> blocks_;  // of whole commands
};

}  // namespace gattr
