#include "platform/CaeUtils/ZLKUTI_CaeUtils.h"

#include "platform/CaeUtils/omu_ChangeHistory.h"
#include "platform/CoreUtils/ddb_CallCounter.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace {
ddb_CallCounter& Calls() {
  static ddb_CallCounter calls;
  return calls;
}
}  // namespace

void ZLKUTI_CaeUtils_initialize(int& count) {
  if (!Calls().Enter()) { return; }
  ++count;
}

void ZLKUTI_CaeUtils_finalize(int& count) {
  if (!Calls().Leave()) { return; }
  --count;
  thr_ThreadSingleton<omu_ChangeHistory>::Finalize();
}
