#include "command/Journal.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
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

// What is looked at before the form is known is given back to it. A document has a brace and the name of its first member before
// anything else, whatever lines they stand on.
void JournalReader::FindForm() {
  std::string_view const names[] = {R"("$schema")", R"("commands")"};
  std::size_t longest = 0;
  for (std::string_view const name : names) { longest = std::max(longest, name.size()); }
  auto const look = [this] { return in_.good() ? in_.peek() : std::istream::traits_type::eof(); };
  auto const isSpace = [](int c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  auto const takeSpace = [&] {
    while (isSpace(look()) && ahead_.size() < kLongestLine) { ahead_ += static_cast<char>(in_.get()); }
  };
  for (takeSpace(); look() == '#' && ahead_.size() < kLongestLine; takeSpace()) {
    while (look() != std::istream::traits_type::eof() && look() != '\n' && ahead_.size() < kLongestLine) {
      ahead_ += static_cast<char>(in_.get());
    }
  }
  form_ = Form::Lines;
  if (in_.bad()) { line_ = 1; }
  AssertRead();
  if (look() != '{') { return; }
  ahead_ += static_cast<char>(in_.get());
  takeSpace();
  std::string name;
  for (; name.size() < longest && look() != std::istream::traits_type::eof() && !isSpace(look()); ahead_ += name.back()) {
    name += static_cast<char>(in_.get());
  }
  if (std::ranges::any_of(names, [&](std::string_view known) { return name.starts_with(known); })) { form_ = Form::Document; }
}

bool JournalReader::ReadLine() {
  text_.clear();
  std::size_t size = 0;
  bool ends = false;
  bool const isAhead = taken_ < ahead_.size();
  if (isAhead) {
    std::size_t const end = ahead_.find('\n', taken_);
    ends = end != std::string::npos;
    text_ = ahead_.substr(taken_, end == std::string::npos ? end : end - taken_);
    size = text_.size();
    taken_ = ends ? end + 1 : ahead_.size();
  } else if (in_.eof() || !in_.good()) {
    return false;
  }
  ++line_;
  while (!ends && in_.good()) {  // a piece at a time: a line that is too long is not held
    char piece[1 << 12];
    in_.getline(piece, sizeof piece);
    auto const read = static_cast<std::size_t>(in_.gcount()) - (in_.good() ? 1 : 0);  // without the line's end
    size += read;
    if (size <= kLongestLine) { text_.append(piece, read); }
    ends = !in_.fail() || in_.eof() || in_.bad();
    if (!ends) { in_.clear(); }
  }
  AssertRead();
  if (!isAhead && in_.eof() && size == 0) { return false; }
  if (size > kLongestLine) {
    text_.clear();
    Refuse(0, "the line has " + std::to_string(size) + " bytes; a command has " + std::to_string(kLongestLine) + " at most.");
  }
  return true;
}

void JournalReader::AssertRead() const {
  if (in_.bad()) { Refuse(0, "cannot be read: " + std::generic_category().message(errno) + "."); }
}

cls_Value JournalReader::Parsed(std::string_view text, std::size_t column) const {
  cls_Value command;
  try {
    command = ParseJson(text);
  } catch (JsonError const& error) {
    if (error.At() == JsonError::kNowhere) { Refuse(0, std::string(error.what()) + "."); }
    std::string_view const before = text.substr(0, error.At());
    auto const lines = static_cast<std::size_t>(std::ranges::count(before, '\n'));
    std::size_t const at = lines == 0 ? column + error.At() : error.At() - before.rfind('\n') - 1;
    throw JournalError(name_, line_ + lines, at + 1, std::string("this is no JSON: ") + error.what() + ".");
  }
  if (command.As<cls_Value::Fields>() == nullptr) { Refuse(column + 1, R"(expected a command, such as {"command": "undo"}.)"); }
  return command;
}

// ---- a document

int JournalReader::Look() {
  if (taken_ < ahead_.size()) { return static_cast<unsigned char>(ahead_[taken_]); }
  return in_.good() ? in_.peek() : std::istream::traits_type::eof();
}

int JournalReader::Take() {
  int const c = Look();
  if (c == std::istream::traits_type::eof()) { return c; }
  taken_ < ahead_.size() ? void(++taken_) : void(in_.get());
  if (c == '\n') {
    ++at_;
    inLine_ = 0;
    blankSoFar_ = true;
  } else {
    ++inLine_;
    blankSoFar_ = blankSoFar_ && (c == ' ' || c == '\t' || c == '\r');
  }
  return c;
}

/// Passes over blanks and lines of comments; answers what comes then.
int JournalReader::SkipSpace() {
  for (;;) {
    int const c = Look();
    bool const isComment = c == '#' && blankSoFar_;
    if (!isComment && c != ' ' && c != '\t' && c != '\r' && c != '\n') { return c; }
    for (Take(); isComment && Look() != '\n' && Look() != std::istream::traits_type::eof();) { Take(); }
  }
}

void JournalReader::EndDocument(std::string const& text) {
  form_ = Form::Ended;
  AssertRead();
  throw JournalError(name_, at_, inLine_ + 1, text);
}

/// Refuses another character; \p text says what was expected.
void JournalReader::Expect(std::string_view oneOf, std::string_view text) {
  int const c = SkipSpace();
  bool const fits = c != std::istream::traits_type::eof() && oneOf.find(static_cast<char>(c)) != std::string_view::npos;
  if (!fits) { EndDocument("expected " + std::string(text) + "."); }
}

/// Takes a value as its brackets and quotes say into text_; what it holds is for the parser.
void JournalReader::TakeValue() {
  SkipSpace();
  line_ = at_;
  column_ = inLine_;
  text_.clear();
  std::size_t depth = 0, size = 0;
  bool inText = false, escaped = false, ended = false;
  constexpr std::string_view kBehindValues = ",]} \t\r\n";
  while (!ended) {
    int const c = Look();
    if (c == std::istream::traits_type::eof()) { EndDocument("the document ends within a value."); }
    if (depth == 0 && !inText && kBehindValues.find(static_cast<char>(c)) != std::string_view::npos) { break; }
    Take();
    if (++size <= kLongestLine) { text_ += static_cast<char>(c); }
    if (inText) {
      inText = escaped || c != '"';
      escaped = !escaped && c == '\\';
      ended = !inText && depth == 0;
      continue;
    }
    inText = c == '"';
    if (c == '{' || c == '[') { ++depth; }
    if (c == '}' || c == ']') { ended = --depth == 0; }
  }
  if (size > kLongestLine) {
    text_.clear();
    Refuse(0, "the value has " + std::to_string(size) + " bytes; a command has " + std::to_string(kLongestLine) + " at most.");
  }
}

/// Passes over members up to the first of the commands, or to the document's end.
void JournalReader::PassMembers(bool first) {
  for (;; first = false) {
    Expect(first ? "\"}" : ",}", first ? "a member" : R"("," or "}")");
    if (Take() == '}') { break; }
    std::string name;
    if (!first) {
      Expect("\"", "a member");
      Take();
    }
    while (Look() != '"' && Look() != std::istream::traits_type::eof() && Look() != '\n') { name += static_cast<char>(Take()); }
    Take();
    Expect(":", "\":\"");
    Take();
    if (name == "commands" && !hasCommands_) {
      Expect("[", "the list of commands");
      Take();
      hasCommands_ = true;
      return;
    }
    TakeValue();
    if (name != "$schema") {
      form_ = Form::Ended;
      Refuse(column_ + 1, "there is no member " + Quoted(name) + R"(: a document has "$schema" and "commands".)");
    }
    if (!text_.starts_with('"')) {
      form_ = Form::Ended;
      Refuse(column_ + 1, R"("$schema" is a text.)");
    }
  }
  if (!hasCommands_) { EndDocument(R"(the document has no "commands".)"); }
  if (SkipSpace() != std::istream::traits_type::eof()) { EndDocument("expected nothing behind the document."); }
  AssertRead();
  form_ = Form::Ended;
}

std::optional<cls_Value> JournalReader::NextInDocument() {
  bool first = !hasCommands_;
  if (first) {
    SkipSpace();
    Take();  // the brace
    PassMembers(true);
  }
  if (form_ == Form::Ended) { return std::nullopt; }
  if (!first) { Expect(",]", R"("," or "]" behind a command)"); }
  if (SkipSpace() == ']') {
    Take();
    PassMembers(false);
    return std::nullopt;
  }
  if (!first) { Take(); }
  TakeValue();
  return Parsed(text_, column_);
}

std::optional<cls_Value> JournalReader::Next() {
  if (form_ == Form::Unknown) { FindForm(); }
  if (form_ == Form::Ended) { return std::nullopt; }
  if (form_ == Form::Document) { return NextInDocument(); }
  while (ReadLine()) {
    std::size_t const begin = text_.find_first_not_of(" \t\r");
    if (begin != std::string::npos && text_[begin] != '#') { return Parsed(text_, 0); }
  }
  return std::nullopt;
}

// ---- commands as bytes: what a value is, then the value; a text or list has its length before it

namespace {

constexpr unsigned char kBriefReal = 7;  // behind the kinds of a value: a real that single precision holds
static_assert(std::variant_size_v<decltype(cls_Value::data)> == kBriefReal, "the reader has a case for each kind");

struct Counter {
  std::size_t size = 0;
  void Put(void const*, std::size_t count) { size += count; }
};
struct Writer {
  char* at;
  void Put(void const* from, std::size_t count) {
    std::memcpy(at, from, count);
    at += count;
  }
};

template <class Sink> void PutSize(Sink& to, std::size_t size) {
  auto const brief = static_cast<unsigned char>(std::min<std::size_t>(size, 0xFF));
  to.Put(&brief, 1);
  if (brief == 0xFF) { to.Put(&size, sizeof size); }
}
template <class Sink> void PutText(Sink& to, std::string_view text) {
  PutSize(to, text.size());
  to.Put(text.data(), text.size());
}
template <class Sink> void PutValue(Sink& to, cls_Value const& value) {
  auto const* const real = value.As<double>();
  auto const brief = static_cast<float>(real != nullptr && std::abs(*real) < 1e30 ? *real : 0.0);
  bool const isBrief = real != nullptr && static_cast<double>(brief) == *real;
  unsigned char const kind = isBrief ? kBriefReal : static_cast<unsigned char>(value.data.index());
  to.Put(&kind, 1);
  if (isBrief) { return to.Put(&brief, sizeof brief); }
  if (real != nullptr) { return to.Put(real, sizeof *real); }
  if (auto const* const text = value.As<std::string>()) { return PutText(to, *text); }
  if (auto const* const whole = value.As<long long>()) { return to.Put(whole, sizeof *whole); }
  if (auto const* const flag = value.As<bool>()) { return to.Put(flag, sizeof *flag); }
  if (auto const* const list = value.As<cls_Value::List>()) {
    PutSize(to, list->size());
    for (cls_Value const& element : *list) { PutValue(to, element); }
  } else if (auto const* const fields = value.As<cls_Value::Fields>()) {
    PutSize(to, fields->size());
    for (auto const& [name, element] : *fields) {
      PutText(to, name);
      PutValue(to, element);
    }
  }
}

class Reader {
public:
  explicit Reader(char const* at) : at_(at) {}

  char const* At() const { return at_; }
  cls_Value Value() {
    switch (Plain<unsigned char>()) {
      case 1: return Plain<bool>();
      case 2: return Plain<long long>();
      case 3: return Plain<double>();
      case 4: return Text();
      case 5: {
        cls_Value::List list(Size());
        for (cls_Value& element : list) { element = Value(); }
        return list;
      }
      case 6: {
        cls_Value::Fields fields(Size());
        for (auto& [name, element] : fields) {
          name = Text();
          element = Value();
        }
        return fields;
      }
      case kBriefReal: return static_cast<double>(Plain<float>());
      default: return {};
    }
  }

private:
  template <class T> T Plain() {
    T value;
    std::memcpy(&value, at_, sizeof value);
    at_ += sizeof value;
    return value;
  }
  std::size_t Size() {
    auto const brief = Plain<unsigned char>();
    return brief == 0xFF ? Plain<std::size_t>() : brief;
  }
  std::string Text() {
    std::size_t const size = Size();
    return std::string(std::exchange(at_, at_ + size), size);
  }

  char const* at_;
};

}  // namespace

void KeptJournal::Append(cls_Value const& command) {
  constexpr std::size_t kBlock = 1 << 16;
  Counter counted;
  PutValue(counted, command);
  // a copy may write behind what both share
  bool const isFull = blocks_.empty() || blocks_.back().bytes.use_count() > 1 || blocks_.back().size - blocks_.back().used < counted.size;
  if (isFull) {
    std::size_t const size = std::max(kBlock, counted.size);
    blocks_.push_back({std::shared_ptr<char[]>(new char[size]), size});
  }
  Block& block = blocks_.back();
  Writer writer{block.bytes.get() + block.used};
  PutValue(writer, command);
  block.used += counted.size;
}

std::vector<cls_Value> KeptJournal::Commands() const {
  std::vector<cls_Value> commands;
  for (Block const& block : blocks_) {
    Reader reader(block.bytes.get());
    while (reader.At() != block.bytes.get() + block.used) { commands.push_back(reader.Value()); }
  }
  return commands;
}

}  // namespace gattr
