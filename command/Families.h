#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "module/kpr/engine/kprC_StepDependent.h"

namespace gattr {

/// A construction command and the label of what it makes.
struct Construction {
  std::string_view command;
  std::string_view label;
};

/// An argument that goes to the attribute itself, and the member that it sets. All other arguments go to the state of a
/// step.
struct OwnArgument {
  std::string_view argument;
  std::string_view member;
};

/// A family of step-dependent attributes as commands construct it.
struct Family {
  std::string_view extension;  ///< member name of its repository
  std::string_view group;      ///< heading in help
  bool inInitialStep;          ///< whether its attributes may be created in the initial step
  std::span<OwnArgument const> own;
  std::vector<Construction> (*constructions)();
  /// A new attribute; null when the command is none of the family's.
  std::unique_ptr<kprC_StepDependent> (*make)(std::string_view command);
};

/// A row per family.
std::span<Family const> Families();

}  // namespace gattr
