#include "platform/BasicUtils/cls_ClassRegistrar.h"

#include <algorithm>

#include "platform/BasicUtils/nex_Exception.h"

namespace {

[[noreturn]] void Refuse(std::string const& text, int line) {
  nex_Exception::Throw(nex_TextException(text), "platform/BasicUtils/cls_ClassRegistrar", line);
}

cls_MemberInfo InfoOf(cls_MemberRow const& row) {
  cls_MemberInfo info;
  info.name = row.name;
  info.meaning = row.text.meaning;
  info.unit = row.text.unit;
  info.command = row.text.command.empty() ? row.name : row.text.command;
  info.settable = row.text.settable;
  info.refers = row.text.refers;
  info.again = row.again;
  row.ops->describe(info);
  if (!row.text.unset.empty()) { info.permissible.emplace_back(row.text.unset); }
  return info;
}

}  // namespace

cow_Handle<cls_Object> cls_ClassMetadata::Read(cls_ReadVisitor const& in) const {
  std::unique_ptr<cls_Object> object = construct != nullptr ? construct(in) : make();
  if (construct == nullptr) { cls_ReadRows(object->MemberRows(), object.get(), in); }
  object->Restored(in);
  return cow_Handle<cls_Object>(std::move(object));
}

cls_MemberInfo const* cls_ClassMetadata::Find(std::string_view member) const {
  auto const at = std::ranges::find(members, member, &cls_MemberInfo::name);
  return at == members.end() ? nullptr : &*at;
}

cls_ClassMetadata& cls_ClassRegistrar::AddClass(std::string_view name, unsigned typeId, cls_MemberRows rows) {
  cls_ClassMetadata info;
  info.name = name;
  info.typeId = typeId;
  for (cls_MemberRow const& row : rows) {
    if (info.Find(row.name) != nullptr) {
      Refuse("The class " + info.name + " lists the member \"" + std::string(row.name) + "\" twice.", __LINE__);
    }
    info.members.push_back(InfoOf(row));
  }
  auto const [at, added] = classes_.try_emplace(typeId, std::move(info));
  if (!added) { Refuse("The type identity of " + std::string(name) + " belongs to " + at->second.name + ".", __LINE__); }
  return at->second;
}

cls_ClassMetadata const* cls_ClassRegistrar::Find(unsigned typeId) const {
  auto const at = classes_.find(typeId);
  return at == classes_.end() ? nullptr : &at->second;
}

cls_ClassMetadata const* cls_ClassRegistrar::Find(std::string_view name) const {
  auto const at = std::ranges::find_if(classes_, [&](auto const& row) { return row.second.name == name; });
  return at == classes_.end() ? nullptr : &at->second;
}

void cls_ClassRegistrar::RemoveModule(unsigned module) {
  std::erase_if(classes_, [&](auto const& row) { return row.first >> 16 == module; });
}

void cls_MetadataRegistrar::initClassMetadata(void (*initialize)(cls_ClassRegistrar&), int flag) {
  if (flag == ddb_metadataFlag) { initialize(Registrar()); }
}

void cls_MetadataRegistrar::finalizeModule(unsigned module) { Registrar().RemoveModule(module); }

namespace {
struct ComponentTable {
  std::map<unsigned, std::string> modules;
};
std::map<unsigned, std::string>& Components() { return thr_GlobalSingleton<ComponentTable>::Instance().modules; }
}  // namespace

void cls_ComponentTable::Enter(unsigned module, std::string_view prefix) { Components().insert_or_assign(module, std::string(prefix)); }
void cls_ComponentTable::Leave(unsigned module) { Components().erase(module); }
bool cls_ComponentTable::IsEntered(unsigned module) { return Components().contains(module); }
std::map<unsigned, std::string> const& cls_ComponentTable::Modules() { return Components(); }
