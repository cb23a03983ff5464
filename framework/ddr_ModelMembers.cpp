#include "framework/ddr_ModelMembers.h"

#include "framework/ddb_Module.h"

void ddr_RegisterModelMembers() {
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::regionsCmd(), cow_Handle<ddr_RegionMap>::Make());
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::amplitudesCmd(), cow_Handle<ddr_AmplitudeMap>::Make());
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::connectorsCmd(), cow_Handle<ddr_ConnectorMap>::Make());
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::coordinateSystemsCmd(), cow_Handle<ddr_DatumMap>::Make());
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::axesCmd(), cow_Handle<ddr_DatumMap>::Make());
  mdl_ExtensionSubject::RegisterExtension(lcsC_LoadCase::repositoryCmd(), cow_Handle<ddr_LoadCaseMap>::Make());
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "framework/Types.def"
}

void ddr_UnregisterModelMembers() {
  for (auto const& member : {ddr_Model::regionsCmd(), ddr_Model::amplitudesCmd(), ddr_Model::connectorsCmd(),
                             ddr_Model::coordinateSystemsCmd(), ddr_Model::axesCmd(), lcsC_LoadCase::repositoryCmd()}) {
    mdl_ExtensionSubject::UnregisterExtension(member);
  }
  cls_MetadataRegistrar::finalizeModule(mdl_moduleNumber);
}
