#include "platform/NonGeometricAttributes/ZLKDDB_NonGeometricAttributes.h"

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CoreUtils/ddb_CallCounter.h"
#include "platform/NonGeometricAttributes/ampC_Amplitude.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKDDB_NonGeometricAttributes_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
  cls_MetadataRegistrar::initClassMetadata(&ampC_Amplitude::InitializeMetadata, 7);
}

void ZLKDDB_NonGeometricAttributes_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
  cls_MetadataRegistrar::finalizeModule(ampC_Amplitude::TypeId() >> 16);
}
