#include "platform/ModelServices/ZLKUTI_RfmInterface.h"

#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKUTI_RfmInterface_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
}

void ZLKUTI_RfmInterface_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
}
