#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "command/Changes.h"
#include "framework/Refusal.h"
#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"
#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// The statuses of one attribute by number, in step order.
using NamedHistory = std::pair<std::string, std::vector<int>>;

/// What became of a command.
struct Outcome {
  bool ok = false;
  Refusal refused;                    ///< of a command that is not ok
  bool badInput = false;              ///< the command itself is at fault: an unknown command, argument, object, step or value
  bool changed = true;                ///< whether the model is another than before
  std::string message;                ///< one line for a person, naming object, step and member; empty when the model was changed
  std::string object, step, member;   ///< what the message names, empty where it names none
  std::string hint;                   ///< what would do
  std::vector<NamedHistory> history;  ///< see Session::SetTrace
  Effects effects = {};               ///< of a dry run
  std::string report = {};            ///< of a command that only tells something, which is neither journaled nor undone
};

/// What a value is, whether alone or in a list.
using ValueKind = cls_MemberKind;

/// Whose an argument is.
enum class ArgumentOf {
  Command,  ///< the command's own
  Object,   ///< a member of the object, the same in all steps
  State,    ///< a member of what the object says in a step
};

/// One argument of a command, or a member of a class.
struct ArgumentInfo {
  std::string name;
  std::string meaning;
  std::string unit;                      ///< "" where there is none
  std::vector<std::string> permissible;  ///< texts that it takes; of a choice all that it takes, of another kind words beside its values
  bool required = false;
  ValueKind kind = ValueKind::String;
  int depth = 0;          ///< 0: one value, 1: a list, 2: a table, which is a list of rows of one length
  std::string className;  ///< of an object: its class (ValueClasses)
  std::string refers;     ///< what a text names, or an object is named by: "region", "step", "load"; empty where no name is meant
  bool perStep = false;   ///< carried from step to step: takes "UNSET" and "FREED" beside its values
  bool again = false;     ///< another name of the argument before it
  ArgumentOf of = ArgumentOf::Command;
  cls_Value preset;  ///< the default; null where there is none, or none that can be written as one value

  /// "number", "list of text", "table of choice", a class's name.
  DDB_API std::string Type() const;
};

/// A class of objects that are given as named members.
struct ClassInfo {
  std::string name;
  std::vector<ArgumentInfo> members;  ///< those that can be set
};

/// Which members of the object that a command names are arguments too.
enum class ObjectMembers {
  None,
  All,          ///< those that its construction takes
  OfState,      ///< of those the ones of a state
  OfProcedure,  ///< those that the construction takes which the argument "procedure" names
};

/// One command, for help and for whoever makes an interface of the list.
struct CommandInfo {
  std::string name;
  std::string group;    ///< "steps", "boundary conditions" and other families, "references", "objects", "session"
  std::string meaning;  ///< one line
  std::vector<ArgumentInfo> arguments;
  std::string makes = {};               ///< of a construction: the kind of what it makes, "boundaryCondition"
  std::string className = {};           ///< and its class; of a copy, which may be of any class of the kind, empty
  std::vector<std::string> kinds = {};  ///< of a command on an object: it is named under its kind
  std::string onlyClass = {};           ///< the class of object that alone knows it; empty where each of these kinds does
  ObjectMembers members = ObjectMembers::None;

  /// Whether a command on an object takes this argument of the construction that makes such objects.
  bool TakesMember(ArgumentInfo const& argument) const {
    return argument.of == ArgumentOf::State
               ? members != ObjectMembers::None
               : argument.of == ArgumentOf::Object && (members == ObjectMembers::All || members == ObjectMembers::OfProcedure);
  }

  /// The arguments as help lists them: first the object under its kinds, last a line that stands for its members.
  DDB_API std::vector<ArgumentInfo> Listed() const;
};

/// A kind of object that commands name, "boundaryCondition", and the model's member that holds all of that kind.
struct KindInfo {
  std::string kind, member;
};

struct ObjectDifference;

/// Whether a command is only tried: "dryRun": true.
DDB_API bool IsDryRun(cls_Value const& command);

/// A model under edit. Commands are the only way to change it: each either succeeds whole or leaves the model, its change
/// history and the undo stack as they were, also where a call of the library would leave a partial change. The library
/// must have been started (DDB_GeometricAttributes_initialize).
///
/// Snapshots are handle copies, so a command costs what its edit costs, and undoing it no more, whatever the model weighs.
/// Undo reaches back to the first command, unless thousands of edits of a long step sequence, each of which makes the whole
/// sequence anew, would fill the memory: then the oldest are forgotten (SetUndoMemory).
/// Not for use by two threads at once; several sessions may live in one thread. A session is moved and not copied: Session(other.Model())
/// begins another one with the model as it is.
class DDB_API Session {
public:
  /// Begins with an empty model.
  Session();
  explicit Session(ddr_Model model);
  Session(Session&& other) noexcept;
  Session& operator=(Session&& other) noexcept;
  ~Session();

  /// Runs one command: {"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Step-2"}. Refusals come back in
  /// the outcome; only running out of memory throws. ParseJson (text/JsonText.h) makes a command of its text. With "dryRun": true the
  /// outcome is the same, tells besides what would change, and nothing changes. Where a command on objects has a list of names for its
  /// object or for "stepName", it is run for every pair in the order written, whole or not at all; it is one line of the journal and one
  /// step of undo.
  Outcome Execute(cls_Value const& command);

  ddr_Model const& Model() const;

  bool CanUndo() const;
  bool CanRedo() const;
  /// What Undo would take back, "deactivate Fix"; empty when there is nothing.
  std::string UndoLabel() const;
  std::string RedoLabel() const;
  /// Puts back the model before the last command; false when there is none. Also a command, "undo".
  bool Undo();
  bool Redo();

  /// From here to Commit or Rollback commands are one: they are taken back together, stand in the journal as one command
  /// ({"command": "transaction", "commands": [...]}, which is a command of its own too) and are told as one change. One that is refused
  /// leaves those before it. Undo and redo are refused meanwhile, and so is a second Begin, which raises a std::logic_error.
  void Begin();
  /// Keeps what was done since Begin. Raises a std::logic_error where nothing has begun, as Rollback does.
  void Commit();
  /// Puts back the model as it was at Begin.
  void Rollback();
  bool IsInTransaction() const;
  /// What the commands since Begin have come to so far; nothing where none has begun.
  Effects EffectsSinceBegin() const;

  // Branches: versions of the model side by side, each with its own undo, journal and change history. A branch shares with the one that
  // it began from what both have: it costs a few words for each edit that can be undone, and then what differs. They are the session's:
  // no journal knows of them, and each branch's own journal, run on the model that the session began with, gives that branch. Names that
  // are not there, or there already, are refused with a std::invalid_argument, and a std::logic_error refuses to leave an open transaction.

  /// Begins a branch with the present model and goes on in it.
  void Branch(std::string_view name);
  /// Goes on in another branch. Listeners are told of what that changes as of one edit; names follow the renames between both.
  void Switch(std::string_view name);
  /// Forgets a branch, which must not be the one that is worked in.
  void DeleteBranch(std::string_view name);
  /// All names, in their order.
  std::vector<std::string> Branches() const;
  /// The one that is worked in: "main" at first.
  std::string const& CurrentBranch() const;
  /// The model of a branch.
  ddr_Model const& ModelOf(std::string_view branch) const;
  /// What \p name says that \p other does not (DifferencesBetween).
  std::vector<ObjectDifference> Compare(std::string_view name, std::string_view other) const;

  /// Has \p listener told of every whole edit from here on, as long as the subscription is kept: after a command that has changed
  /// something, after undo, redo, Commit and Switch; of a refusal and of a dry run nothing. It may read the session and run commands, which
  /// are told behind what is being told, and end subscriptions. What it throws passes to the caller of the edit, which stays done. While
  /// anybody listens, an edit costs a comparison (ChangesBetween) more.
  [[nodiscard]] Subscription Subscribe(Listener listener);

  /// A name that follows the object's renames and their undo, whether or not there is such an object now.
  std::shared_ptr<ObjectName const> Follow(std::string_view kind, std::string_view name);

  /// The commands that succeeded, undo and redo among them; running them on the model that the session began with gives
  /// the present one. Made anew, as they are kept as bytes.
  std::vector<cls_Value> Journal() const;
  /// What the commands recorded: one tuple for each change in a repository.
  omu_ChangeHistory const& Changes() const;

  /// Whether outcomes tell histories: of the attribute that a command names, of all attributes after a command on a step, with
  /// its kind where another family uses the name too. Off at first, as the latter costs as much as the whole model; always
  /// told of a dry run.
  void SetTrace(bool on);

  /// What the snapshots of edits that can be undone may hold, roughly, in bytes; 512 MiB at first. The last edit is always kept.
  void SetUndoMemory(std::size_t bytes);

  /// Lets go of what was done, to be undone or to be told, and keeps no more of it from here on: neither undo stack nor journal
  /// nor changes, of any branch. For whoever runs many commands and wants the model alone.
  void ForgetPast();

  /// All commands with their arguments, grouped.
  static std::vector<CommandInfo> Commands();
  /// The classes of values that arguments, and members of these, are given by, each once.
  static std::vector<ClassInfo> ValueClasses();
  /// The kinds of named objects: steps, the families of attributes, and what those refer to.
  static std::vector<KindInfo> Kinds();

private:
  class DDB_LOCAL Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace gattr
