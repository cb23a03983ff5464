#pragma once

#include "store/ModelTables.h"
#include "store/RowReader.h"

namespace gattr {

/// The rows of a model file of the first version, as those of the present one: its data were bytes, each value with the number of
/// its name. Raises a StoreError where they are damaged, or become more than kMostUnpacked and that many times as large.
ModelRows ReadFirstVersion(ModelTables& tables, Database const& database);

}  // namespace gattr
