#include "command/Journal.h"

#include <cerrno>
#include <istream>
#include <system_error>
#include <utility>
#include <vector>

#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

std::string Place(std::string const& journal, std::size_t line, std::size_t column) {
  std::string place = OneLine(journal) + ", line " + std::to_string(line);
  return column == 0 ? place : place + ", column " + std::to_string(column);
}

}  // namespace

JournalError::JournalError(std::string const& journal, std::size_t line, std::size_t column, std::string const& text)
    : std::runtime_error(Place(journal, line, column) + ": " + text), line_(line), column_(column) {}

JournalReader::JournalReader(std::istream& in, std::string name) : in_(in), name_(std::move(name)) {}

void JournalReader::Refuse(std::size_t column, std::string const& text) const { throw JournalError(name_, line_, column, text); }

bool JournalReader::ReadLine() {
  text_.clear();
  if (in_.eof() || !in_.good()) { return false; }
  ++line_;
  std::size_t size = 0;
  do {  // a piece at a time: a line that is too long is not held
    char piece[1 << 12];
    in_.clear();
    in_.getline(piece, sizeof piece);
    auto const read = static_cast<std::size_t>(in_.gcount()) - (in_.good() ? 1 : 0);  // without the line's end
    size += read;
    if (size <= kLongestLine) { text_.append(piece, read); }
  } while (in_.fail() && !in_.eof() && !in_.bad());
  if (in_.bad()) { Refuse(0, "cannot be read: " + std::generic_category().message(errno) + "."); }
  if (in_.eof() && size == 0) { return false; }
  if (size > kLongestLine) {
    text_.clear();
    Refuse(0, "the line has " + std::to_string(size) + " bytes; a command has " + std::to_string(kLongestLine) + " at most.");
  }
  return true;
}

cls_Value JournalReader::Parsed() const {
  cls_Value command;
  try {
    command = ParseJson(text_);
  } catch (JsonError const& error) {
    if (error.At() == JsonError::kNowhere) { Refuse(0, std::string(error.what()) + "."); }
    Refuse(error.At() + 1, std::string("this is no JSON: ") + error.what() + ".");
  }
  if (command.As<cls_Value::Fields>() == nullptr) { Refuse(1, R"(expected a command, such as {"command": "undo"}.)"); }
  return command;
}

std::optional<cls_Value> JournalReader::Next() {
  while (ReadLine()) {
    if (text_.find_first_not_of(" \t\r") != std::string::npos) { return Parsed(); }
  }
  return std::nullopt;
}

void KeptJournal::Append(cls_Value const& command) {
  constexpr std::size_t kBlock = 1 << 16;  // none grows so long that copying it would be felt
  if (blocks_.empty() || blocks_.back().size() > kBlock) { blocks_.emplace_back(); }
  std::string& block = blocks_.back();
  std::size_t const begin = block.size();
  try {
    AppendJson(block, command);
    block += '\n';
  } catch (...) {
    block.resize(begin);
    throw;
  }
}

std::vector<cls_Value> KeptJournal::Commands() const {
  std::vector<cls_Value> commands;
  for (std::string_view rest : blocks_) {
    for (std::size_t end; !rest.empty(); rest.remove_prefix(end + 1)) {
      end = rest.find('\n');
      commands.push_back(ParseJson(rest.substr(0, end)));
    }
  }
  return commands;
}

}  // namespace gattr
