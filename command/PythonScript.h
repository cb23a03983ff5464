#pragma once

#include <string>
#include <utility>
#include <vector>

#include "command/Session.h"

namespace gattr {

/// Writes commands as lines of a Python script of the module gattr, in which `m` is the model: constructions are methods of the model,
/// commands on an object are methods of its handle, and what has no method goes through m.execute.
class PythonScript {
public:
  PythonScript();

  /// What stands before the first line.
  static std::string Head();
  /// One command, without the line break.
  std::string Line(cls_Value const& command) const;

private:
  std::vector<CommandInfo> commands_;
  std::vector<std::pair<std::string, std::string>> mappings_;  // by kind: "boundary_conditions" of "boundaryCondition"
};

}  // namespace gattr
