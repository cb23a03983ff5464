#include "platform/BasicUtils/ZLKUTI_BasicUtils.h"

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKUTI_BasicUtils_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
}

void ZLKUTI_BasicUtils_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
  thr_GlobalSingleton<nex_Catalogues>::Finalize();
  thr_GlobalSingleton<cls_ClassRegistrar>::Finalize();
}
