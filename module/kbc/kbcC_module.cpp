#include "module/kbc/kbcC_module.h"

#include "framework/ddr_Shortcut.h"
#include "module/kbc/kbcC_BC.h"
#include "module/kpr/family/ddb_FamilyModule.h"

void kbcC_initialize(int& count) {
  ddb_EnterFamily<kbcC_BC>(count, kbcC_moduleNumber, ddr_Model::bcCmd(), kbcC_Errors(), [] {
    kbcC_DescribeTypes();
#define DDB_CLASS(number, Class)
#define DDB_INSTANCE(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kbc/Types.def"
  });
}

void kbcC_finalize(int& count) { ddb_LeaveFamily<kbcC_BC>(count, kbcC_moduleNumber, ddr_Model::bcCmd()); }
