#include "platform/ModelServices/ZLKDDB_DiagnosticExtractor.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
struct Library;
}

void ZLKDDB_DiagnosticExtractor_initialize(int& count) {
  ddb_Start<Library>(count, [] {});
}
void ZLKDDB_DiagnosticExtractor_finalize(int& count) {
  ddb_Stop<Library>(count, [] {});
}
