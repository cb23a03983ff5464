#include "module/kfd/kfdC_Field.h"

#include "framework/ddb_Module.h"
#include "framework/ddr_Model.h"

kfdC_Field::kfdC_Field() = default;
kfdC_Field::kfdC_Field(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

namespace {
struct Module;
}  // namespace

void kfdC_initialize(int& count) {
  ddb_EnterModule<Module>(count, kfdC_moduleNumber, "kfd", [] {
    mdl_ExtensionSubject::RegisterExtension(ddr_Model::fieldsCmd(), cow_Handle<kfdC_FieldMap>::Make());
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kfd/Types.def"
  });
}

void kfdC_finalize(int& count) {
  ddb_LeaveModule<Module>(count, kfdC_moduleNumber, [] { mdl_ExtensionSubject::UnregisterExtension(ddr_Model::fieldsCmd()); });
}
