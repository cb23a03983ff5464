#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "command/Words.h"
#include "framework/ddr_Model.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"
#include "report/Display.h"

namespace gattr {

/// How a status is shown.
Style StyleOf(mdl_PropagationStatusEnm status);

/// The histories of a model as a table: a row per attribute, a column per step.
struct HistoryTable {
  struct Step {
    std::string name;
    std::string procedure;  ///< its label, "STATIC_GENERAL"; "INITIAL" for the initial step
    bool perturbation = false;
  };
  struct Row {
    std::string name;
    std::string kind;  ///< "boundaryCondition"
    std::string type;  ///< construction command, "DisplacementBC"
    bool suppressed = false;
    std::vector<std::uint8_t> statuses;  ///< numbers, one per step of the table

    mdl_PropagationStatusEnm Status(std::size_t column) const { return static_cast<mdl_PropagationStatusEnm>(statuses[column]); }
  };

  std::string model;
  ddr_Model::SpaceEnm space = ddr_Model::THREE_D;
  std::vector<Step> steps;
  std::vector<Row> rows;
};

/// What a table shows, by exact names; everything where a list is empty.
struct HistoryFilter {
  std::vector<std::string> attributes;
  std::vector<std::string> steps;
};

/// Attributes by kind and name, steps in their order. Linear in the records shown.
HistoryTable HistoriesOf(ddr_Model const& model, HistoryFilter const& filter = {});

/// The names that a filter can give.
std::vector<std::string> AttributeNames(ddr_Model const& model);
std::vector<std::string> StepNames(ddr_Model const& model);

}  // namespace gattr
