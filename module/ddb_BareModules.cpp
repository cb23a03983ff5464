#include "module/ddb_BareModules.h"

#include "framework/ddb_Module.h"

namespace {
template <unsigned Number> struct Module;
}

#define DDB_BARE_MODULE(prefix, name, number)                       \
  void name##_initialize(int& count) {                              \
    ddb_EnterModule<Module<number>>(count, number, #prefix, [] {}); \
  }                                                                 \
  void name##_finalize(int& count) {                                \
    ddb_LeaveModule<Module<number>>(count, number, [] {});          \
  }
#include "module/ddb_BareModules.def"
#undef DDB_BARE_MODULE
