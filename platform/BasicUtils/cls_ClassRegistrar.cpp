#include "platform/BasicUtils/cls_ClassRegistrar.h"

#include <algorithm>

#include "platform/BasicUtils/nex_Exception.h"

cls_MemberInfo& cls_ClassMetadata::AddMember(std::string_view member, cls_MemberText const& text) {
  cls_MemberInfo& info = members.emplace_back();
  info.name = member;
  info.meaning = text.meaning;
  info.unit = text.unit;
  return info;
}

cls_MemberInfo const* cls_ClassMetadata::Find(std::string_view member) const {
  auto const at = std::ranges::find(members, member, &cls_MemberInfo::name);
  return at == members.end() ? nullptr : &*at;
}

cls_ClassMetadata& cls_ClassRegistrar::AddClass(std::string_view name, unsigned typeId) {
  auto const [at, added] = classes_.try_emplace(typeId);
  if (!added) {
    nex_Exception::Throw(nex_TextException("The type identity of " + std::string(name) + " belongs to " + at->second.name + "."),
                         "platform/BasicUtils/cls_ClassRegistrar", __LINE__);
  }
  at->second.name = name;
  at->second.typeId = typeId;
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
