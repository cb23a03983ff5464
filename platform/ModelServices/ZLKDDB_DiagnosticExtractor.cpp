#include "platform/ModelServices/ZLKDDB_DiagnosticExtractor.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKDDB_DiagnosticExtractor_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
}

void ZLKDDB_DiagnosticExtractor_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
}
