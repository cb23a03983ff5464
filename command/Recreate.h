#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_Value.h"

namespace gattr {

/// Something of a model that no command makes.
struct Unmade {
  std::string object;  ///< 'boundaryCondition "Fix"', 'step "Close"'; an extension's member name where it is no object's
  std::string step;    ///< empty where it is of no step
  std::string member;  ///< empty where it is the object as a whole
  std::string why;     ///< what is refused, or that the value does not come out

  /// One line for a person.
  std::string Text() const;
};

/// Writes a journal from a model alone: one command for what the model is called and lives in, one for each object, and one for each
/// record that says something of its own. Arguments are what differs from a new object. An object comes after what it names;
/// what has gone with its steps and left its regions behind is made and deleted again.
///
/// The commands are run while they are found, and what comes out is compared with the model: what does not come out as it is there is
/// answered. Costs what running the journal costs. \p take gets the commands in their order.
std::vector<Unmade> Recreate(ddr_Model const& model, std::function<void(cls_Value const& command)> const& take);

}  // namespace gattr
