#include "command/Journal.h"

#include <algorithm>
#include <istream>
#include <set>
#include <vector>

#include "text/Text.h"

namespace gattr {

namespace {

std::string Place(std::string const& journal, std::size_t line, std::size_t column) {
  std::string place = OneLine(journal) + ", line " + std::to_string(line);
  return column == 0 ? place : place + ", column " + std::to_string(column);
}

/// The part of a message of the JSON library that tells the cause: behind the error's number and place.
std::string Cause(std::string_view message) {
  for (std::string_view const lead : {"] ", ": "}) {  // "[json.exception.parse_error.101] parse error at line 1, column 2: ..."
    auto const at = message.find(lead);
    if (at != std::string_view::npos) { message.remove_prefix(at + lead.size()); }
  }
  return OneLine(message);
}

/// Follows the members while a line is parsed.
struct SeenMembers {
  static constexpr int kDeepest = 64;  ///< levels of lists and objects; whoever walks a command does so by recursion

  std::vector<std::set<std::string>> open;  ///< names seen so far, of the objects not closed yet
  std::string last;
  std::string repeated;
  bool tooDeep = false;

  bool operator()(int depth, Json::parse_event_t event, Json& parsed) {
    tooDeep = tooDeep || depth > kDeepest;
    switch (event) {
      case Json::parse_event_t::object_start: open.emplace_back(); break;
      case Json::parse_event_t::object_end: open.pop_back(); break;
      case Json::parse_event_t::key:
        last = parsed.get<std::string>();
        if (!open.back().insert(last).second && repeated.empty()) { repeated = last; }
        break;
      default: break;
    }
    return true;
  }
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
  std::streambuf& buffer = *in_.rdbuf();
  constexpr int kEnd = std::char_traits<char>::eof();
  for (int c = buffer.sbumpc();; c = buffer.sbumpc()) {
    if (c == kEnd) {
      in_.setstate(std::ios::eofbit);
      if (size == 0) { return false; }
      break;
    }
    if (c == '\n') { break; }
    if (++size <= kLongestLine) { text_ += static_cast<char>(c); }
  }
  if (size > kLongestLine) {
    text_.clear();
    Refuse(0, "the line has " + std::to_string(size) + " bytes; a command has " + std::to_string(kLongestLine) + " at most.");
  }
  return true;
}

Json JournalReader::Parsed() const {
  SeenMembers members;
  Json command;
  try {
    command = Json::parse(text_, [&](int depth, Json::parse_event_t event, Json& parsed) { return members(depth, event, parsed); });
  } catch (Json::parse_error const& error) {
    Refuse(std::max<std::size_t>(error.byte, 1), "this is no JSON: " + Cause(error.what()) + ".");
  } catch (Json::out_of_range const& error) {
    Refuse(0, "the value of " + Quoted(members.last) + " is too large: " + Cause(error.what()) + ".");
  }
  if (members.tooDeep) { Refuse(0, "the values are nested deeper than " + std::to_string(SeenMembers::kDeepest) + " levels."); }
  if (!command.is_object()) { Refuse(1, R"(expected a command, such as {"command": "undo"}.)"); }
  if (!members.repeated.empty()) { Refuse(0, "the member " + Quoted(members.repeated) + " is given twice."); }
  return command;
}

std::optional<Json> JournalReader::Next() {
  while (ReadLine()) {
    if (text_.find_first_not_of(" \t\r") != std::string::npos) { return Parsed(); }
  }
  return std::nullopt;
}

std::string JournalLine(Json const& command) { return command.dump(); }

}  // namespace gattr
