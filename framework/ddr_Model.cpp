#include "framework/ddr_Model.h"

ddr_Model::ddr_Model() : name_("Model-1") {
  for (auto const& [member, prototype] : mdl_ExtensionSubject::Registered()) { extensions_.Insert(cow_String(member), prototype); }
}

ddr_Model::ddr_Model(cls_ReadVisitor const& in) : ddr_Model() {
  for (cls_MemberRow const& row : cls_RowsOf<ddr_Model>()) {
    if (row.name != spaceCmd().View() || in.Has(row.name)) { row.Read(in, static_cast<void*>(this)); }
  }
}

mdl_Extension const* ddr_Model::ConstExtension(std::string_view member) const {
  auto const* found = extensions_.ConstFind(member);
  return found == nullptr ? nullptr : found->ConstGet();
}

mdl_Extension* ddr_Model::Extension(std::string_view member) {
  auto* found = extensions_.Get(member);
  return found == nullptr ? nullptr : &found->Get();
}

void ddr_Model::SetExtension(std::string_view member, cow_Handle<mdl_Extension> extension) {
  extensions_.Insert(cow_String(member), std::move(extension));
}
