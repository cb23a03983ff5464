#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/BasicUtils/cls_Members.h"
#include "platform/CoreUtils/ddb_Export.h"
#include "platform/CoreUtils/thr_Singleton.h"

/// Description of one persistent class: its identity, its members in the order of writing, and how to make one.
struct DDB_API cls_ClassMetadata {
  std::string name;
  unsigned typeId = 0;
  unsigned baseId = 0;  ///< of the class that it extends; 0 where that one is not persistent
  std::vector<cls_MemberInfo> members;
  std::unique_ptr<cls_Object> (*make)() = nullptr;                             ///< a default object; null where there is none
  std::unique_ptr<cls_Object> (*construct)(cls_ReadVisitor const&) = nullptr;  ///< null where make and the rows are enough

  /// Whether there are objects of the class: it is not abstract.
  bool CanBeRead() const { return make != nullptr || construct != nullptr; }
  /// An object from what \p in holds, which refuses what does not fit.
  cow_Handle<cls_Object> Read(cls_ReadVisitor const& in) const;

  /// The member called \p member, or null.
  cls_MemberInfo const* Find(std::string_view member) const;
};

/// The known classes by type identity.
class DDB_API cls_ClassRegistrar {
public:
  /// Adds a class. An identity that another class has, and a member whose name another one has, are refused with a
  /// nex_TextException.
  cls_ClassMetadata& AddClass(std::string_view name, unsigned typeId, cls_MemberRows rows);

  cls_ClassMetadata const* Find(unsigned typeId) const;
  cls_ClassMetadata const* Find(std::string_view name) const;
  std::map<unsigned, cls_ClassMetadata> const& Classes() const { return classes_; }
  void RemoveModule(unsigned module);

private:
  std::map<unsigned, cls_ClassMetadata> classes_;
};

/// Flag with which a module hands over its metadata functions: describe, make and destroy.
inline constexpr int ddb_metadataFlag = 7;

/// Where the modules hand over their classes' metadata functions at their start.
class DDB_API cls_MetadataRegistrar {
public:
  /// Runs \p initialize on the process's registrar. \p flag is the registrar's code for "describe, make and destroy" (7).
  static void initClassMetadata(void (*initialize)(cls_ClassRegistrar&), int flag);
  /// Forgets the classes of a module, at its stop.
  static void finalizeModule(unsigned module);
  static cls_ClassRegistrar& Registrar() { return thr_GlobalSingleton<cls_ClassRegistrar>::Instance(); }
};

/// The modules that have been entered, by number.
class DDB_API cls_ComponentTable {
public:
  static void Enter(unsigned module, std::string_view prefix);
  static void Leave(unsigned module);
  static bool IsEntered(unsigned module);
  /// Number and prefix of every entered module.
  static std::map<unsigned, std::string> const& Modules();
};
