#include "platform/CoreUtils/ZLKUTI_CoreUtils.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
struct Library;
}

void ZLKUTI_CoreUtils_initialize(int& count) {
  ddb_Start<Library>(count, [] {});
}
void ZLKUTI_CoreUtils_finalize(int& count) {
  ddb_Stop<Library>(count, [] {});
}
