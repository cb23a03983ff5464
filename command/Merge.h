#pragma once

#include <string>
#include <vector>

#include "command/Check.h"
#include "framework/Refusal.h"
#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// What two people have made of a model and cannot both have.
struct MergeConflict {
  std::string kind;                    ///< of the object: "boundaryCondition", "step"; "model"
  std::string name;                    ///< of the object
  std::string step;                    ///< empty where it is not of a step
  std::string member;                  ///< by what commands call it; empty where it is the object, or what it says in the step, as a whole
  cls_Value base, ours, theirs;        ///< null: there is none, or nothing is said
  Refusal refusal = {"", -1, "", ""};  ///< of what a rule refuses; its message is empty where both only say different things
  std::string detail = {};             ///< what else there is to say

  /// 'boundaryCondition "Punch" in step "Form", "u2": -10.0 in base, -12.0 in ours, -14.0 in theirs'.
  DDB_API std::string Text() const;
};

struct Merged {
  ddr_Model model;                       ///< what both have made of it; where there are conflicts, ours
  std::vector<MergeConflict> conflicts;  ///< by object, step and member
  std::vector<Finding> findings;         ///< warnings that neither side had

  bool IsWhole() const { return conflicts.empty(); }
};

/// Makes of \p base what \p ours and \p theirs have both made of it: of each object, step and member the value that one side has given it.
/// Both may do the same. Where both do something else, one edits what the other deletes, or both insert steps in one place, that is a
/// conflict, and so is what the edits together do not make: what a rule refuses, an edit of the attribute or the check of the whole, and
/// what does not come out as both say. Which side is which changes nothing but the names.
///
/// What one side alone has touched is taken as it is there. An attribute that both have touched is edited by commands, which ask every
/// rule. What the one calls by another name the other's edits find under that (RenamesBetween). Linear in what the models say.
DDB_API Merged Merge(ddr_Model const& base, ddr_Model const& ours, ddr_Model const& theirs);

}  // namespace gattr
