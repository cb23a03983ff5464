#include "platform/NonGeometricAttributes/ZLKDDB_NonGeometricAttributes.h"

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CoreUtils/ddb_CallCounter.h"
#include "platform/NonGeometricAttributes/ampC_Curves.h"
#include "platform/NonGeometricAttributes/conC_Connector.h"
#include "platform/NonGeometricAttributes/lcsC_LoadCase.h"

namespace {
struct Library;
}

void ZLKDDB_NonGeometricAttributes_initialize(int& count) {
  ddb_Start<Library>(count, [] {
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "platform/NonGeometricAttributes/Types.def"
  });
}
void ZLKDDB_NonGeometricAttributes_finalize(int& count) {
  ddb_Stop<Library>(count, [] { cls_MetadataRegistrar::finalizeModule(ampC_Amplitude::TypeId() >> 16); });
}
