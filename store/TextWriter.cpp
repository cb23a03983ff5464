#include "store/TextWriter.h"

#include <algorithm>
#include <charconv>
#include <ostream>
#include <utility>

#include "module/kpr/engine/kprC_Procedure.h"
#include "store/StoreError.h"

namespace gattr {

namespace {
constexpr std::size_t kBlock = 1 << 16;  // bytes that are handed to the stream at once
}  // namespace

TextWriter::TextWriter(ModelSteps const& steps, std::ostream& out) : StoreWriter(steps, ""), out_(out) {}

void TextWriter::WriteModel(ddr_Model const& model) {
  buffer_ = "{";
  layouts_.emplace_back();
  PutText("format", kFormat);
  PutInteger("version", kVersion);
  model.DBWrite(*this);
  buffer_ += "\n}\n";
  Flush();
}

void TextWriter::PutInteger(std::string_view member, long long value) const {
  char digits[24];
  Put(member, {digits, std::to_chars(digits, digits + sizeof digits, value).ptr});
}

void TextWriter::PutReal(std::string_view member, double value) const {
  char digits[32];
  double const shown = value == 0.0 ? 0.0 : value;  // the two zeros are equal
  Put(member, {digits, std::to_chars(digits, digits + sizeof digits, shown).ptr});
}

void TextWriter::PutText(std::string_view member, std::string_view value) const {
  Begin(member);
  Quote(value);
}

bool TextWriter::PutShared(std::string_view member, cls_Object const* object) const {
  auto const& levels = Levels();
  if (levels.size() < 2 || levels[levels.size() - 2].kind != Kind::List) { return false; }
  if (dynamic_cast<kprC_Procedure const*>(object) != nullptr) { return false; }  // a step goes by its name
  auto& last = layouts_[layouts_.size() - 2].last;
  auto const known = std::ranges::find(last, member, &LastObject::member);
  if (known == last.end()) {
    last.push_back({std::string(member), object});
    return false;
  }
  cls_Object const* const before = std::exchange(known->object, object);
  bool const same = object != nullptr && before != nullptr && (before == object || before->Equals(*object));
  if (same) { Put(member, "\"same\""); }
  return same;
}

void TextWriter::OpenObject(std::string_view member, std::string_view className) const {
  // an element of a list takes one line, and so does what its owner holds by value
  Open(member, '{', className.empty() || Levels().back().kind == Kind::List);
  if (!className.empty()) { PutText("class", className); }
}

void TextWriter::OpenList(std::string_view member, std::size_t /*count*/) const { Open(member, '[', false); }

bool TextWriter::OpenMap(std::string_view member) const {
  Open(member, '{', false);
  return true;
}

void TextWriter::Close(Kind kind) const {
  Layout const layout = std::move(layouts_.back());
  layouts_.pop_back();
  if (!layout.inlined && !layout.empty) { NewLine(); }
  buffer_ += kind == Kind::List ? ']' : '}';
  if (buffer_.size() >= kBlock) { Flush(); }
}

void TextWriter::Open(std::string_view member, char bracket, bool inlined) const {
  Begin(member);
  buffer_ += bracket;
  bool const within = layouts_.back().inlined;
  layouts_.emplace_back().inlined = inlined || within;
}

void TextWriter::Put(std::string_view member, std::string_view value) const {
  Begin(member);
  buffer_ += value;
}

void TextWriter::Begin(std::string_view member) const {
  Layout& layout = layouts_.back();
  if (!layout.empty) { buffer_ += ','; }
  if (!layout.inlined) {
    NewLine();
  } else if (!layout.empty) {
    buffer_ += ' ';
  }
  layout.empty = false;
  bool const inList = layouts_.size() == Levels().size() && Levels().back().kind == Kind::List;
  if (inList) { return; }
  Quote(member);
  buffer_ += ": ";
}

void TextWriter::NewLine() const {
  buffer_ += '\n';
  buffer_.append(2 * layouts_.size(), ' ');
}

void TextWriter::Quote(std::string_view text) const {
  constexpr char kHex[] = "0123456789abcdef";
  buffer_ += '"';
  std::size_t plain = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto const byte = static_cast<unsigned char>(text[i]);
    if (byte >= 0x20 && byte != '"' && byte != '\\' && byte != 0x7F) { continue; }
    buffer_.append(text, plain, i - plain);
    plain = i + 1;
    switch (byte) {
      case '"': buffer_ += "\\\""; break;
      case '\\': buffer_ += "\\\\"; break;
      case '\n': buffer_ += "\\n"; break;
      case '\t': buffer_ += "\\t"; break;
      case '\r': buffer_ += "\\r"; break;
      default:
        buffer_ += "\\u00";
        buffer_ += kHex[byte >> 4];
        buffer_ += kHex[byte & 0xF];
    }
  }
  buffer_.append(text, plain, text.size() - plain);
  buffer_ += '"';
}

void TextWriter::Flush() const {
  out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  if (!out_) { throw StoreError("cannot be written"); }
  buffer_.clear();
}

}  // namespace gattr
