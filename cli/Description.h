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
  /// An argument of a command or a member of a class.
  struct Entry {
    std::string name;
    std::string type;  ///< "number", "choice", "list of text", a class's name; empty where it is not known
    bool required = false;
    bool perStep = false;  ///< has a value of its own in every step
    Json preset;           ///< the default; null for none
    std::string unit;
    std::string meaning;
    std::vector<std::string> permissible;
  };

  std::string name;       ///< of the command, or of the class
  std::string className;  ///< of what the command makes; empty where it makes nothing
  std::string meaning;
  std::vector<std::string> commands;  ///< that make objects of the class
  std::vector<Entry> entries;
  /// Labels of the procedures in whose steps such an attribute may be created, and of those into which it is carried only.
  std::optional<std::vector<std::string>> createdIn, carriedInto;
};

/// The description of a command or class, whatever the case of its letters; refuses an unknown one with the nearest name.
Description DescriptionOf(std::string_view name);
/// The registered classes by type identity.
std::vector<std::string> ClassNames();

}  // namespace gattr::cli
