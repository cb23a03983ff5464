#pragma once

#include "platform/CoreUtils/ddb_Export.h"

/// A number larger than every one given before in this process, whichever thread asked: it orders changes in time
/// without a clock. The first is 1, so that 0 can mean "never".
DDB_API unsigned long long omi_gettimecounter();
