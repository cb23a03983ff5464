#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "command/Session.h"
#include "platform/BasicUtils/cls_ClassRegistrar.h"

namespace gattr::cli {

/// What is known about one command or class, taken from the classes' metadata and the commands' own list.
struct Description {
  std::string name;       ///< of the command, or of the class
  std::string className;  ///< of what the command makes; empty where it makes nothing
  std::string meaning;
  std::vector<std::string> commands;  ///< that make objects of the class
  std::vector<ArgumentInfo> entries;  ///< arguments of the command, or members of the class
  /// Labels of the procedures in whose steps such an attribute may be created, and of those into which it is carried only.
  std::optional<std::vector<std::string>> createdIn, carriedInto;
  /// Of those whose steps have such an attribute as part of their base state.
  std::vector<std::string> inBaseStateOf;
  bool isCommand = false;
  std::string inLoadCases;  ///< whether load cases take such an attribute, or such a step has any: "yes", "no", "not yet"; "" where neither
};

/// The description of a command or class, whatever the case of its letters; refuses an unknown one with the nearest name.
Description DescriptionOf(std::string_view name);
/// The registered classes by type identity.
std::vector<std::string> ClassNames();

}  // namespace gattr::cli
