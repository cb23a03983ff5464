#pragma once

#include <string>
#include <vector>

#include "command/Refusal.h"
#include "framework/ddr_Model.h"

namespace gattr {

/// Something that is wrong in a model.
struct Finding {
  std::string kind;         ///< "boundaryCondition", "step"
  std::string name;         ///< of the object
  std::string step;         ///< the first step in which it shows; empty when it is not of a step
  Refusal refusal;          ///< with the number of the module's table where it has one
  std::string detail;       ///< what the refusal's text does not say: which amplitude, why a step may not follow
  bool suppressed = false;  ///< the object is suppressed: the finding stands in the way of resuming it
  bool note = false;        ///< worth knowing, and in nobody's way
};

/// Everything that is wrong in a model that is to be solved: procedures that may not follow each other, step parameters,
/// objects that others refer to by name, attributes that are not valid in their steps (suppressed ones as if they were resumed) or do not
/// go with the model's space and connectors, names that the model does not have, and histories that are not what their steps give. Steps
/// first, in order, then what is referred to by name, then the attributes in the order of their names, then, as notes, the regions that
/// deleted steps have left without an owner. The model is not changed. Linear in the records.
std::vector<Finding> Check(ddr_Model const& model);

}  // namespace gattr
