#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "embed/Arguments.h"
#include "framework/Refusal.h"
#include "platform/CoreUtils/ddb_Export.h"
#include "text/Progress.h"

class ddr_Model;

namespace gattr {

class Session;
struct ObjectName;
struct Outcome;

/// A command that was refused. Nothing has changed.
class DDB_API Refused : public std::runtime_error {
public:
  explicit Refused(Outcome const& outcome);

  Refusal refusal;                         ///< by module and number, where it has one
  std::string object, step, member, hint;  ///< what the message names, and what would do; empty where there is none
};

/// An object, or the model that held it, is no more.
class DDB_API Gone : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// A model under edit, and what every model does whatever commands there are; Model (embed/Commands.h) has those, under the names and
/// with the arguments that they have in journals. Starts the library, which stops with the last of them. Not for two threads at once.
class DDB_API ModelBase {
public:
  ModelBase();
  ModelBase(ModelBase&&) noexcept = default;
  ModelBase& operator=(ModelBase&&) noexcept = default;

  /// Puts the model of a file (.gadb, .gattr.json) in the place of this one; handles of this one are gone. Raises a StoreError, and
  /// Cancelled.
  void Open(std::string const& path, Progress const& progress = {});
  /// Saves in the form that the end of the name tells; what was opened or saved there before costs what has changed. Raises a StoreError,
  /// and Cancelled.
  void Save(std::string const& path, Progress const& progress = {});

  /// Puts what a journal makes in the place of this model. Raises Refused, what gattr::Replay raises, and Cancelled; nothing has changed
  /// then.
  void Replay(std::string const& path, Progress const& progress = {});

  /// Runs one command; raises Refused.
  void Execute(cls_Value const& command);
  /// Runs a line of a journal. Raises Refused, and a JsonError where it is no JSON.
  void ExecuteLine(std::string_view line);
  /// False where there is nothing to undo.
  bool Undo();
  bool Redo();
  /// What stands behind this: transactions, listeners, the journal (command/Session.h). Good until the next Open.
  Session& Edits() const;

protected:
  ~ModelBase() = default;
  void Construct(std::string_view command, cls_Value::Fields own, cls_Value::Fields members);

private:
  friend class ObjectHandle;
  struct DDB_LOCAL Core;
  std::shared_ptr<Core> core_;
};

/// An object by its name. Follows when the object is renamed and when that is undone, finds one that is made again under the name;
/// every call raises Gone where there is none, or where the model is no more.
class DDB_API ObjectHandle {
public:
  ObjectHandle(ModelBase const& model, std::string_view kind, std::string_view name);

  std::string Name() const;
  std::string_view Kind() const;
  bool Exists() const;

  /// Runs a command on the object.
  void Run(std::string_view command, cls_Value::Fields arguments = {}, cls_Value::Fields members = {}) const;
  /// A member as commands call it: the object's own; in \p step, one that it says there, null before its creation.
  cls_Value Member(std::string_view member) const;
  cls_Value MemberIn(std::string_view step, std::string_view member) const;
  /// The number of the status in a step.
  int StatusIn(std::string_view step) const;
  /// Why an attribute, or a member of it, is in \p step what it is, in a sentence; command/Explain.h has it as data. Raises UnknownName.
  std::string Explain(std::string_view step, std::string_view member = {}) const;

protected:
  /// Another of the kind.
  ObjectHandle Other(std::string_view name) const;

private:
  ObjectHandle(std::weak_ptr<ModelBase::Core> model, std::shared_ptr<ObjectName const> name)
      : model_(std::move(model)), name_(std::move(name)) {}
  DDB_LOCAL std::shared_ptr<ModelBase::Core> Core() const;

  std::weak_ptr<ModelBase::Core> model_;
  std::shared_ptr<ObjectName const> name_;
};

/// What an object says in one step.
template <class State> class InStep {
public:
  InStep(ObjectHandle object, std::string step) : object_(std::move(object)), step_(std::move(step)) {}

  void Set(State const& values) const { object_.Run("setValuesInStep", {{"stepName", step_}}, FieldsOf(values)); }
  /// What is in force there.
  State Values() const {
    State values;
    State::ForEach(values, [this](char const* name, auto& argument) { argument.Read(object_.MemberIn(step_, name)); });
    return values;
  }
  int Status() const { return object_.StatusIn(step_); }

private:
  ObjectHandle object_;
  std::string step_;
};

/// A handle of a kind for objects that the command makes whose arguments these are.
template <class Arguments, class OfKind> class Handle : public OfKind {
public:
  using OfKind::OfKind;

  void setValues(Arguments const& values) const { this->Run("setValues", {}, FieldsOf(values)); }
  /// What the object says in a step, of kinds that have a history.
  auto In(std::string step) const { return InStep<typename Arguments::State>(*this, std::move(step)); }
};

}  // namespace gattr
