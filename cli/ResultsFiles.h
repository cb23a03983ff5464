#pragma once

#include <string>

namespace gattr::cli {

/// Has fields that are read from results files ask the descriptions in \p folder what those hold; nothing is asked where it is empty. A
/// description is a JSON file beside the results file, "job.odb.json" of "job.odb". Refuses a folder that there is not.
void UseResults(std::string const& folder);

inline constexpr char const* kResultsHelp = "the folder of results files, each with a description beside it, that fields are read from";

}  // namespace gattr::cli
