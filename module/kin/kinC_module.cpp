#include "module/kin/kinC_module.h"

#include "framework/ddr_Shortcut.h"
#include "module/kin/kinC_Interaction.h"
#include "module/kin/kinC_Properties.h"
#include "module/kpr/family/ddb_FamilyModule.h"

void kinC_initialize(int& count) {
  ddb_EnterFamily<kinC_Interaction>(count, kinC_moduleNumber, kinC_Interaction::interactionRepositoryCmd(), kinC_Errors(), [] {
    mdl_ExtensionSubject::RegisterExtension(kinC_InteractionProperty::interactionPropertiesCmd(),
                                            cow_Handle<kinC_InteractionPropertyMap>::Make());
    mdl_ExtensionSubject::RegisterExtension(kinC_ContactControls::contactControlsCmd(), cow_Handle<kinC_ContactControlsMap>::Make());
    kinC_DescribeTypes();
#define DDB_CLASS(number, Class)
#define DDB_INSTANCE(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kin/Types.def"
  });
}

void kinC_finalize(int& count) {
  ddb_LeaveFamily<kinC_Interaction>(count, kinC_moduleNumber, kinC_Interaction::interactionRepositoryCmd(),
                                    kinC_InteractionProperty::interactionPropertiesCmd(), kinC_ContactControls::contactControlsCmd());
}
