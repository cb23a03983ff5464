#pragma once

#include <iosfwd>
#include <string>

#include "framework/ddr_Model.h"
#include "text/Progress.h"

namespace gattr {

/// Writes everything that a person asks of a model as one page that stands alone: the table of histories with filters, the values of each
/// cell and the step that set them, values over steps as a plot, the steps with their parameters, what Check finds. The page asks nothing
/// of any network and says so (its content security policy allows its own script and style, by their hashes, and nothing else); without
/// script it shows steps, findings and histories as text. Only what a record says of its own is written, names and values once each; what
/// is carried the page works out. Linear in the records; the text of the histories is a sign for each attribute and step. \p progress
/// counts attributes, twice each; where it does not want to go on, Cancelled is raised.
void WriteHtmlReport(std::ostream& out, ddr_Model const& model, Progress const& progress = {});

/// The same into a file, which is written whole or stays as it was. Raises a StoreError with its name.
void WriteHtmlReportFile(ddr_Model const& model, std::string const& path, Progress const& progress = {});

/// How every such page begins.
extern char const kHtmlReportMark[];

}  // namespace gattr
