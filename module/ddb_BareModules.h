#pragma once

#include "platform/CoreUtils/ddb_Export.h"

// Counted start and stop of every module of ddb_BareModules.def: kseC_initialize(int&), kseC_finalize(int&) and so on.
#define DDB_BARE_MODULE(prefix, name, number) \
  DDB_API void name##_initialize(int& count); \
  DDB_API void name##_finalize(int& count);
#include "module/ddb_BareModules.def"
#undef DDB_BARE_MODULE
