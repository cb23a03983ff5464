#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_Value.h"
#include "text/Progress.h"

namespace gattr {

/// The data of a report's page, as JSON that may stand in a script element: histories as runs, what records say of their own, the
/// curves of amplitudes as points. Names are shown (Shown), so that none acts in the page. \p tick counts attributes.
void WriteReportData(std::ostream& out, ddr_Model const& model, Ticker& tick);

/// A value as a person reads it: lists and objects without brackets, "definition THINNING, scaleFactor 0.9".
std::string ReadableValue(cls_Value const& value);

}  // namespace gattr
