#include "platform/ModelServices/ZLKDDB_ROM.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
struct Library;
}

void ZLKDDB_ROM_initialize(int& count) {
  ddb_Start<Library>(count, [] {});
}
void ZLKDDB_ROM_finalize(int& count) {
  ddb_Stop<Library>(count, [] {});
}
