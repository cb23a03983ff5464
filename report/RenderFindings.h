#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>

#include "command/Check.h"

/// Findings in the forms that people and programs read.
namespace gattr {

enum class FindingsFormat {
  AsText,   ///< a table, "nothing found" where there is nothing
  AsJson,   ///< a list of objects
  AsSarif,  ///< SARIF 2.1.0: one run, a rule for each identifier that is there, a result for each finding
  AsJunit,  ///< JUnit XML: a case for each identifier, failed by its findings where they count
};

struct FindingsStyle {
  std::string version = {};   ///< of the program, for SARIF
  std::string model = {};     ///< the file that was checked; empty where there is none
  std::string journal = {};   ///< the journal whose lines findings name; empty where there is none
  bool warningsFail = false;  ///< whether warnings count as failures
  std::size_t width = 0;      ///< of the table, 0: unlimited
  bool color = false;
};

void RenderFindings(std::ostream& out, std::span<Finding const> findings, FindingsFormat format, FindingsStyle const& style);

/// Whether one of them is an error, or a warning where those count.
bool AnyFails(std::span<Finding const> findings, bool warningsFail);

}  // namespace gattr
