#include "platform/CoreGeometry/ZLKDDB_CoreGeometry.h"

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CoreGeometry/dtmC_Datum.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
struct Library;
}

void ZLKDDB_CoreGeometry_initialize(int& count) {
  ddb_Start<Library>(count, [] {
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "platform/CoreGeometry/Types.def"
  });
}
void ZLKDDB_CoreGeometry_finalize(int& count) {
  ddb_Stop<Library>(count, [] {
    cls_MetadataRegistrar::finalizeModule(rgnC_Region::TypeId() >> 16);
    cls_MetadataRegistrar::finalizeModule(dtmC_DatumRef::TypeId() >> 16);
  });
}
