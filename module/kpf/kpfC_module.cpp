#include "module/kpf/kpfC_module.h"

#include "framework/ddr_Shortcut.h"
#include "module/kpf/kpfC_Field.h"
#include "module/kpf/kpfC_ResultsFiles.h"
#include "module/kpr/family/ddb_FamilyModule.h"

void kpfC_initialize(int& count) {
  ddb_EnterFamily<kpfC_Field>(count, kpfC_moduleNumber, kpfC_Field::predefinedFieldsCmd(), kpfC_Errors(), [] {
    kpfC_DescribeTypes();
#define DDB_CLASS(number, Class)
#define DDB_INSTANCE(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kpf/Types.def"
  });
}

void kpfC_finalize(int& count) {
  int const before = count;
  ddb_LeaveFamily<kpfC_Field>(count, kpfC_moduleNumber, kpfC_Field::predefinedFieldsCmd());
  if (count != before) { kpfC_ResultsFiles::Set(nullptr); }
}
