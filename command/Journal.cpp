#include "command/Journal.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <istream>
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

constexpr unsigned char kLargeSize = 0xFF;  // in the place of a size that a byte does not hold

/// Appends values: each is the byte of its type and what tells it, texts and lists behind their sizes.
class Packer {
public:
  explicit Packer(std::string& to) : to_(to) {}

  void Pack(Json const& value) {
    to_ += static_cast<char>(value.type());
    switch (value.type()) {
      case Json::value_t::boolean: return Put(value.get<bool>());
      case Json::value_t::number_integer: return Put(value.get<long long>());
      case Json::value_t::number_unsigned: return Put(value.get<unsigned long long>());
      case Json::value_t::number_float: return Put(value.get<double>());
      case Json::value_t::string: return PutText(value.get_ref<std::string const&>());
      case Json::value_t::array:
        PutSize(value.size());
        for (Json const& element : value) { Pack(element); }
        return;
      case Json::value_t::object:
        PutSize(value.size());
        for (auto const& [name, member] : value.get_ref<Json::object_t const&>()) {
          PutText(name);
          Pack(member);
        }
        return;
      default: return;  // commands have no other values
    }
  }

private:
  void PutSize(std::size_t size) {
    if (size < kLargeSize) { return Put(static_cast<unsigned char>(size)); }
    Put(kLargeSize);
    Put(size);
  }
  template <class T> void Put(T value) { to_.append(reinterpret_cast<char const*>(&value), sizeof value); }
  void PutText(std::string_view text) {
    PutSize(text.size());
    to_.append(text);
  }

  std::string& to_;
};

/// Reads what a Packer has put.
class Unpacker {
public:
  explicit Unpacker(std::string_view from) : left_(from) {}

  bool IsAtEnd() const { return left_.empty(); }
  Json Unpack() {
    switch (static_cast<Json::value_t>(Take<char>())) {
      case Json::value_t::boolean: return Take<bool>();
      case Json::value_t::number_integer: return Take<long long>();
      case Json::value_t::number_unsigned: return Take<unsigned long long>();
      case Json::value_t::number_float: return Take<double>();
      case Json::value_t::string: return TakeText();
      case Json::value_t::array: {
        Json list = Json::array();
        for (std::size_t size = TakeSize(); size > 0; --size) { list.push_back(Unpack()); }
        return list;
      }
      case Json::value_t::object: {
        JsonMembers members;
        for (std::size_t size = TakeSize(); size > 0; --size) {
          std::string name = TakeText();
          members.emplace_back(std::move(name), Unpack());
        }
        Json object = Json::object();
        static_cast<JsonMembers&>(object.get_ref<Json::object_t&>()) = std::move(members);
        return object;
      }
      default: return nullptr;
    }
  }

private:
  std::size_t TakeSize() {
    auto const size = Take<unsigned char>();
    return size < kLargeSize ? size : Take<std::size_t>();
  }
  template <class T> T Take() {
    T value;
    std::memcpy(&value, left_.data(), sizeof value);
    left_.remove_prefix(sizeof value);
    return value;
  }
  std::string TakeText() {
    std::size_t const size = TakeSize();
    std::string text(left_.substr(0, size));
    left_.remove_prefix(size);
    return text;
  }

  std::string_view left_;
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
    Packer(block).Pack(command);
  } catch (...) {
    block.resize(begin);
    throw;
  }
}

std::vector<Json> PackedJournal::Commands() const {
  std::vector<Json> commands;
  for (std::string const& block : blocks_) {
    for (Unpacker unpacker(block); !unpacker.IsAtEnd();) { commands.push_back(unpacker.Unpack()); }
  }
  return commands;
}

std::string JournalLine(Json const& command) { return command.dump(); }

}  // namespace gattr
