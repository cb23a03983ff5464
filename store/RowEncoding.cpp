#include "store/RowEncoding.h"

#include <algorithm>
#include <charconv>
#include <concepts>

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "text/Text.h"

namespace gattr {

namespace {

template <std::integral Number> std::string_view Digits(Number number, char (&digits)[32]) {
  return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

}  // namespace

std::size_t RowClasses::Number(Class one) {
  auto const same = [&](Class const& other) { return other.name == one.name && other.members == one.members; };
  auto const found = std::ranges::find_if(classes_, same);
  auto const number = static_cast<std::size_t>(found - classes_.begin());
  if (found == classes_.end()) { classes_.push_back(std::move(one)); }
  return number;
}

void AppendQuoted(std::string& row, std::string_view text) {
  constexpr char kHex[] = "0123456789abcdef";
  row += '"';
  std::size_t plain = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto const byte = static_cast<unsigned char>(text[i]);
    if (byte >= 0x20 && byte != '"' && byte != '\\') { continue; }
    row.append(text, plain, i - plain);
    plain = i + 1;
    if (byte < 0x20) {
      row.append("\\u00").append(1, kHex[byte >> 4]).append(1, kHex[byte & 0xF]);
    } else {
      row.append(1, '\\').append(1, text[i]);
    }
  }
  row.append(text, plain, text.size() - plain);
  row += '"';
}

std::string_view RowWriter::Encode(cls_Object const& object, Row row, bool hasModelSteps) {
  row_ = row;
  hasModelSteps_ = hasModelSteps;
  bytes_.clear();
  frames_.clear();
  shared_.clear();
  objects_ = 1;  // the object itself is the first
  hasRows_ = wroteModelSteps_ = false;
  frames_.push_back({.kind = Kind::List});
  OpenObject({}, {});
  object.DBWrite(*this);
  CloseObject();
  return bytes_;
}

bool RowWriter::StartWrite(unsigned typeId, cls_Uid const& /*uid*/) const {
  Frame& frame = frames_.back();
  frame.typeId = typeId;
  auto const known = last_.find(typeId);
  if (known == last_.end()) { return true; }
  char digits[32];
  frame.guess = known->second;
  bytes_.insert(frame.numberAt, Digits(frame.guess, digits));
  return true;
}

void RowWriter::Begin(std::string_view member, std::string_view suffix) const {
  Frame& frame = frames_.back();
  std::size_t const place = frame.count++;
  if (place > 0) { bytes_ += ','; }
  if (frame.kind == Kind::Map) {
    Quote(member);
    bytes_ += ':';
  }
  if (frame.kind != Kind::Object) { return; }
  if (frame.guess != kNone) {
    auto const& members = classes_[frame.guess].members;
    if (place < members.size() && IsJoined(members[place], member, suffix)) { return; }
    frame.members.assign(members.begin(), members.begin() + static_cast<std::ptrdiff_t>(std::min(place, members.size())));
    bytes_.erase(frame.numberAt, bytes_.find('"', frame.numberAt) - frame.numberAt);
    frame.guess = kNone;
  }
  frame.members.push_back(std::string(member).append(suffix));
}

void RowWriter::CloseObject() const {
  Frame& frame = frames_.back();
  if (frame.guess != kNone && frame.count != classes_[frame.guess].members.size()) {
    auto const& members = classes_[frame.guess].members;
    frame.members.assign(members.begin(), members.begin() + static_cast<std::ptrdiff_t>(frame.count));
    bytes_.erase(frame.numberAt, bytes_.find('"', frame.numberAt) - frame.numberAt);
    frame.guess = kNone;
  }
  if (frame.guess == kNone) {
    char digits[32];
    cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(frame.typeId);
    if (type == nullptr) { Refuse({}, "an object of a class that a module has described"); }
    std::size_t const number = classes_.Number({type->name, std::move(frame.members)});
    last_[frame.typeId] = number;
    bytes_.insert(frame.numberAt, Digits(number, digits));
  }
  bytes_ += "]}";
  frames_.pop_back();
}

void RowWriter::Put(std::string_view member, std::string_view value) const {
  Begin(member);
  bytes_ += value;
}

void RowWriter::WriteEnumerated(std::string_view member, std::string_view suffix, std::string_view /*text*/, unsigned number) const {
  char digits[32];
  Begin(member, suffix);
  bytes_ += Digits(number, digits);
}

void RowWriter::PutInteger(std::string_view member, long long value) const {
  char digits[32];
  Put(member, Digits(value, digits));
}

void RowWriter::PutReal(std::string_view member, double value) const {
  char digits[32];
  Put(member, Digits(value, digits));
}

void RowWriter::PutText(std::string_view member, std::string_view value) const {
  Begin(member);
  Quote(value);
}

bool RowWriter::PutShared(std::string_view member, cls_Object const* object) const {
  if (object == nullptr) { return false; }
  std::size_t const number = objects_++;
  if (!object->IsShared()) { return false; }  // nobody else can have written it
  auto const [known, isNew] = shared_.try_emplace(object, number);
  if (isNew) { return false; }
  --objects_;
  char digits[32];
  Put(member, Digits(known->second, digits));
  return true;
}

void RowWriter::OpenObject(std::string_view member, std::string_view /*className*/) const {
  Begin(member);
  bytes_ += "{\"";
  frames_.push_back({.kind = Kind::Object, .numberAt = bytes_.size()});
  bytes_ += "\":[";
}

void RowWriter::OpenList(std::string_view member, std::size_t /*count*/) const {
  Begin(member);
  bytes_ += '[';
  frames_.push_back({.kind = Kind::List});
}

bool RowWriter::WriteSequence(std::string_view member, std::size_t count, SequenceElement const& at) const {
  if (row_ != Row::Extension) { return false; }
  if (!hasModelSteps_) {
    if (count == 0 || count != Steps().Pairs().size()) { return false; }
    for (std::size_t i = 0; i < count; ++i) {
      auto const [name, object] = at(i);
      if (!Steps().IsAt(i, name, object)) { return false; }
    }
  }
  Begin(member);
  Quote(kStepsElsewhere);
  wroteModelSteps_ = true;
  return true;
}

bool RowWriter::OpenMap(std::string_view member) const {
  bool const isRows = row_ == Row::Extension && frames_.size() == 2 && !hasRows_;
  Begin(member);
  if (isRows) {
    Quote(kRowsElsewhere);
    hasRows_ = true;
    return false;
  }
  bytes_ += '{';
  frames_.push_back({.kind = Kind::Map});
  return true;
}

void RowWriter::Close(Kind kind) const {
  if (kind == Kind::Object) { return CloseObject(); }
  bytes_ += kind == Kind::List ? ']' : '}';
  frames_.pop_back();
}

}  // namespace gattr
