#include "platform/BasicUtils/ZLKUTI_BasicUtils.h"

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/ddb_CallCounter.h"

namespace {
struct Library;
}

void ZLKUTI_BasicUtils_initialize(int& count) {
  ddb_Start<Library>(count, [] {});
}
void ZLKUTI_BasicUtils_finalize(int& count) {
  ddb_Stop<Library>(count, [] {
    thr_GlobalSingleton<nex_Catalogues>::Finalize();
    thr_GlobalSingleton<cls_ClassRegistrar>::Finalize();
  });
}
