#pragma once

#include <map>
#include <string>
#include <string_view>

#include "framework/mdl_Extension.h"
#include "platform/BasicUtils/cow_Handle.h"
#include "platform/CoreUtils/ddb_Export.h"

/// The extensions that every new model starts with, as the modules register them at their start.
class DDB_API mdl_ExtensionSubject {
public:
  using Table = std::map<std::string, cow_Handle<mdl_Extension>, std::less<>>;

  /// Registers \p prototype under the member name \p name; models share it until they change it.
  static void RegisterExtension(std::string_view name, cow_Handle<mdl_Extension> prototype);
  static void UnregisterExtension(std::string_view name);
  static Table const& Registered();
};
