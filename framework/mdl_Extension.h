#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>

#include "framework/Types.h"
#include "platform/BasicUtils/cow_String.h"

/// Refuses to give what is not there: \p where, "repository" or "model", has nothing under \p name.
[[noreturn]] DDB_API void mdl_RefuseMissing(std::string_view name, std::string_view where);

/// The interfaces by which extensions of many classes are known.
enum class mdl_InterfaceEnm : std::uint8_t { None, NamedObjects, StepAwareRepository };

/// Something that a model holds under a member name: a repository, the step container.
class DDB_API mdl_Extension : public cls_Object {
public:
  /// The interface that the extension has beside its class: kInterface of the class that gives it.
  virtual mdl_InterfaceEnm Interface() const { return mdl_InterfaceEnm::None; }

  /// Takes a name and the object that it stands for now, null for none any more.
  using ChangeVisitor = std::function<void(cow_String const& name, cls_Object const* object)>;

  /// Tells what the extension's map holds that is not the very same object under the same name in \p before, an extension
  /// of the same class; in the order of the names. Costs what differs, not what is held. False, and nothing is told, where
  /// the extension cannot say.
  virtual bool ForEachChange(mdl_Extension const& /*before*/, ChangeVisitor const& /*visit*/) const { return false; }
};

/// The extension as a \p T, which is final or an interface; null where it is of another class, or null itself. Commands ask this of
/// every extension of the model, again and again: it says what a dynamic cast does, by numbers.
template <class T> T const* mdl_ExtensionAs(mdl_Extension const* extension) {
  if (extension == nullptr) { return nullptr; }
  static_assert(std::is_final_v<T> || std::is_abstract_v<T>, "a class that is neither would inherit the interface's number");
  bool is = false;
  if constexpr (std::is_final_v<T>) {
    is = extension->DynTypeId() == T::TypeId();
  } else {
    is = extension->Interface() == T::kInterface;
  }
  return is ? static_cast<T const*>(extension) : nullptr;
}
template <class T> T* mdl_ExtensionAs(mdl_Extension* extension) {
  return const_cast<T*>(mdl_ExtensionAs<T>(static_cast<mdl_Extension const*>(extension)));
}

/// Base of the repositories of a model; the first thing that a repository writes.
class DDB_API mdl_Repository : public mdl_Extension {
public:
  template <class V> static constexpr void VisitMembers(V&&) {}
};
