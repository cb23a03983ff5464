#include "store/TextWriter.h"

#include <algorithm>
#include <charconv>
#include <ostream>
#include <utility>

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "store/StoreError.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {
constexpr std::size_t kBlock = 1 << 16;  // bytes that are handed to the stream at once

/// Where the members of what is open at \p depth begin: the model's extensions at the margin, as the model itself.
constexpr std::size_t Indentation(std::size_t depth) { return depth == 0 ? 0 : depth - 1; }
}  // namespace

TextWriter::TextWriter(ModelSteps const& steps, std::ostream& out, Ticker& tick) : StoreWriter(steps, ""), out_(out), tick_(tick) {}

void TextWriter::WriteModel(ddr_Model const& model) {
  for (auto const& [member, extension] : model.Extensions()) {
    if (auto const* const objects = mdl_ExtensionAs<mdl_NamedObjects>(extension.ConstGet())) { declared_.push_back(objects); }
  }
  buffer_ = "{";
  open_.push_back({Kind::Object, Layout::Spread});
  PutText("format", kFormat);
  PutInteger("version", kVersion);
  model.DBWrite(*this);
  Close(Kind::Object);
  buffer_ += '\n';
  Flush();
}

cls_Object const* TextWriter::NewLike(cls_Object const& object) const {
  // the model says what it is called, whatever that is, and which its steps are: others refer to them
  if (open_.size() == 1 || Steps().IsHome(object)) { return nullptr; }
  auto const [entry, isNew] = fresh_.try_emplace(object.DynTypeId());
  if (isNew) {
    cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(object.DynTypeId());
    if (type != nullptr && type->make != nullptr) { entry->second = type->make(); }
  }
  return entry->second.get();
}

void TextWriter::WriteChange(std::string_view step, cls_Object const* values, bool isFirst) const {
  Open(Named(""), Kind::Object, values == nullptr ? Layout::OneLine : Layout::Spread);
  StoreWriter::Begin(Kind::Object, "");
  WriteText(values == nullptr ? kOff : kStep, step);
  if (values == nullptr) {
    // nothing more to say
  } else if (isFirst) {
    WriteText("class", ClassName("", *values));
    values->DBWrite(*this);
  } else {
    for (cls_MemberRow const& row : values->MemberRows()) {
      void const* const member = row.In(static_cast<void const*>(values));
      if (!row.again && row.ops->isModified != nullptr && row.ops->isModified(member)) { row.ops->write(*this, row.name, member); }
    }
  }
  End();
}

void TextWriter::WriteDeclared(std::string_view member, std::string_view name, cls_Object const& object) const {
  bool const isDeclared = std::ranges::any_of(declared_, [&](mdl_NamedObjects const* objects) {
    cls_Object const* const declared = objects->ConstObject(name);
    return declared != nullptr && declared->Equals(object);
  });
  isDeclared ? WriteText(member, name) : WriteNested(member, object);
}

bool TextWriter::WriteSequence(std::string_view member, std::size_t count, SequenceElement const& at) const {
  if (!RefersToSteps() || count != Steps().Pairs().size()) { return false; }
  for (std::size_t i = 0; i < count; ++i) {
    auto const [name, step] = at(i);
    if (!Steps().IsAt(i, name, step)) { return false; }
  }
  PutText(Named(member), kOwnSteps);
  return true;
}

void TextWriter::PutInteger(std::string_view member, long long value) const {
  char digits[24];
  Put(member, {digits, std::to_chars(digits, digits + sizeof digits, value).ptr});
}

void TextWriter::PutReal(std::string_view member, double value) const {
  char digits[32];
  Put(member, Digits(value == 0.0 ? 0.0 : value, digits));  // the two zeros are equal
}

void TextWriter::PutText(std::string_view member, std::string_view value) const {
  Put(member, {});
  AppendJsonQuoted(buffer_, value);
}

void TextWriter::OpenObject(std::string_view member, std::string_view className) const {
  tick_();
  bool const isValue = className.empty() && open_.back().kind != Kind::List;  // of its owner, which holds it
  Open(member, Kind::Object, isValue ? Layout::OneLine : Layout::Spread);
  if (!className.empty()) { PutText("class", className); }
}

void TextWriter::OpenList(std::string_view member, std::size_t /*count*/) const { Open(member, Kind::List, Layout::Undecided); }

bool TextWriter::OpenMap(std::string_view member) const {
  Open(member, Kind::Map, Layout::Spread);
  return true;
}

void TextWriter::Open(std::string_view member, Kind kind, Layout layout) const {
  Opened const& owner = open_.back();
  if (owner.layout == Layout::OneLine) { layout = Layout::OneLine; }
  BeginMember(member, layout != Layout::OneLine);
  if (layout != Layout::Undecided) {
    ToValue(open_.back(), layout == Layout::Spread);
    buffer_ += kind == Kind::List ? '[' : '{';
  }
  open_.push_back({kind, layout});
}

void TextWriter::Close(Kind kind) const {
  Opened const closed = open_.back();
  open_.pop_back();
  if (closed.layout == Layout::Undecided) {
    ToValue(open_.back(), false);
    buffer_ += '[';
  }
  if (closed.layout == Layout::Spread && closed.count > 0) { NewLine(Indentation(open_.size())); }
  buffer_ += kind == Kind::List ? ']' : '}';
  if (closed.layout != Layout::Spread) { Settle(open_.back()); }
  if (buffer_.size() >= kBlock) { Flush(); }
}

void TextWriter::Put(std::string_view member, std::string_view value) const {
  BeginMember(member, false);
  ToValue(open_.back(), false);
  buffer_ += value;
  Settle(open_.back());
}

void TextWriter::BeginMember(std::string_view member, bool spread) const {
  Opened& owner = open_.back();
  if (owner.layout == Layout::Undecided) {
    owner.layout = spread ? Layout::Spread : Layout::OneLine;
    ToValue(open_[open_.size() - 2], spread);
    buffer_ += '[';
  }
  bool const isFirst = owner.count++ == 0;
  if (owner.layout == Layout::OneLine) {
    if (!isFirst) { buffer_ += ", "; }
  } else if (!isFirst || owner.kind != Kind::Object) {
    NewLine(Indentation(open_.size() - 1));
    buffer_ += isFirst ? ' ' : ',';
  }
  if (owner.kind == Kind::List) { return; }
  AppendJsonQuoted(buffer_, member);
  buffer_ += ':';
}

void TextWriter::ToValue(Opened const& owner, bool spread) const {
  if (owner.kind == Kind::List) { return; }
  bool const onLineOfName = spread || owner.layout == Layout::OneLine || (owner.count == 1 && owner.kind == Kind::Object);
  onLineOfName ? void(buffer_ += ' ') : NewLine(Indentation(static_cast<std::size_t>(&owner - open_.data())) + 1);
}

void TextWriter::NewLine(std::size_t indentation) const {
  buffer_.append(apart_ ? 2 : 1, '\n');
  buffer_.append(indentation, ' ');
  apart_ = false;
}

void TextWriter::Flush() const {
  out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  if (!out_) { throw StoreError("cannot be written"); }
  buffer_.clear();
}

}  // namespace gattr
