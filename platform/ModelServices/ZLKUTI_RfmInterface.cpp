#include "platform/ModelServices/ZLKUTI_RfmInterface.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
struct Library;
}

void ZLKUTI_RfmInterface_initialize(int& count) {
  ddb_Start<Library>(count, [] {});
}
void ZLKUTI_RfmInterface_finalize(int& count) {
  ddb_Stop<Library>(count, [] {});
}
