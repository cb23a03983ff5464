#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"
#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// The histories of a model as a table: a row per attribute, a column per step.
struct HistoryTable {
  struct Step {
    std::string name;
    std::string procedure;  ///< its label, "STATIC_GENERAL"; "INITIAL" for the initial step
    bool perturbation = false;
  };
  /// What an attribute says in a step of its own.
  struct Change {
    std::size_t column;
    std::string values;  ///< "u1 0.5, u2 FREED"
  };
  /// What members are in neighbouring steps.
  struct Held {
    std::vector<cls_Value> values;  ///< in the order of the members; null where none is in force
    std::vector<bool> own;          ///< said in that step
  };
  struct Row {
    std::string name;
    std::string kind;  ///< "boundaryCondition"
    std::string type;  ///< construction command, "DisplacementBC"
    bool suppressed = false;
    std::vector<std::uint8_t> statuses;      ///< numbers, one per step of the table
    std::vector<Change> changes = {};        ///< where the filter asks for them
    std::vector<Held> held = {};             ///< where the filter asks for values
    std::vector<std::uint32_t> heldAt = {};  ///< which of those, one per step of the table

    Held const& At(std::size_t column) const { return held[heldAt[column]]; }

    mdl_PropagationStatusEnm Status(std::size_t column) const { return static_cast<mdl_PropagationStatusEnm>(statuses[column]); }
  };

  std::string model;
  ddr_Model::SpaceEnm space = ddr_Model::THREE_D;
  std::vector<std::string> members = {};  ///< whose values are told
  std::vector<Step> steps;
  std::vector<Row> rows;
};

/// What a table shows; everything where a list is empty. Names and types are texts or patterns (Fits).
struct HistoryFilter {
  std::vector<std::string> attributes;
  std::vector<std::string> steps;
  std::vector<std::string> types = {};                  ///< construction commands
  std::vector<mdl_PropagationStatusEnm> statuses = {};  ///< attributes that have one of them in a step that is shown
  bool changes = false;                                 ///< tell what each step says of its own
  /// Members whose values in force are told, as commands call them; attributes that have none of them are left out.
  std::vector<std::string> values = {};
};

/// Attributes by kind and name, steps in their order. Linear in the records shown.
DDB_API HistoryTable HistoriesOf(ddr_Model const& model, HistoryFilter const& filter = {});

/// All statuses of a model, as many for each attribute as there are steps: what is in the rows of the table above, without it. Costs
/// what changes from step to step, and the bytes.
DDB_API void FillStatuses(ddr_Model const& model, std::span<std::uint8_t> statuses);
/// The member's values in force where it is a real or whole number, in the same order; NaN where there is none.
DDB_API void FillValues(ddr_Model const& model, std::string_view member, std::span<double> values);

/// The names that a filter can give; of members those that the attributes of the model have.
DDB_API std::vector<std::string> AttributeNames(ddr_Model const& model);
DDB_API std::vector<std::string> StepNames(ddr_Model const& model);
DDB_API std::vector<std::string> TypeNames(ddr_Model const& model);
DDB_API std::vector<std::string> MemberNames(ddr_Model const& model);

}  // namespace gattr
