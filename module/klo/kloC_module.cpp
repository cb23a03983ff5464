#include "module/klo/kloC_module.h"

#include "framework/ddr_Shortcut.h"
#include "module/klo/kloC_Load.h"
#include "module/kpr/family/ddb_FamilyModule.h"

void kloC_initialize(int& count) {
  ddb_EnterFamily<kloC_Load>(count, kloC_moduleNumber, kloC_Load::loadRepositoryCmd(), kloC_Errors(), [] {
    kloC_DescribeTypes();
#define DDB_CLASS(number, Class)
#define DDB_INSTANCE(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/klo/Types.def"
  });
}

void kloC_finalize(int& count) { ddb_LeaveFamily<kloC_Load>(count, kloC_moduleNumber, kloC_Load::loadRepositoryCmd()); }
