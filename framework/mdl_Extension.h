#pragma once

#include <functional>
#include <string_view>

#include "framework/Types.h"
#include "platform/BasicUtils/cow_String.h"

/// Refuses to give what is not there: \p where, "repository" or "model", has nothing under \p name.
[[noreturn]] DDB_API void mdl_RefuseMissing(std::string_view name, std::string_view where);

/// Something that a model holds under a member name: a repository, the step container.
class DDB_API mdl_Extension : public cls_Object {
public:
  /// Takes a name and the object that it stands for now, null for none any more.
  using ChangeVisitor = std::function<void(cow_String const& name, cls_Object const* object)>;

  /// Tells what the extension's map holds that is not the very same object under the same name in \p before, an extension
  /// of the same class; in the order of the names. Costs what differs, not what is held. False, and nothing is told, where
  /// the extension cannot say.
  virtual bool ForEachChange(mdl_Extension const& /*before*/, ChangeVisitor const& /*visit*/) const { return false; }
};

/// Base of the repositories of a model; the first thing that a repository writes.
class DDB_API mdl_Repository : public mdl_Extension {
public:
  template <class V> static constexpr void VisitMembers(V&&) {}
};
