#include "module/kin/kinC_module.h"

#include "framework/ddr_Shortcut.h"
#include "module/kin/kinC_Interaction.h"
#include "module/kpr/family/ddb_FamilyModule.h"

void kinC_initialize(int& count) {
  ddb_EnterFamily<kinC_Interaction>(count, kinC_moduleNumber, kinC_Interaction::interactionRepositoryCmd(), kinC_Errors(), [] {
    kinC_DescribeTypes();
#define DDB_CLASS(number, Class)
#define DDB_INSTANCE(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kin/Types.def"
  });
}

void kinC_finalize(int& count) {
  ddb_LeaveFamily<kinC_Interaction>(count, kinC_moduleNumber, kinC_Interaction::interactionRepositoryCmd());
}
