#include "framework/ddr_ModelMembers.h"

#include "framework/ddb_Module.h"

void ddr_RegisterModelMembers() {
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::regionsCmd(), cow_Handle<ddr_RegionMap>::Make());
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::amplitudesCmd(), cow_Handle<ddr_AmplitudeMap>::Make());
  mdl_ExtensionSubject::RegisterExtension(ddr_Model::connectorsCmd(), cow_Handle<ddr_ConnectorMap>::Make());
  cls_MetadataRegistrar::initClassMetadata(&ddr_Model::InitializeMetadata, ddb_metadataFlag);
  cls_MetadataRegistrar::initClassMetadata(&ddr_RegionMap::InitializeMetadata, ddb_metadataFlag);
  cls_MetadataRegistrar::initClassMetadata(&ddr_AmplitudeMap::InitializeMetadata, ddb_metadataFlag);
  cls_MetadataRegistrar::initClassMetadata(&ddr_ConnectorMap::InitializeMetadata, ddb_metadataFlag);
}

void ddr_UnregisterModelMembers() {
  mdl_ExtensionSubject::UnregisterExtension(ddr_Model::regionsCmd());
  mdl_ExtensionSubject::UnregisterExtension(ddr_Model::amplitudesCmd());
  mdl_ExtensionSubject::UnregisterExtension(ddr_Model::connectorsCmd());
  cls_MetadataRegistrar::finalizeModule(ddr_Model::TypeId() >> 16);
}
