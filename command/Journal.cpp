#include "command/Journal.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <sstream>
#include <system_error>
#include <utility>
#include <vector>

#include "text/JsonParser.h"
#include "text/Text.h"

namespace gattr {

namespace {

std::string Place(std::string const& journal, std::size_t line, std::size_t column) {
  std::string place = OneLine(journal) + ", line " + std::to_string(line);
  return column == 0 ? place : place + ", column " + std::to_string(column);
}

using JsonMembers = std::vector<Json::object_t::value_type>;  // what an object is made of: to append asks for no name that is there

/// Makes a command of what the parser finds.
class CommandMaker final : public JsonHandler {
public:
  void Null() override { Add(nullptr); }
  void Bool(bool value) override { Add(value); }
  void Integer(long long value) override { Add(value); }
  void Real(double value, std::string_view number) override {
    if (!std::isfinite(value)) { throw std::out_of_range("the value of " + Quoted(name_) + " is too large: " + std::string(number) + "."); }
    Add(value);
  }
  void String(std::string_view value) override { Add(std::string(value)); }
  void Open(bool isObject) override { open_.push_back(&Add(isObject ? Json::object() : Json::array())); }
  void Name(std::string_view name) override { name_ = name; }
  void Close() override {
    if (open_.back()->is_object() && repeated_.empty()) { FindRepeated(open_.back()->get_ref<Json::object_t&>()); }
    open_.pop_back();
  }

  Json& Command() { return command_; }
  /// The first name that stands twice in its object.
  std::string const& Repeated() const { return repeated_; }

private:
  Json& Add(Json value) {
    if (open_.empty()) { return command_ = std::move(value); }
    if (open_.back()->is_array()) { return open_.back()->emplace_back(std::move(value)); }
    return static_cast<JsonMembers&>(open_.back()->get_ref<Json::object_t&>()).emplace_back(name_, std::move(value)).second;
  }
  void FindRepeated(JsonMembers const& members) {
    std::vector<std::string_view> names;
    names.reserve(members.size());
    for (auto const& [name, value] : members) { names.push_back(name); }
    std::ranges::sort(names);
    if (auto const twice = std::ranges::adjacent_find(names); twice != names.end()) { repeated_ = *twice; }
  }

  Json command_;
  std::vector<Json*> open_;  // what is open takes no further value before it is closed, so that it stays where it is
  std::string name_, repeated_;
};

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

Json JournalReader::Parsed() const {
  CommandMaker maker;
  try {
    ParseJson(text_, maker);
  } catch (JsonError const& error) {
    Refuse(error.At() + 1, std::string("this is no JSON: ") + error.what() + ".");
  } catch (std::out_of_range const& error) { Refuse(0, error.what()); }
  if (!maker.Command().is_object()) { Refuse(1, R"(expected a command, such as {"command": "undo"}.)"); }
  if (!maker.Repeated().empty()) { Refuse(0, "the member " + Quoted(maker.Repeated()) + " is given twice."); }
  return std::move(maker.Command());
}

std::optional<Json> JournalReader::Next() {
  while (ReadLine()) {
    if (text_.find_first_not_of(" \t\r") != std::string::npos) { return Parsed(); }
  }
  return std::nullopt;
}

void PackedJournal::Append(Json const& command) {
  constexpr std::size_t kBlock = 1 << 16;  // none grows so long that copying it would be felt
  if (blocks_.empty() || blocks_.back().size() > kBlock) { blocks_.emplace_back(); }
  std::string& block = blocks_.back();
  std::size_t const begin = block.size();
  try {
    Json::to_cbor(command, block);
  } catch (...) {
    block.resize(begin);
    throw;
  }
}

std::vector<Json> PackedJournal::Commands() const {
  std::vector<Json> commands;
  for (std::string const& block : blocks_) {
    std::istringstream in(block);
    while (in.peek() != std::istringstream::traits_type::eof()) { commands.push_back(Json::from_cbor(in, false)); }
  }
  return commands;
}

std::string JournalLine(Json const& command) { return command.dump(); }

}  // namespace gattr
