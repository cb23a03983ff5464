#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "command/Journal.h"
#include "command/Refusal.h"
#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"

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
  std::string Type() const;
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

  /// The arguments as help lists them: first the object under its kinds, last a line that stands for its members.
  std::vector<ArgumentInfo> Listed() const;
};

class Arguments;
struct Subject;

/// A command and the object that it names, as messages and the undo stack tell them.
struct Label {
  std::string command;
  std::string_view kind = {};  ///< of the object, "boundaryCondition"; empty where the command says it
  std::string name = {};

  /// 'boundaryCondition "Fix"'; empty where no object is named.
  std::string Object() const;
  /// 'deactivate boundaryCondition "Fix"'.
  std::string Text() const;
};

/// Whose histories a command touches.
struct Touched {
  bool all = false;               ///< a command on a step: every attribute
  cow_String extension;           ///< member name of the attribute's repository; empty when no attribute is named
  std::vector<cow_String> names;  ///< of the attribute, before and after
};

/// A model under edit. Commands are the only way to change it: each either succeeds whole or leaves the model, its change
/// history and the undo stack as they were, also where a call of the library would leave a partial change. The library
/// must have been started (DDB_GeometricAttributes_initialize).
///
/// Snapshots are handle copies, so a command costs what its edit costs, and undoing it no more, whatever the model weighs.
/// Undo reaches back to the first command, unless thousands of edits of a long step sequence, each of which makes the whole
/// sequence anew, would fill the memory: then the oldest are forgotten (SetUndoMemory).
/// Not for use by two threads at once; several sessions may live in one thread.
class Session {
public:
  /// Begins with an empty model.
  Session();
  explicit Session(ddr_Model model);

  /// Runs one command: {"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Step-2"}. Refusals come back in
  /// the outcome; only running out of memory throws. ParseJson (text/JsonText.h) makes a command of its text. With "dryRun": true the
  /// outcome is the same and nothing changes.
  Outcome Execute(cls_Value const& command);

  ddr_Model const& Model() const { return model_; }

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  /// What Undo would take back, "deactivate Fix"; empty when there is nothing.
  std::string UndoLabel() const;
  std::string RedoLabel() const;
  /// Puts back the model before the last command; false when there is none. Also a command, "undo".
  bool Undo();
  bool Redo();

  /// The commands that succeeded, undo and redo among them; running them on the model that the session began with gives
  /// the present one. Made anew, as they are kept as lines.
  std::vector<cls_Value> Journal() const;
  /// What the commands recorded: one tuple for each change in a repository.
  omu_ChangeHistory const& Changes() const { return changes_; }

  /// Whether outcomes tell histories: of the attribute that a command names, of all attributes after a command on a step, with
  /// its kind where another family uses the name too. Off at first, as the latter costs as much as the whole model; always
  /// told of a dry run.
  void SetTrace(bool on) { trace_ = on; }

  /// What the snapshots of edits that can be undone may hold, roughly, in bytes; 512 MiB at first. The last edit is always kept.
  void SetUndoMemory(std::size_t bytes) { undoMemory_ = bytes; }

  /// Lets go of what was done, to be undone or to be told, and keeps no more of it from here on: neither undo stack nor journal
  /// nor changes. For whoever runs many commands and wants the model alone.
  void ForgetPast();

  /// All commands with their arguments, grouped.
  static std::vector<CommandInfo> Commands();
  /// The classes of values that arguments, and members of these, are given by, each once.
  static std::vector<ClassInfo> ValueClasses();

private:
  /// One undoable edit: the model on its other side, and what it added to the change history.
  struct Edit {
    ddr_Model model;
    Label label;
    Touched touched;
    std::size_t weight;         ///< what only this snapshot holds, roughly, in bytes
    std::size_t changes;        ///< length of the change history before the edit
    omu_ChangeHistory records;  ///< what the edit added to it, while it is undone
  };

  /// What a command has done to the model: whether it is another than before, and what keeping that costs, roughly, in bytes.
  struct Effect {
    bool changed;
    std::size_t weight;
  };
  /// Looks at what the command has touched. Where that is an attribute, it costs what differs of that.
  Effect EffectSince(ddr_Model const& before, Touched const& touched) const;
  bool Differs(ddr_Model const& before) const;
  Outcome UndoOrRedo(cls_Value const& command, Arguments const& arguments, Subject& subject);
  void Keep(Edit edit);
  /// What keeping \p before costs beside the present model. Costs what differs between both.
  std::size_t Weight(ddr_Model const& before) const;
  void UndoEdit();
  void RedoEdit();
  std::vector<NamedHistory> Histories(Touched const& touched) const;

  ddr_Model model_;
  omu_ChangeHistory changes_;
  std::deque<Edit> undo_, redo_;  // the next one last
  std::size_t undoWeight_ = 0, undoMemory_ = std::size_t{512} << 20;
  KeptJournal journal_;
  bool trace_ = false, keepsPast_ = true;
};

}  // namespace gattr
