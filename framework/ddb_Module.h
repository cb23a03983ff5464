#pragma once

#include <string_view>

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CoreUtils/ddb_CallCounter.h"

/// Flag with which a module hands over its metadata functions: describe, make and destroy.
inline constexpr int ddb_metadataFlag = 7;

/// Start of a module: for the first call only, adds one to the caller's count, enters the module in the component table
/// and runs \p start, which registers extensions, refusals and metadata.
template <class Start> void ddb_EnterModule(ddb_CallCounter& calls, int& count, unsigned number, std::string_view prefix, Start&& start) {
  if (!calls.Enter()) { return; }
  ++count;
  cls_ComponentTable::Enter(number, prefix);
  start();
}

/// Stop of a module, mirroring the start: the last call runs \p stop and takes everything back.
template <class Stop> void ddb_LeaveModule(ddb_CallCounter& calls, int& count, unsigned number, Stop&& stop) {
  if (!calls.Leave()) { return; }
  --count;
  stop();
  cls_MetadataRegistrar::finalizeModule(number);
  cls_ComponentTable::Leave(number);
}
