#pragma once

#include <string_view>

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CoreUtils/ddb_CallCounter.h"

/// Start of a module: for the first call only, adds one to the caller's count, enters the module in the component table
/// and runs \p start, which registers extensions, refusals and metadata. \p Owner is a type of the module's own.
template <class Owner, class Start> void ddb_EnterModule(int& count, unsigned number, std::string_view prefix, Start&& start) {
  ddb_Start<Owner>(count, [&] {
    cls_ComponentTable::Enter(number, prefix);
    start();
  });
}

/// Stop of a module, mirroring the start: the last call runs \p stop and takes everything back.
template <class Owner, class Stop> void ddb_LeaveModule(int& count, unsigned number, Stop&& stop) {
  ddb_Stop<Owner>(count, [&] {
    stop();
    cls_MetadataRegistrar::finalizeModule(number);
    cls_ComponentTable::Leave(number);
  });
}
