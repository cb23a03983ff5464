#include "platform/CoreGeometry/ZLKDDB_CoreGeometry.h"

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKDDB_CoreGeometry_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
  cls_MetadataRegistrar::initClassMetadata(&rgnC_Region::InitializeMetadata, 7);
  cls_MetadataRegistrar::initClassMetadata(&dtmC_DatumRef::InitializeMetadata, 7);
}

void ZLKDDB_CoreGeometry_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
  cls_MetadataRegistrar::finalizeModule(rgnC_Region::TypeId() >> 16);
  cls_MetadataRegistrar::finalizeModule(dtmC_DatumRef::TypeId() >> 16);
}
