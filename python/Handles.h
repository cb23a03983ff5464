#pragma once

#include <pybind11/pybind11.h>

#include <memory>
#include <string>
#include <vector>

#include "module/kpr/engine/kprC_StepDependent.h"
#include "python/Model.h"

namespace gattr::python {

/// An object of a model by its name: follows when it is renamed and when that is undone, finds one that was made again under its name,
/// raises gattr.Gone where there is none.
class Handle {
public:
  Handle(py::object model, int kind, std::string_view name);

  std::string const& Name() const { return name_->name; }
  int Kind() const { return kind_; }
  py::object const& Owner() const { return owner_; }
  Model& In() const { return *model_; }
  bool Exists() const;

  /// The object. Good until the next command.
  cls_Object const& Get() const;
  /// The same as an attribute; null where the kind has no steps.
  kprC_StepDependent const* Attribute() const;

  py::object Member(py::handle name) const;
  void SetMember(py::handle name, py::handle value) const;
  /// The names of the members, of a state's where that is asked for.
  std::vector<std::string> MemberNames(bool ofState) const;

  /// Runs a command on the object. None says "UNSET" for what steps carry. Gives what the command tells, or nothing.
  std::string Do(std::string_view command, py::dict const& arguments) const;

  /// Handles of one object are equal, and stay so when it is renamed.
  friend bool operator==(Handle const& a, Handle const& b) { return a.name_ == b.name_; }
  std::size_t Hash() const { return std::hash<ObjectName const*>()(name_.get()); }

private:
  py::object owner_;
  Model* model_;
  std::shared_ptr<ObjectName const> name_;
  int kind_;
};

/// What an attribute says in a step.
class State {
public:
  State(Handle attribute, std::string_view step);

  Handle const& Of() const { return attribute_; }
  std::string const& Step() const { return step_->name; }

  py::object Status() const;
  py::object Member(py::handle name) const;
  void SetMember(py::handle name, py::handle value) const;

private:
  std::size_t Index(kprC_StepDependent const& attribute) const;

  Handle attribute_;
  std::shared_ptr<ObjectName const> step_;
};

/// A handle of the class that Python has for the object.
py::object MakeHandle(py::object const& model, int kind, std::string_view name);

/// The commands that edits by attribute are, as the session's own list has them.
struct MemberCommands {
  std::string onObject, inStep, step;  ///< "setValues", "setValuesInStep" and the argument that names its step
};
MemberCommands const& SettingMembers();

}  // namespace gattr::python
