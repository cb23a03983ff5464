#include "platform/CaeUtils/ZLKUTI_CaeUtils.h"

#include "platform/CaeUtils/omu_ChangeHistory.h"
#include "platform/CoreUtils/ddb_CallCounter.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace {
struct Library;
}

void ZLKUTI_CaeUtils_initialize(int& count) {
  // Made now: where memory runs out later, the C library would end the program over a thread's first object.
  ddb_Start<Library>(count, [] { thr_ThreadSingleton<omu_ChangeHistory>::Instance(); });
}
void ZLKUTI_CaeUtils_finalize(int& count) {
  ddb_Stop<Library>(count, [] { thr_ThreadSingleton<omu_ChangeHistory>::Finalize(); });
}
