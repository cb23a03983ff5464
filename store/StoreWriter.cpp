#include "store/StoreWriter.h"

#include <cmath>
#include <utility>

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "store/StoreError.h"
#include "text/Text.h"

namespace gattr {

StoreWriter::StoreWriter(ModelSteps const& steps, std::string_view where) : steps_(steps), where_(where) { Begin(Kind::Object, {}); }

std::string_view StoreWriter::Named(std::string_view member) const {
  Level& level = levels_.back();
  if (level.kind == Kind::Map && !IsUtf8(member)) { Refuse(member, "a name in UTF-8"); }
  ++level.count;
  return member;
}

void StoreWriter::End() const {
  Close(levels_.back().kind);
  levels_.pop_back();
}

void StoreWriter::WriteInteger(std::string_view member, long long value) const { PutInteger(Named(member), value); }

void StoreWriter::WriteReal(std::string_view member, double value) const {
  if (!std::isfinite(value)) { Refuse(member, "a finite number"); }
  PutReal(Named(member), value);
}

void StoreWriter::WriteText(std::string_view member, std::string_view value) const {
  if (!IsUtf8(value)) { Refuse(member, "a text in UTF-8"); }
  PutText(Named(member), value);
}

void StoreWriter::WriteNull(std::string_view member) const {
  PutShared(member, nullptr);
  PutNull(Named(member));
}

void StoreWriter::WriteObject(std::string_view member, cls_Object const& object) const {
  Named(member);
  if (PutShared(member, &object)) { return; }
  OpenObject(member, ClassName(member, object));
  Begin(Kind::Object, member);
  bool const before = std::exchange(inHome_, inHome_ || steps_.IsHome(object));
  object.DBWrite(*this);
  inHome_ = before;
  End();
}

void StoreWriter::WriteReference(std::string_view member, std::string_view name, cls_Object const& object) const {
  if (!RefersToSteps() || !steps_.IsStep(name, object)) { return WriteObject(member, object); }
  PutText(Named(member), name);
}

void StoreWriter::WriteNested(std::string_view member, cls_Object const& object) const {
  OpenObject(Named(member), {});
  Begin(Kind::Object, member);
  object.DBWrite(*this);
  End();
}

void StoreWriter::StartList(std::string_view member, std::size_t count) const {
  OpenList(Named(member), count);
  Begin(Kind::List, member);
}

bool StoreWriter::StartMap(std::string_view member, std::size_t /*count*/) const {
  if (!OpenMap(Named(member))) { return false; }
  Begin(Kind::Map, member);
  return true;
}

std::string const& StoreWriter::ClassName(std::string_view member, cls_Object const& object) const {
  cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(object.DynTypeId());
  if (type == nullptr) { Refuse(member, "an object of a class that a module has described"); }
  return type->name;
}

void StoreWriter::Refuse(std::string_view member, std::string_view expected) const {
  std::string path = where_;
  auto const join = [&path](std::string_view name) {
    if (!path.empty() && !path.ends_with(": ") && !name.empty()) { path += " / "; }
    path += name;
  };
  for (std::size_t i = 1; i < levels_.size(); ++i) {
    Level const& owner = levels_[i - 1];
    if (owner.kind == Kind::List) {
      path += "[" + std::to_string(owner.count - 1) + "]";
    } else if (levels_[i].kind != Kind::Map) {
      join(levels_[i].name);
    }
  }
  levels_.back().kind == Kind::List ? void(path += "[" + std::to_string(levels_.back().count) + "]") : join(member);
  throw StoreError(path + ": expected " + std::string(expected));
}

}  // namespace gattr
