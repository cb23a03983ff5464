#include "platform/ModelServices/ZLKDDB_ROM.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKDDB_ROM_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
}

void ZLKDDB_ROM_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
}
