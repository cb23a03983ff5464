#include "store/RowReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <set>

#include "store/Extensions.h"
#include "store/StoreError.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr std::string_view kTrueOrFalse = "true or false";
constexpr std::size_t npos = static_cast<std::size_t>(-1);
constexpr std::size_t kTextShown = 40;  // characters of a text that a message repeats

/// A table of bytes: whether it is one of \p characters.
constexpr std::array<bool, 256> Marked(std::string_view characters) {
  std::array<bool, 256> marked{};
  for (char const c : characters) { marked[static_cast<unsigned char>(c)] = true; }
  return marked;
}

/// Keeps a place in a row, to come back to it.
template <class T> class Restored {
public:
  explicit Restored(T& value) : value_(value), before_(value) {}
  Restored(Restored const&) = delete;
  Restored& operator=(Restored const&) = delete;
  ~Restored() { value_ = before_; }

private:
  T& value_;
  T before_;
};

}  // namespace

// ---- the model

ddr_Model RowReader::ReadModel() {
  try {
    if (rows_.extensions.empty() || !rows_.extensions.front().name.empty()) { Say("extensions", "is damaged: lacks the model itself"); }
    auto const refuse = [this](std::string_view member, std::string const& expected) { Say(member, expected); };
    std::string_view const steps = ddr_Model::stepsCmd();
    if (std::ranges::find(rows_.extensions, steps, &StoredRow::name) == rows_.extensions.end()) { RefuseLackOfSteps(refuse); }
    texts_.emplace_back();
    text_ = &texts_[depth_++];
    Start(*text_, rows_.extensions.front().data);
    text_->objects.emplace_back();  // the model, which nothing refers to
    OpenObject({});
    ddr_Model model(*this);
    CompleteExtensions(model, refuse);
    CloseObject();
    if (objectsRead_ != rows_.objects.size()) {
      for (auto const& [owner, rows] : rows_.objects) {
        if (model.ConstExtension(owner) == nullptr) { Say(owner, "is damaged: holds objects, but is not there"); }
      }
      Say("objects", "is damaged: holds objects that no extension takes");
    }
    return model;
  } catch (std::bad_alloc const&) { throw; } catch (StoreError const&) {
    throw;
  } catch (Cancelled const&) {
    throw;
  } catch (std::exception const& refusal) {  // of an object that was being made; the frames still tell which
    Say(Path(LastMember()), refusal.what());
  }
}

kprC_StepTable const& RowReader::Steps() const {
  static kprC_StepTable const none;  // an attribute outside a repository has a sequence of its own
  bool const isAttribute = frames_.size() > 3 && rows_.repositories.contains(std::string(frames_[2].name));
  return isAttribute ? steps_ : none;
}

bool RowReader::ReadSteps(std::string_view member, kprC_StepTable& table) const {
  if (!TakeIf(member, {}, [this] { return Accept("\"steps\""); })) { return false; }
  bool const isHome = frames_.size() == 3 && frames_.back().name == ddr_Model::stepsCmd().View();
  if (isHome) { steps_ = kprC_StepTable(ReadHome()); }
  table = steps_;
  return true;
}

kprC_StepSequence RowReader::ReadHome() const {
  std::vector<kprC_StepNameProcedurePair> steps;
  steps.reserve(rows_.steps.size());
  std::unordered_map<std::string_view, cow_Handle<kprC_Procedure>> made;  // steps of equal parameters share them
  std::string_view last;
  frames_.push_back({.kind = Frame::Kind::List, .name = "steps", .count = rows_.steps.size()});
  for (StoredRow const& row : rows_.steps) {
    if (row.position != static_cast<std::int64_t>(steps.size())) { Say("steps", "is damaged: expected positions from 0 on"); }
    ++frames_.back().place;
    frames_.push_back({.kind = Frame::Kind::Object, .name = {}});
    if (!IsUtf8(row.name)) { Refuse("stepName", "a text in UTF-8"); }
    cow_Handle<kprC_Procedure> procedure;
    if (!steps.empty() && row.data == last) {
      procedure = steps.back().procedure;
    } else if (row.data != "null") {
      auto const [known, isNew] = made.try_emplace(row.data);
      if (isNew) {
        known->second = MakeRow(row.data, "procedure").As<kprC_Procedure>();
        if (!known->second) { Refuse("procedure", "an object of another class"); }
      }
      procedure = known->second;
    }
    last = row.data;
    steps.emplace_back(cow_String(row.name), std::move(procedure));
    frames_.pop_back();
  }
  frames_.pop_back();
  return kprC_StepSequence(std::move(steps));
}

// ---- rows and objects

void RowReader::Start(Text& text, std::string_view data) const {
  text.data = data;
  text.at = text.bracket = 0;
  text.inside.clear();
  text.objects.clear();
  struct Open {
    std::uint32_t number;
    char closes;
  };
  std::array<Open, kDeepest> open;  // filled to depth
  std::size_t depth = 0;
  // what opens, closes and separates; in a text, its end and what hides it
  static constexpr auto kOutside = Marked("\"[]{},"), kInside = Marked("\"\\");
  char const* const end = data.data() + data.size();
  auto const next = [end](char const* from, std::array<bool, 256> const& marked) {
    while (from != end && !marked[static_cast<unsigned char>(*from)]) { ++from; }
    return from;
  };
  for (char const* at = next(data.data(), kOutside); at != end; at = next(at + 1, kOutside)) {
    switch (*at) {
      case '"':
        for (at = next(at + 1, kInside); at != end && *at == '\\'; at = next(at + 1, kInside)) {
          if (++at == end) { break; }
        }
        if (at == end) { RefuseRow("ends inside a text"); }
        break;
      case '[':
      case '{':
        if (depth == kDeepest) { RefuseRow("nests deeper than " + std::to_string(kDeepest) + " objects and lists"); }
        open[depth++] = {static_cast<std::uint32_t>(text.inside.size()), *at == '[' ? ']' : '}'};
        text.inside.push_back({.values = at + 1 != end && at[1] == open[depth - 1].closes ? 0U : 1U});
        break;
      case ',':
        if (depth == 0) { RefuseRow("goes on behind its end"); }
        ++text.inside[open[depth - 1].number].values;
        break;
      case ']':
      case '}':
        if (depth == 0 || open[depth - 1].closes != *at) { RefuseRow("closes what is not open"); }
        if (--depth == 0 && at + 1 != end) { RefuseRow("goes on behind its end"); }
        text.inside[open[depth].number].end = static_cast<std::size_t>(at - data.data());
        text.inside[open[depth].number].brackets = static_cast<std::uint32_t>(text.inside.size()) - open[depth].number - 1;
        break;
      default: break;
    }
  }
  if (depth != 0 || text.inside.empty()) { RefuseRow("ends too early"); }
}

cow_Handle<cls_Object> RowReader::MakeRow(std::string_view data, std::string_view name) const {
  if (texts_.size() == depth_) { texts_.emplace_back(); }
  Text* const before = text_;
  text_ = &texts_[depth_++];
  frames_.push_back({.kind = Frame::Kind::Object, .name = name});  // for the message, if the data are none
  Start(*text_, data);
  frames_.pop_back();
  Object object = MakeObject(name);
  --depth_;
  text_ = before;
  return object;
}

cow_Handle<cls_Object> RowReader::MakeObject(std::string_view name) const {
  std::size_t const number = text_->objects.size();
  text_->objects.emplace_back();
  OpenObject(name);
  Frame& frame = frames_.back();
  Type& type = types_[static_cast<std::size_t>(frame.type - &rows_.classes[0])];
  if (type.metadata == nullptr || !type.metadata->CanBeRead()) {
    Say(Path("class"), "expected a class that can be made, found \"" + frame.type->name + "\"");
  }
  frame.typeId = type.metadata->typeId;
  Made* const made = type.isPlain ? &LikeNext() : nullptr;
  if (made != nullptr && made->object) {
    Inside const& values = text_->inside[frame.bracket - 1];
    text_->at = values.end;
    text_->bracket += values.brackets;
    frames_.pop_back();
    Expect("]}");
    return text_->objects[number] = made->object;
  }
  Object object = type.metadata->Read(*this);
  CloseObject();
  if (made != nullptr) { made->object = object; }
  text_->objects[number] = object;
  return object;
}

RowReader::Made& RowReader::LikeNext() const {
  Frame const& frame = frames_.back();
  std::string_view const values = text_->data.substr(frame.begin, text_->inside[frame.bracket - 1].end - frame.begin);
  Made& made = made_[std::hash<std::string_view>()(values) % made_.size()];
  if (made.type != frame.type || made.values != values) { made = {frame.type, values, {}}; }
  return made;
}

void RowReader::OpenObject(std::string_view name) const {
  frames_.push_back({.kind = Frame::Kind::Object, .name = name});
  Frame& frame = frames_.back();
  Expect("{\"");
  std::size_t number = 0;
  char const* const begin = text_->data.data() + text_->at;
  auto const [end, error] = std::from_chars(begin, text_->data.data() + text_->data.size(), number);
  text_->at += static_cast<std::size_t>(end - begin);
  Expect("\":[");
  if (error != std::errc() || number >= rows_.classes.Size()) { RefuseRow("refers to a class that is not there"); }
  frame.type = &rows_.classes[number];
  frame.count = text_->inside[text_->bracket + 1].values;
  frame.ahead = std::min(frame.count, frame.type->members.size());
  text_->bracket += 2;
  frame.begin = text_->at;
  frame.bracket = text_->bracket;
  Type& type = types_[number];
  if (!type.known) {
    std::set<std::string_view> seen;
    for (std::string const& member : frame.type->members) {
      if (!seen.insert(member).second) { Say(Path(member), "stands twice"); }
    }
    cls_ClassMetadata const* const metadata = cls_MetadataRegistrar::Registrar().Find(frame.type->name);
    bool const byRows = metadata != nullptr && metadata->construct == nullptr;
    type = {true, metadata, byRows && std::ranges::none_of(metadata->members, [](cls_MemberInfo const& member) {
                              return member.kind == cls_MemberKind::Object;
                            })};
  }
}

void RowReader::CloseObject() const {
  Frame const& frame = frames_.back();
  std::size_t const size = frame.type->members.size();
  for (std::size_t i = frame.taken.empty() ? frame.place : 0; i < size; ++i) {
    if (frame.taken.empty() || !frame.taken[i]) { Say(Path(frame.type->members[i]), "no such member is known"); }
  }
  if (frame.count != size) { Say(Path(), "is damaged: expected " + std::to_string(size) + " values"); }
  if (!frame.taken.empty()) { GoTo(size); }
  frames_.pop_back();
  Expect("]}");
}

cow_Handle<cls_Object> RowReader::ReadAny(std::string_view member, std::string_view name) const {
  if (frames_.back().kind == Frame::Kind::Rows) {
    Frame& frame = frames_.back();
    auto const& rows = *frame.rows;
    if (frame.place == rows.size() || rows[frame.place].name != member) {  // asked for in another order
      frame.place = static_cast<std::size_t>(std::ranges::find(rows, member, &StoredRow::name) - rows.begin());
      if (frame.place == rows.size()) { Refuse(member, "an object, found nothing"); }
    }
    StoredRow const& row = rows[frame.place++];
    tick_();
    return MakeRow(row.data, row.name);
  }
  Take(member, "an object");
  switch (Peek()) {
    case 'n': Expect("null"); return {};
    case '{': return MakeObject(member);
    case '"': {
      std::size_t const at = text_->at;
      std::string const text = TakeText(member, "an object");
      std::size_t const index = steps_.Find(text);
      text_->at = at;
      if (index == kprC_StepTable::npos) { RefuseValue(member, "an object or the name of a step"); }
      if (text != name) { RefuseValue(member, "the step that the record belongs to"); }
      Skip();
      return steps_[index].procedure;
    }
    default: break;
  }
  std::size_t const at = text_->at;
  std::size_t number = 0;
  if (!Number(number)) { RefuseValue(member, "an object"); }
  if (number >= text_->objects.size() || !text_->objects[number]) {
    text_->at = at;
    RefuseValue(member, "an object that stands before");
  }
  return text_->objects[number];
}

void RowReader::ReadNested(std::string_view member, std::function<void(cls_ReadVisitor const&)> const& read) const {
  Take(member, "an object");
  if (Peek() != '{') { RefuseValue(member, "an object"); }
  OpenObject(member);
  read(*this);
  CloseObject();
}

void RowReader::OpenList(Frame::Kind kind, std::string_view name) const {
  ++text_->at;
  Frame frame{.kind = kind, .name = name};
  frame.count = text_->inside[text_->bracket++].values;
  frame.begin = text_->at;
  frame.bracket = text_->bracket;
  frames_.push_back(std::move(frame));
}

std::size_t RowReader::StartList(std::string_view member) const {
  Take(member, "a list");
  if (Peek() != '[') { RefuseValue(member, "a list"); }
  OpenList(Frame::Kind::List, member);
  return frames_.back().count;
}

void RowReader::EndList() const {
  Frame const& frame = frames_.back();
  if (frame.place != frame.count) {
    Say(Path(), "expected " + std::to_string(frame.place) + " elements, found " + std::to_string(frame.count));
  }
  frames_.pop_back();
  Expect(']');
}

std::vector<std::string> RowReader::StartMap(std::string_view member) const {
  Take(member, "named objects");
  std::vector<std::string> keys;
  if (Accept("\"rows\"")) {
    // Of the model those are its extensions, of an extension its objects.
    bool const isModel = frames_.size() == 1;
    static std::vector<StoredRow> const none;
    Frame frame{.kind = Frame::Kind::Rows, .name = member, .rows = &none};
    if (!isModel && frames_.size() != 3) { RefuseRow("leaves to others what it should hold"); }
    if (isModel) {
      frame.rows = &rows_.extensions;
    } else if (auto const own = rows_.objects.find(std::string(frames_.back().name)); own != rows_.objects.end()) {
      frame.rows = &own->second;
      ++objectsRead_;
    }
    keys.reserve(frame.rows->size());
    for (StoredRow const& row : *frame.rows) {
      if (isModel && row.name.empty()) { continue; }  // the model itself
      if (!IsUtf8(row.name)) { Say(Path(Quoted(row.name)), "expected a name in UTF-8"); }
      keys.emplace_back(row.name);
    }
    if (isModel) {  // the steps first: the others refer to them
      std::stable_partition(keys.begin(), keys.end(), [](std::string const& key) { return key == ddr_Model::stepsCmd().View(); });
    }
    frames_.push_back(std::move(frame));
    return keys;
  }
  if (Peek() != '{') { RefuseValue(member, "named objects"); }
  OpenList(Frame::Kind::Map, member);
  Restored const at(text_->at);
  Restored const bracket(text_->bracket);
  std::set<std::string> seen;
  for (std::size_t i = 0; i < frames_.back().count; ++i) {
    if (i > 0) { Expect(','); }
    keys.push_back(TakeText({}, "a name"));
    if (!seen.insert(keys.back()).second) { Say(Path(keys.back()), "stands twice"); }
    Expect(':');
    Skip();
  }
  return keys;
}

void RowReader::EndMap() const {
  bool const isRows = frames_.back().kind == Frame::Kind::Rows;
  frames_.pop_back();
  if (!isRows) { Expect('}'); }
}

// ---- values

unsigned RowReader::TypeId() const { return frames_.back().typeId; }

bool RowReader::Has(std::string_view member) const {
  Frame const& frame = frames_.back();
  return frame.kind == Frame::Kind::Object ? PlaceOf(member, {}) != npos : frame.place < frame.count;
}

bool RowReader::IsNull(std::string_view member) const {
  if (IsNext(member, {})) {  // as nearly always, and mostly a value
    std::size_t const at = text_->at + (frames_.back().place > 0 ? 1 : 0);
    if (at < text_->data.size() && text_->data[at] != 'n') { return false; }
  }
  return TakeIf(member, {}, [this] { return Accept("null"); });
}

bool RowReader::ReadBool(std::string_view member) const {
  Take(member, kTrueOrFalse);
  if (Accept("true")) { return true; }
  if (!Accept("false")) { RefuseValue(member, kTrueOrFalse); }
  return false;
}

long long RowReader::ReadInteger(std::string_view member) const {
  constexpr std::string_view expected = "an integer";
  Take(member, expected);
  long long value = cls_unsetInteger;
  if (!Number(value) && !(rows_.nullIsLargest && Accept("null"))) { RefuseValue(member, expected); }
  return value;
}

double RowReader::ReadReal(std::string_view member) const {
  constexpr std::string_view expected = "a finite number";
  Take(member, expected);
  double value = cls_unsetReal;
  if (!Number(value) && !(rows_.nullIsLargest && Accept("null"))) { RefuseValue(member, expected); }
  return value;
}

std::string RowReader::ReadText(std::string_view member) const {
  constexpr std::string_view expected = "a text";
  Take(member, expected);
  if (Peek() != '"') { RefuseValue(member, expected); }
  return TakeText(member, expected);
}

cow_String RowReader::ReadShared(std::string_view member) const {
  constexpr std::string_view expected = "a text";
  Take(member, expected);
  if (Peek() != '"') { RefuseValue(member, expected); }
  std::string_view const rest = text_->data.substr(text_->at + 1);
  std::size_t size = 0, number = 0;
  for (; rest[size] != '"' && rest[size] != '\\'; ++size) { number = 31 * number + static_cast<unsigned char>(rest[size]); }
  if (rest[size] == '\\') { return TakeText(member, expected); }
  cow_String& known = shared_[number % shared_.size()];
  if (known != rest.substr(0, size)) { return known = TakeText(member, expected); }
  text_->at += size + 2;
  return known;
}

std::optional<unsigned> RowReader::ReadEnumerated(std::string_view member, std::string_view suffix) const {
  Frame& frame = frames_.back();
  unsigned number = 0;
  if (IsNext(member, suffix)) {
    std::size_t const at = text_->at;
    if (frame.place > 0) { Expect(','); }
    if (Peek() == '"' || !Number(number)) { return text_->at = at, std::nullopt; }
    ++frame.place;
    return number;
  }
  if (frame.kind == Frame::Kind::Object && PlaceOf(member, suffix) == npos) { return {}; }  // the text is missed
  return TakeIf(member, suffix, [&] { return Number(number); }) ? std::optional(number) : std::nullopt;
}

// ---- finding values

std::size_t RowReader::PlaceOf(std::string_view member, std::string_view suffix) const {
  Frame const& frame = frames_.back();
  if (frame.kind != Frame::Kind::Object) { return npos; }
  auto const& members = frame.type->members;
  if (frame.place < members.size() && IsJoined(members[frame.place], member, suffix)) { return frame.place; }
  auto const found = std::ranges::find_if(members, [&](std::string const& one) { return IsJoined(one, member, suffix); });
  return found == members.end() ? npos : static_cast<std::size_t>(found - members.begin());
}

bool RowReader::IsNext(std::string_view member, std::string_view suffix) const {
  Frame const& frame = frames_.back();
  return frame.place < frame.ahead && IsJoined(frame.type->members[frame.place], member, suffix);
}

void RowReader::Take(std::string_view member, std::string_view expected, std::string_view suffix) const {
  Frame& frame = frames_.back();
  if (IsNext(member, suffix)) {  // as nearly always
    if (frame.place++ > 0) { Expect(','); }
    return;
  }
  if (frame.kind == Frame::Kind::Object) {
    std::size_t const place = PlaceOf(member, suffix);
    if (place != frame.place) {
      if (place == npos) { Refuse(std::string(member).append(suffix), std::string(expected) + ", found nothing"); }
      if (frame.taken.empty()) {
        frame.taken.assign(frame.type->members.size(), false);
        std::fill_n(frame.taken.begin(), frame.place, true);
        frame.ahead = 0;
      }
      GoTo(place);
    }
    if (place >= frame.count) { Refuse(std::string(member).append(suffix), std::string(expected) + ", found nothing"); }
    if (!frame.taken.empty()) { frame.taken[place] = true; }
    if (frame.place++ > 0) { Expect(','); }
    return;
  }
  if (frame.place == frame.count) { Refuse(member, std::string(expected) + ", found nothing"); }
  if (frame.place++ > 0) { Expect(','); }
  if (frame.kind != Frame::Kind::Map) { return; }
  if (TakeText({}, "a name") != member) { Refuse(member, std::string(expected) + ", found nothing"); }
  Expect(':');
}

void RowReader::GoTo(std::size_t place) const {
  Frame& frame = frames_.back();
  text_->at = frame.begin;
  text_->bracket = frame.bracket;
  for (frame.place = 0; frame.place < std::min(place, frame.count); ++frame.place) {
    if (frame.place > 0) { Expect(','); }
    Skip();
  }
}

void RowReader::Skip() const {
  std::size_t depth = 0;
  auto const& data = text_->data;
  for (std::size_t& at = text_->at; at < data.size(); ++at) {
    char const c = data[at];
    if (depth == 0 && (c == ',' || c == ']' || c == '}')) { return; }
    if (c == '[' || c == '{') {
      ++depth;
      ++text_->bracket;
    } else if (c == ']' || c == '}') {
      --depth;
    } else if (c == '"') {
      for (++at; data[at] != '"'; ++at) { at += data[at] == '\\' ? 1U : 0U; }
    }
  }
}

template <class Fn> bool RowReader::TakeIf(std::string_view member, std::string_view suffix, Fn&& accepts) const {
  Frame& frame = frames_.back();
  std::size_t const place = frame.place, at = text_->at, bracket = text_->bracket;
  Take(member, "a value", suffix);
  if (accepts()) { return true; }
  if (!frame.taken.empty()) { frame.taken[frame.place - 1] = false; }
  frame.place = place;
  text_->at = at;
  text_->bracket = bracket;
  return false;
}

template <class T> bool RowReader::Number(T& value) const {
  constexpr std::ptrdiff_t kShort = std::min(std::numeric_limits<T>::digits10, std::numeric_limits<long long>::digits10);  // so many fit
  auto const ends = [](char c) { return c == ',' || c == ']' || c == '}'; };
  char const* const begin = text_->data.data() + text_->at;
  char const* const behind = text_->data.data() + text_->data.size();
  long long digits = 0;
  char const* at = begin;
  while (at != behind && at - begin < kShort && *at >= '0' && *at <= '9') { digits = 10 * digits + (*at++ - '0'); }
  if (at != begin && at != behind && ends(*at)) {
    value = static_cast<T>(digits);
    text_->at += static_cast<std::size_t>(at - begin);
    return true;
  }
  T number{};
  auto const [end, error] = std::from_chars(begin, behind, number);
  if (error != std::errc() || end == behind || !ends(*end)) { return false; }
  if constexpr (std::floating_point<T>) {
    if (!std::isfinite(number)) { return false; }
  }
  value = number;
  text_->at += static_cast<std::size_t>(end - begin);
  return true;
}

bool RowReader::Accept(std::string_view what) const {
  std::string_view const& data = text_->data;
  if (text_->at + what.size() > data.size() || !AreSame(data.data() + text_->at, what.data(), what.size())) { return false; }
  text_->at += what.size();
  return true;
}

void RowReader::Expect(std::string_view what) const {
  if (!Accept(what)) { RefuseRow("holds what no writer has written"); }
}

std::string_view RowReader::Token() const {
  std::size_t const size = text_->data.find_first_of(",]}[{\"", text_->at) - text_->at;
  return text_->data.substr(text_->at, size);
}

std::string RowReader::TakeText(std::string_view member, std::string_view expected) const {
  Expect('"');
  std::string_view const rest = text_->data.substr(text_->at);
  std::size_t plain = 0;
  while (rest[plain] != '"' && rest[plain] != '\\') { ++plain; }
  std::string text(rest.substr(0, plain));
  std::size_t at = plain;
  while (at < rest.size() && rest[at] != '"') {
    if (rest[at] != '\\') {
      text += rest[at++];
      continue;
    }
    if (rest[at + 1] == '"' || rest[at + 1] == '\\') {
      text += rest[at + 1];
      at += 2;
      continue;
    }
    unsigned code = 0x80;
    if (rest[at + 1] == 'u' && at + 6 < rest.size()) { std::from_chars(&rest[at + 2], &rest[at + 6], code, 16); }
    if (code >= 0x80) { RefuseRow("holds what no writer has written"); }
    text += static_cast<char>(code);
    at += 6;
  }
  text_->at += at + 1;
  if (!IsUtf8(text)) { Refuse(member, std::string(expected) + " in UTF-8"); }
  return text;
}

// ---- messages

std::string RowReader::Path(std::string_view member) const {
  std::string path;
  auto const join = [&path](std::string_view name) {
    if (name.empty()) { return; }
    path.append(path.empty() ? "" : " / ").append(name);
  };
  auto const place = [&path](Frame const& list) {
    if (list.place > 0) { path += "[" + std::to_string(list.place - 1) + "]"; }
  };
  for (std::size_t depth = 1; depth < frames_.size(); ++depth) {
    if (frames_[depth - 1].kind == Frame::Kind::List) {
      place(frames_[depth - 1]);
    } else if (frames_[depth].kind != Frame::Kind::Rows) {
      join(frames_[depth].name);
    }
  }
  if (!frames_.empty() && frames_.back().kind == Frame::Kind::List) {
    place(frames_.back());
  } else {
    join(member);
  }
  return path;
}

std::string_view RowReader::LastMember() const {
  if (frames_.empty() || frames_.back().place == 0) { return {}; }
  Frame const& frame = frames_.back();
  std::size_t const last = frame.place - 1;
  if (frame.kind == Frame::Kind::Rows) { return (*frame.rows)[last].name; }
  return frame.type != nullptr && last < frame.type->members.size() ? std::string_view(frame.type->members[last]) : std::string_view();
}

std::string RowReader::Found() const {
  switch (Peek()) {
    case '{': return "an object";
    case '[': return "a list";
    case '"': {
      std::string const text = TakeText({}, "a text");
      return "\"" + text.substr(0, kTextShown) + (text.size() > kTextShown ? "...\"" : "\"");
    }
    default: return std::string(Token().substr(0, kTextShown));
  }
}

void RowReader::RefuseValue(std::string_view member, std::string_view expected) const {
  Say(Path(member), "expected " + std::string(expected) + ", found " + Found());
}

void RowReader::Refuse(std::string_view member, std::string_view expected) const { Say(Path(member), "expected " + std::string(expected)); }

void RowReader::RefuseRow(std::string_view what) const { Say(Path(), "is damaged: the row " + std::string(what)); }

void RowReader::Say(std::string_view path, std::string_view what) const {
  std::string message = fileName_;
  for (std::string_view const part : {path, what}) {
    if (!part.empty()) { message.append(": ").append(part); }
  }
  throw StoreError(message);
}

}  // namespace gattr
