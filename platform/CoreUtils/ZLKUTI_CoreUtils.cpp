#include "platform/CoreUtils/ZLKUTI_CoreUtils.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKUTI_CoreUtils_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
}

void ZLKUTI_CoreUtils_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
}
