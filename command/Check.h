#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/Refusal.h"
#include "framework/ddr_Model.h"
#include "platform/CoreUtils/ddb_Export.h"
#include "text/Progress.h"

namespace gattr {

/// What a finding is to somebody who wants to solve the model.
enum class Severity {
  Error,    ///< stands in the way
  Warning,  ///< is allowed, and hardly what was meant
  Note,     ///< worth knowing
};
DDB_API std::string_view SeverityText(Severity severity);

/// What may be found, by name.
enum class FindingKind {
#define FINDING(number, name, severity, meaning) name,
#include "command/Findings.def"
};
/// A row of the table of findings.
struct FindingRow {
  std::string id;  ///< "GA001": never changes
  Severity severity;
  std::string_view meaning;
};
/// The table, in the order of FindingKind.
DDB_API std::vector<FindingRow> const& FindingRows();

/// Something that a person should know of a model.
struct Finding {
  FindingKind found;
  std::string kind;         ///< of the object: "boundaryCondition", "step"
  std::string name;         ///< of the object
  std::string step;         ///< the first step in which it shows; empty when it is not of a step
  std::string member;       ///< the one at fault; empty where it is not one
  Refusal refusal;          ///< with the number of the module's table where it has one
  std::string detail;       ///< what the refusal's text does not say: which amplitude, why a step may not follow
  std::string hint;         ///< what would do
  bool suppressed = false;  ///< the object is suppressed: the finding stands in the way of resuming it
  std::size_t line = 0;     ///< of the journal, from 1: what made the record at fault (JournalCheck); 0 where no journal is known

  FindingRow const& Row() const { return FindingRows()[static_cast<std::size_t>(found)]; }
};

/// Which findings are told, by their identifiers.
struct FindingChoice {
  std::vector<std::string> disable;  ///< warnings and notes that are left out
  std::vector<std::string> only;     ///< where it holds any, nothing else is told

  /// Refuses an identifier that there is not, with the nearest one, and an error that is to be left out (omu_ValueErrorException).
  DDB_API void AssertValid() const;
  /// Whether it takes findings of that row.
  DDB_API bool Takes(FindingRow const& row) const;
};

/// What is wrong in a model that is to be solved: procedures that may not follow each other, step parameters, objects that others refer
/// to by name, attributes that are not valid in their steps (suppressed ones as if they were resumed) or do not go with the model's
/// space and connectors, names that the model does not have, and histories that are not what their steps give; and what is allowed
/// and hardly meant. Steps first, in order, then what is referred to by name, then family by family the attributes in the order of
/// their names, what they do to each other, and the regions that deleted steps have left without an owner; load cases, steps in which
/// nothing holds, and what nobody uses. The model is not changed. Linear in the records. \p progress counts attributes; where it does not
/// want to go on, Cancelled is raised.
DDB_API std::vector<Finding> Check(ddr_Model const& model, Progress const& progress = {});
/// The same, as far as \p choice takes it; refused as that does.
DDB_API std::vector<Finding> Check(ddr_Model const& model, FindingChoice const& choice, Progress const& progress = {});

}  // namespace gattr
