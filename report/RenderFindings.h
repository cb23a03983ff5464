#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>

#include "command/Check.h"
#include "text/Json.h"

/// Findings in the forms that people and programs read.
namespace gattr {

/// How findings are told.
struct FindingsStyle {
  std::string version = {};   ///< of the program, for SARIF
  std::string model = {};     ///< the file that was checked; empty where there is none
  std::string journal = {};   ///< the journal whose lines findings name; empty where there is none
  bool warningsFail = false;  ///< whether warnings count as failures
  std::size_t width = 0;      ///< of the table, 0: unlimited
  bool color = false;
};

/// 'boundaryCondition "Two" in step "A": It prescribes ...', with what would do.
std::string FindingText(Finding const& finding);
Json ToJson(Finding const& finding);

/// A table; "nothing found" where there is nothing.
void RenderText(std::ostream& out, std::span<Finding const> findings, FindingsStyle const& style);
/// A list of objects.
void RenderJson(std::ostream& out, std::span<Finding const> findings);
/// SARIF 2.1.0: one run, a rule for each identifier that is there, a result for each finding.
void RenderSarif(std::ostream& out, std::span<Finding const> findings, FindingsStyle const& style);
/// JUnit XML: a case for each identifier, failed by its findings where they count.
void RenderJunit(std::ostream& out, std::span<Finding const> findings, FindingsStyle const& style);

/// Whether one of them is an error, or a warning where those count.
bool AnyFails(std::span<Finding const> findings, bool warningsFail);

}  // namespace gattr
