#include "store/RowEncoding.h"

#include <algorithm>
#include <bit>

namespace gattr {

std::uint32_t RowNames::Number(std::string_view name) {
  if (auto const known = numbers_.find(name); known != numbers_.end()) { return known->second; }
  auto const number = static_cast<std::uint32_t>(names_.size());
  names_.emplace_back(name);
  numbers_.emplace(name, number);
  return number;
}

std::string RowWriter::Encode(cls_Object const& object) {
  bytes_.clear();
  texts_.clear();
  objects_.clear();
  hasRows_ = false;
  object.DBWrite(*this);
  bytes_ += static_cast<char>(RowTag::End);
  return bytes_;
}

void RowWriter::Put(RowTag tag, std::string_view member) const {
  bytes_ += static_cast<char>(tag);
  if (Levels().back().kind != Kind::List) { Varint(names_.Number(member)); }
}

void RowWriter::Varint(std::uint64_t number) const {
  for (; number >= 0x80; number >>= 7) { bytes_ += static_cast<char>(number | 0x80); }
  bytes_ += static_cast<char>(number);
}

void RowWriter::PutInteger(std::string_view member, long long value) const {
  Put(RowTag::Integer, member);
  auto const bits = static_cast<std::uint64_t>(value);
  Varint(bits << 1 ^ (value < 0 ? ~std::uint64_t{0} : 0));  // small numbers of either sign are short
}

void RowWriter::PutReal(std::string_view member, double value) const {
  Put(RowTag::Real, member);
  auto const bits = std::bit_cast<std::uint64_t>(value);
  for (int byte = 0; byte < 8; ++byte) { bytes_ += static_cast<char>(bits >> (8 * byte)); }
}

void RowWriter::PutText(std::string_view member, std::string_view value) const {
  Put(RowTag::Text, member);
  auto const known = std::ranges::find_if(
      texts_, [&](auto const& text) { return text.second == value.size() && bytes_.compare(text.first, text.second, value) == 0; });
  Varint(static_cast<std::uint64_t>(known == texts_.end() ? 0 : known - texts_.begin() + 1));
  if (known != texts_.end()) { return; }
  Varint(value.size());
  if (texts_.size() < kRepeatableTexts) { texts_.emplace_back(bytes_.size(), value.size()); }
  bytes_ += value;
}

bool RowWriter::PutShared(std::string_view member, cls_Object const* object) const {
  if (object == nullptr) { return false; }
  auto const [known, isNew] = objects_.try_emplace(object, static_cast<std::uint32_t>(objects_.size()));
  if (isNew) { return false; }
  Put(RowTag::Reference, member);
  Varint(known->second);
  return true;
}

void RowWriter::OpenObject(std::string_view member, std::string_view className) const {
  Put(className.empty() ? RowTag::Nested : RowTag::Object, member);
  if (!className.empty()) { Varint(names_.Number(className)); }
}

void RowWriter::OpenList(std::string_view member, std::size_t count) const {
  Put(RowTag::List, member);
  Varint(count);
}

bool RowWriter::WriteSequence(std::string_view member, std::size_t count, SequenceElement const& at) const {
  if (row_ != Row::Extension || count == 0 || count != Steps().Pairs().size()) { return false; }
  for (std::size_t i = 0; i < count; ++i) {
    auto const [name, object] = at(i);
    if (!Steps().IsAt(i, name, object)) { return false; }
  }
  Put(RowTag::Steps, member);
  return true;
}

bool RowWriter::OpenMap(std::string_view member) const {
  bool const isRows = row_ == Row::Extension && Levels().size() == 1 && !hasRows_;
  Put(isRows ? RowTag::Rows : RowTag::Nested, member);
  hasRows_ = hasRows_ || isRows;
  return !isRows;
}

void RowWriter::Close(Kind kind) const {
  if (kind != Kind::List) { bytes_ += static_cast<char>(RowTag::End); }
}

namespace {

/// Takes bytes from the front of a row.
class Source {
public:
  Source(Document const& document, std::string_view bytes) : document_(document), bytes_(bytes) {}

  bool IsEmpty() const { return bytes_.empty(); }
  std::string_view Take(std::uint64_t size) {
    if (size > bytes_.size()) { Refuse("ends too early"); }
    std::string_view const taken = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    return taken;
  }
  unsigned char Byte() { return static_cast<unsigned char>(Take(1)[0]); }
  std::uint64_t Varint() {
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      std::uint64_t const byte = Byte();
      number |= (byte & 0x7F) << shift;
      if (byte < 0x80) { return number; }
    }
    Refuse("holds a number that is too large");
  }
  /// A number below \p limit.
  std::size_t Index(std::size_t limit) {
    std::uint64_t const index = Varint();
    if (index >= limit) { Refuse("refers to what is not there"); }
    return index;
  }
  [[noreturn]] void Refuse(std::string_view what) const {
    document_.Refuse(document_.OpenPath(), "is damaged: the row " + std::string(what));
  }

private:
  Document const& document_;
  std::string_view bytes_;
};

}  // namespace

RowDecoder::RowDecoder(Document& document, std::vector<std::string> const& names) : document_(document), class_(document.Intern("class")) {
  for (std::string const& name : names) { names_.push_back(document.Intern(name)); }
}

void RowDecoder::Decode(std::string_view bytes, Elsewhere const& elsewhere) const {
  Source source(document_, bytes);
  std::vector<Document::Text> texts;
  std::vector<Document::At> objects;
  struct Level {
    bool isList;
    std::uint64_t left;  // of a list
  };
  std::vector<Level> levels{{false, 0}};
  auto const close = [&] {
    levels.pop_back();
    if (!levels.empty()) { document_.Close(); }
  };
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.isList && level.left == 0) {
      close();
      continue;
    }
    auto const tag = static_cast<RowTag>(source.Byte());
    if (tag == RowTag::End) {
      if (level.isList) { source.Refuse("lacks an element of a list"); }
      close();
      continue;
    }
    Document::Text const name = level.isList ? 0 : names_[source.Index(names_.size())];
    level.left -= level.isList ? 1 : 0;
    switch (tag) {
      case RowTag::End: break;  // closed above
      case RowTag::Null: document_.AddNull(name); break;
      case RowTag::False: document_.AddBool(name, false); break;
      case RowTag::True: document_.AddBool(name, true); break;
      case RowTag::Integer: {
        std::uint64_t const bits = source.Varint();
        document_.AddInteger(name, static_cast<long long>(bits >> 1 ^ (~(bits & 1) + 1)));
        break;
      }
      case RowTag::Real: {
        std::uint64_t bits = 0;
        for (int byte = 0; byte < 8; ++byte) { bits |= std::uint64_t{source.Byte()} << (8 * byte); }
        document_.AddReal(name, std::bit_cast<double>(bits));
        break;
      }
      case RowTag::Text: {
        std::size_t const known = source.Index(texts.size() + 1);
        Document::Text const text = known == 0 ? document_.Intern(source.Take(source.Varint())) : texts[known - 1];
        if (known == 0 && texts.size() < kRepeatableTexts) { texts.push_back(text); }
        document_.AddText(name, text);
        break;
      }
      case RowTag::Object: {
        Document::Text const type = names_[source.Index(names_.size())];
        objects.push_back(document_.Open(Document::Kind::Object, name));
        document_.AddText(class_, type);
        levels.push_back({false, 0});
        break;
      }
      case RowTag::Nested:
        document_.Open(Document::Kind::Object, name);
        levels.push_back({false, 0});
        break;
      case RowTag::List:
        document_.Open(Document::Kind::List, name);
        levels.push_back({true, source.Varint()});
        break;
      case RowTag::Reference: document_.AddReference(name, objects[source.Index(objects.size())]); break;
      case RowTag::Rows:
      case RowTag::Steps: {
        auto const& add = tag == RowTag::Rows ? elsewhere.rows : elsewhere.steps;
        if (!add) { source.Refuse("leaves to others what it should hold"); }
        add(name);
        break;
      }
      default: source.Refuse("holds a value of an unknown kind");
    }
  }
  if (!source.IsEmpty()) { source.Refuse("goes on behind its end"); }
}

}  // namespace gattr
