#pragma once

#include <optional>
#include <string>
#include <vector>

#include "module/kor/korC_OdbRequestTable.h"

namespace gattr {

/// A variable that output requests may ask for, as a person reads it.
struct VariableInfo {
  std::string name, description, category, location, output;  ///< the texts of category, place and class of output
  std::vector<std::string> components;
  std::string parent;                   ///< of which it is worked out; empty for one of its own
  std::vector<std::string> channels;    ///< "field", "history"
  std::vector<std::string> procedures;  ///< labels of those in whose steps it may be requested
  bool preselected = false;             ///< whether PRESELECT asks for it, in the procedure and channel that were asked for
};

/// Which of them.
struct VariableQuery {
  std::optional<unsigned> procedureType;
  std::optional<korC_OdbChannel::TypeEnm> channel;
  std::optional<korC_OdbRequestSpec::LabelEnm> category;
};

/// The variables that \p query leaves, in the order of the table.
std::vector<VariableInfo> Variables(VariableQuery const& query);
/// The categories as lists show them, in their order.
std::vector<std::string> VariableCategories();
/// The labels of the procedures, in the order in which they are offered.
std::vector<std::string> ProcedureLabels();

}  // namespace gattr
