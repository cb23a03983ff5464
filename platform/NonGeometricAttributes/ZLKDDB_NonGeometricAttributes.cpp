#include "platform/NonGeometricAttributes/ZLKDDB_NonGeometricAttributes.h"

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CoreUtils/ddb_CallCounter.h"
#include "platform/NonGeometricAttributes/ampC_Amplitude.h"
#include "platform/NonGeometricAttributes/conC_Connector.h"

namespace {
struct Library;
}

void ZLKDDB_NonGeometricAttributes_initialize(int& count) {
  ddb_Start<Library>(count, [] {
    cls_MetadataRegistrar::initClassMetadata(&ampC_Amplitude::InitializeMetadata, ddb_metadataFlag);
    cls_MetadataRegistrar::initClassMetadata(&conC_Connector::InitializeMetadata, ddb_metadataFlag);
  });
}
void ZLKDDB_NonGeometricAttributes_finalize(int& count) {
  ddb_Stop<Library>(count, [] { cls_MetadataRegistrar::finalizeModule(ampC_Amplitude::TypeId() >> 16); });
}
