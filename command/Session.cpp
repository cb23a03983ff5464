#include "command/Session.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <new>
#include <optional>
#include <stdexcept>

#include "command/Command.h"
#include "command/Difference.h"
#include "command/Hints.h"
#include "command/Journal.h"
#include "command/Listeners.h"
#include "command/Members.h"
#include "command/Words.h"
#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "platform/BasicUtils/cls_Weight.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr std::string_view kUndo = "undo", kRedo = "redo", kSetModel = "setModel", kSetModelSpace = "setModelSpace",
                           kReleaseRegions = "releaseDanglingRegions", kTransaction = "transaction", kCommands = "commands";

// Bytes, roughly: the edit itself, its place in the journal, the way to an object through the maps; and a version of the steps.
constexpr std::size_t kEditWeight = 1 << 11, kObjectWeight = 512, kRestingWeight = 192, kStepsWeight = 1 << 13;

/// Makes a change history the thread's own for a while.
class CurrentHistory {
public:
  explicit CurrentHistory(omu_ChangeHistory& history) : history_(history) { history_.Swap(Current()); }
  ~CurrentHistory() { history_.Swap(Current()); }
  CurrentHistory(CurrentHistory const&) = delete;
  CurrentHistory& operator=(CurrentHistory const&) = delete;

private:
  static omu_ChangeHistory& Current() { return thr_ThreadSingleton<omu_ChangeHistory>::Instance(); }
  omu_ChangeHistory& history_;
};

bool SetModel(Call& call) {
  if (call.arguments.Command() != kSetModel) { return false; }
  cow_String const name = call.arguments.Name("name");
  call.arguments.AssertNoRest({"name"});
  call.model.SetName(name);
  return true;
}

MemberArgument SpaceArgument() {
  cls_MemberInfo const* const space = cls_MetadataRegistrar::Registrar().Find(ddr_Model::TypeId())->Find(ddr_Model::spaceCmd());
  return {space->command, space};
}

/// What attributes may say depends on the space: each is asked again.
bool SetModelSpace(Call& call) {
  if (call.arguments.Command() != kSetModelSpace) { return false; }
  MemberArgument const space = SpaceArgument();
  std::string const text = call.arguments.Text(space.argument);
  std::string const argument(space.argument);
  call.arguments.AssertNoRest({argument});
  SetMembers(call.subject, call.model, {{argument, text}});
  ForEachRepository(call.model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    repository.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      AskOther(call, repository, name, [&] { AssertInModel(call, item); });
    });
  });
  return true;
}

/// Lets go of the regions that what went with its step has left behind.
bool ReleaseRegions(Call& call) {
  if (call.arguments.Command() != kReleaseRegions) { return false; }
  call.arguments.AssertNoRest({});
  auto const extensions = call.model.Extensions();
  for (auto const& [member, extension] : extensions) {
    auto const* repository = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
    if (repository == nullptr || repository->Dangling().IsEmpty()) { continue; }
    call.model.Get<kprC_StepAwareRepository>(member).ReleaseDanglingRegions();
  }
  return true;
}

std::vector<std::string> CommandNames() {
  std::vector<std::string> names;
  for (CommandInfo const& info : Session::Commands()) { names.push_back(info.name); }
  return names;
}

bool RunTransaction(Call& call);
bool RunOnSeveral(Call& call);

void Run(Call& call) {
  if (RunOnSeveral(call)) { return; }
  if (RunOnObject(call) || ConstructStep(call) || ConstructAttribute(call) || ConstructReference(call)) { return; }
  if (SetModel(call) || SetModelSpace(call) || ReleaseRegions(call) || RunTransaction(call)) { return; }
  std::string const& command = call.arguments.Command();
  RefuseUnknown(call.subject, "There is no command " + Quoted(command) + ".", Suggestion(command, CommandNames(), "Commands"));
}

/// A command on several objects or in several steps, pair by pair.
bool RunOnSeveral(Call& call) {
  auto const spread = Spread(call.model, call.arguments.Whole());
  if (!spread) { return false; }
  if (spread->empty()) { RefuseValue(call.subject, "A list of names is empty."); }
  std::vector<std::string> names;
  for (cls_Value const& command : *spread) {
    call.subject = Subject();
    Arguments arguments(command, call.subject);
    Touched touched;
    std::string report;
    Call one{call.model, arguments, call.subject, touched, report};
    Run(one);
    if (std::ranges::find(names, call.subject.name) == names.end()) { names.push_back(call.subject.name); }
    &command == &spread->front() ? void(call.touched = std::move(touched)) : call.touched.Add(touched);
    call.report += report;
  }
  call.subject.name = names.front();
  call.subject.others = names.size() - 1;
  return true;
}

/// Several commands as one.
bool RunTransaction(Call& call) {
  if (call.arguments.Command() != kTransaction) { return false; }
  cls_Value::List const& commands = call.arguments.List(kCommands);
  call.arguments.AssertNoRest({kCommands});
  for (std::size_t i = 0; i < commands.size(); ++i) {
    Subject subject;
    Touched touched;
    try {
      Arguments arguments(commands[i], subject);
      if (arguments.DryRun()) { RefuseValue(subject, R"("dryRun" is of the transaction as a whole.)"); }
      Call one{call.model, arguments, subject, touched, call.report};
      Run(one);
      if (!call.report.empty()) { RefuseEdit(subject, "What only tells something is no part of a transaction."); }
    } catch (std::exception const&) {
      std::string const place = call.subject.command + ", command " + std::to_string(i + 1);
      call.subject = subject;
      call.subject.command = subject.command.empty() ? place : place + ", " + subject.command;
      throw;
    }
    i == 0 ? void(call.touched = std::move(touched)) : call.touched.Add(touched);
  }
  return true;
}

std::vector<Rename> Reversed(std::vector<Rename> renames) {
  std::ranges::reverse(renames);
  for (Rename& rename : renames) { std::swap(rename.from, rename.to); }
  return renames;
}

/// One line: command, object, step and member, what is told of them with its number, and what would have fitted.
std::string MessageOf(Subject const& subject, Refusal const& told) {
  std::string message = subject.command.empty() ? "command" : OneLine(subject.command);
  if (std::string const object = subject.Object(); !object.empty()) { message += " " + object; }
  if (!subject.step.empty()) { message += " in step " + Quoted(subject.step); }
  if (!subject.member.empty()) { message += ", " + Quoted(subject.member); }
  message += ": " + RefusalText(told);
  return subject.hint.empty() ? message : message + " " + subject.hint;
}

void Tell(Outcome& outcome, Subject const& subject, Refusal const& told) {
  outcome.changed = false;
  outcome.message = MessageOf(subject, told);
  outcome.object = subject.Object();
  outcome.step = subject.step;
  outcome.member = subject.member;
  outcome.hint = subject.hint;
}

void TellRefused(Outcome& outcome, Subject const& subject, std::exception const& error) {
  outcome = Outcome();
  outcome.refused = RefusalOf(error);
  outcome.badInput = subject.atFault;
  Tell(outcome, subject, outcome.refused);
}

}  // namespace

std::string Label::Object() const {
  std::string const object = !kind.empty() ? ObjectText(kind, name) : name.empty() ? name : Quoted(name);
  return others == 0 ? object : object + " and " + std::to_string(others) + " more";
}
std::string Label::Text() const { return kind.empty() && name.empty() ? command : command + " " + Object(); }

void Touched::Add(Touched const& other) {
  renames.insert(renames.end(), other.renames.begin(), other.renames.end());
  if (all || other.all || extension != other.extension || extension.IsEmpty()) {
    all = true;
    extension = {};
    names.clear();
    return;
  }
  for (cow_String const& name : other.names) {
    if (std::ranges::find(names, name) == names.end()) { names.push_back(name); }
  }
}

/// What a session keeps, and how it edits.
class Session::Impl {
public:
  explicit Impl(ddr_Model model);

  Outcome Execute(cls_Value const& command);
  void Begin();
  void Commit();
  void Rollback();
  void ForgetPast();

private:
  friend class Session;

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
  static void Add(Effect& effect, kprC_StepDependent const* was, kprC_StepDependent const* is);
  bool Differs(ddr_Model const& before) const;
  /// What there is to tell of an edit.
  struct Told {
    ChangeEvent::Cause cause;
    std::string label;
    std::vector<Rename> renames;
  };
  /// Runs a command and keeps it; nothing is to be told where the model is as it was.
  std::optional<Told> Do(cls_Value const& command, Arguments& arguments, Subject& subject, Outcome& outcome);
  std::optional<Told> UndoOrRedo(cls_Value const& command, Arguments const& arguments, Subject& subject, Outcome& outcome);
  /// Has names follow, and listeners told, what has led from \p before to the present model.
  void Tell(Told const& told, ddr_Model const& before);
  void TellListeners(Told const& told, ddr_Model const& before);
  void Keep(cls_Value const& command, Edit edit);
  /// What keeping \p before costs beside the present model. Costs what differs between both.
  std::size_t Weight(ddr_Model const& before) const;
  void UndoEdit();
  void RedoEdit();
  std::vector<NamedHistory> Histories(Touched const& touched) const;

  /// One that branches may share.
  struct KeptEdit : mem_Counted, Edit {
    explicit KeptEdit(Edit edit) : Edit(std::move(edit)) {}
  };
  using Edits = std::deque<cow_Handle<KeptEdit>>;
  /// A branch: the model, and how it came about.
  struct Version {
    ddr_Model model;
    omu_ChangeHistory changes = {};
    Edits undo = {}, redo = {};  // the next one last
    std::size_t undoWeight = 0;
    KeptJournal journal = {};
  };
  Version now_;  // the branch that is worked in
  std::size_t undoMemory_ = std::size_t{512} << 20;
  /// What was done since Begin.
  struct Open {
    ddr_Model before;
    std::size_t changes;
    Touched touched;
    cls_Value::List commands;
  };
  std::unique_ptr<Open> End();
  std::unique_ptr<Open> open_;

  void Branch(std::string_view name);
  void Switch(std::string_view name);
  void DeleteBranch(std::string_view name);
  void AssertNoTransaction() const;
  std::vector<std::string> Branches() const;
  /// Refuses a name that is none of the other branches.
  std::map<std::string, Version, std::less<>>::iterator Other(std::string_view name);
  /// The renames that lead from what \p from has done to what \p to has, as far as both are known.
  static std::vector<Rename> RenamesBetween(Edits const& from, Edits const& to);

  std::string branch_ = "main";
  std::map<std::string, Version, std::less<>> others_;
  Listeners listeners_;
  ObjectNames names_;
  bool trace_ = false, keepsPast_ = true;
};

Session::Session() : Session(ddr_Model()) {}
Session::Session(ddr_Model model) : impl_(std::make_unique<Impl>(std::move(model))) {}
Session::Session(Session&& other) noexcept = default;
Session& Session::operator=(Session&& other) noexcept = default;
Session::~Session() = default;

ddr_Model const& Session::Model() const { return impl_->now_.model; }
omu_ChangeHistory const& Session::Changes() const { return impl_->now_.changes; }
Outcome Session::Execute(cls_Value const& command) { return impl_->Execute(command); }
void Session::Begin() { impl_->Begin(); }
void Session::Commit() { impl_->Commit(); }
void Session::Rollback() { impl_->Rollback(); }
bool Session::IsInTransaction() const { return impl_->open_ != nullptr; }
Effects Session::EffectsSinceBegin() const {
  auto const* const open = impl_->open_.get();
  return open == nullptr ? Effects() : EffectsBetween(open->before, impl_->now_.model, open->touched.renames);
}
Subscription Session::Subscribe(Listener listener) { return impl_->listeners_.Add(std::move(listener)); }
std::shared_ptr<ObjectName const> Session::Follow(std::string_view kind, std::string_view name) { return impl_->names_.Follow(kind, name); }
std::vector<cls_Value> Session::Journal() const { return impl_->now_.journal.Commands(); }
void Session::SetTrace(bool on) { impl_->trace_ = on; }
void Session::SetUndoMemory(std::size_t bytes) { impl_->undoMemory_ = bytes; }
void Session::ForgetPast() { impl_->ForgetPast(); }

bool Session::CanUndo() const { return !impl_->now_.undo.empty(); }
bool Session::CanRedo() const { return !impl_->now_.redo.empty(); }
bool Session::Undo() { return Execute(cls_Value::Fields{{"command", kUndo}}).ok; }
bool Session::Redo() { return Execute(cls_Value::Fields{{"command", kRedo}}).ok; }
std::string Session::UndoLabel() const { return CanUndo() ? impl_->now_.undo.back()->label.Text() : ""; }
std::string Session::RedoLabel() const { return CanRedo() ? impl_->now_.redo.back()->label.Text() : ""; }

// The repositories of a new model are empty and do not know its steps yet; that they learn them is no change.
Session::Impl::Impl(ddr_Model model) : now_{std::move(model)} {
  omu_ChangeHistory unrecorded;
  CurrentHistory const current(unrecorded);
  ddr_Model const before = now_.model;
  ForEachRepository(before, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    if (repository.Size() != 0 || repository.Steps().Size() != 0) { return; }
    now_.model.Get<kprC_StepAwareRepository>(extension).UpdateSteps(kprC_Steps(now_.model).Table());
  });
}

Outcome Session::Impl::Execute(cls_Value const& command) {
  ddr_Model const before = now_.model;
  std::size_t const changes = now_.changes.Size();
  Subject subject;
  Outcome outcome;
  std::optional<Told> told;
  auto const putBack = [&] {
    now_.model = before;
    now_.changes.TruncateTo(changes);
  };
  try {
    Arguments arguments(command, subject);
    bool const again = arguments.Command() == kUndo || arguments.Command() == kRedo;
    told = again ? UndoOrRedo(command, arguments, subject, outcome) : Do(command, arguments, subject, outcome);
    outcome.ok = true;
    if (arguments.DryRun() && !again) { putBack(); }
  } catch (std::bad_alloc const&) {
    putBack();
    throw;
  } catch (std::exception const& error) {
    putBack();
    TellRefused(outcome, subject, error);
    return outcome;
  }
  if (told) { Tell(*told, before); }
  return outcome;
}

std::optional<Session::Impl::Told> Session::Impl::Do(cls_Value const& command, Arguments& arguments, Subject& subject, Outcome& outcome) {
  ddr_Model const before = now_.model;
  std::size_t const changes = now_.changes.Size();
  Touched touched;
  Call call{now_.model, arguments, subject, touched, outcome.report};
  {
    CurrentHistory const current(now_.changes);
    Run(call);
  }
  Effect effect{!outcome.report.empty(), kEditWeight};
  if (call.is != nullptr) {
    Add(effect, call.was, call.is);
  } else if (outcome.report.empty()) {
    effect = EffectSince(before, touched);
  }
  if (!effect.changed) {
    kprC_StepDependent const* const item =
        touched.extension.IsEmpty() ? nullptr
                                    : now_.model.ConstGet<kprC_StepAwareRepository>(touched.extension).ConstItem(touched.names.front());
    if (item != nullptr) { subject.hint = StatusHint(*item, cow_String(subject.step)); }
    gattr::Tell(outcome, subject, {"", -1, "", "Nothing has changed."});
  }
  if (trace_ || arguments.DryRun()) { outcome.history = Histories(touched); }
  if (arguments.DryRun()) { outcome.effects = EffectsBetween(before, now_.model, touched.renames); }
  if (!outcome.report.empty() || arguments.DryRun()) { return {}; }
  std::optional<Told> told;
  bool const isHeard = !touched.renames.empty() || !listeners_.IsEmpty();
  if (effect.changed && isHeard) { told = Told{ChangeEvent::Cause::Command, subject.Text(), touched.renames}; }
  if (open_ != nullptr) {
    open_->commands.empty() ? void(open_->touched = std::move(touched)) : open_->touched.Add(touched);
    open_->commands.push_back(command);
  } else {
    Keep(command, {before, static_cast<Label const&>(subject), std::move(touched), effect.weight, changes, {}});
  }
  return told;
}

void Session::Impl::Begin() {
  if (open_ != nullptr) { throw std::logic_error("a transaction has begun already"); }
  open_ = std::make_unique<Open>(Open{now_.model, now_.changes.Size(), {}, {}});
}

std::unique_ptr<Session::Impl::Open> Session::Impl::End() {
  if (open_ == nullptr) { throw std::logic_error("no transaction has begun"); }
  return std::move(open_);
}

void Session::Impl::Commit() {
  std::unique_ptr<Open> const open = End();
  if (open->commands.empty()) { return; }
  Effect const effect = EffectSince(open->before, open->touched);
  Told const told{ChangeEvent::Cause::Command, std::string(kTransaction), open->touched.renames};
  cls_Value const command = cls_Value::Fields{{"command", kTransaction}, {std::string(kCommands), std::move(open->commands)}};
  Keep(command, {open->before, {told.label}, std::move(open->touched), effect.weight, open->changes, {}});
  if (effect.changed) { TellListeners(told, open->before); }  // names have followed command by command
}

void Session::Impl::Rollback() {
  std::unique_ptr<Open> const open = End();
  now_.model = open->before;
  now_.changes.TruncateTo(open->changes);
  for (Rename const& rename : Reversed(open->touched.renames)) { names_.Renamed(rename); }
}

void Session::Impl::Tell(Told const& told, ddr_Model const& before) {
  for (Rename const& rename : told.renames) { names_.Renamed(rename); }
  if (open_ == nullptr) { TellListeners(told, before); }
}

void Session::Impl::TellListeners(Told const& told, ddr_Model const& before) {
  if (listeners_.IsEmpty()) { return; }
  std::vector<ObjectChange> changes = ChangesBetween(before, now_.model, told.renames);
  if (!changes.empty()) { listeners_.Tell({told.cause, told.label, std::move(changes)}); }  // what changed nothing can be undone too
}

Session::Impl::Effect Session::Impl::EffectSince(ddr_Model const& before, Touched const& touched) const {
  if (touched.extension.IsEmpty()) { return {Differs(before), Weight(before)}; }
  auto const& was = before.ConstGet<kprC_StepAwareRepository>(touched.extension);
  auto const& is = now_.model.ConstGet<kprC_StepAwareRepository>(touched.extension);
  Effect effect{false, kEditWeight};
  for (cow_String const& name : touched.names) { Add(effect, was.ConstItem(name), is.ConstItem(name)); }
  return effect;
}

void Session::Impl::Add(Effect& effect, kprC_StepDependent const* was, kprC_StepDependent const* is) {
  if (was == is) { return; }
  effect.changed = effect.changed || was == nullptr || is == nullptr || !was->Equals(*is);
  effect.weight += was == nullptr ? kObjectWeight : was->WeightBeside(is);
}

bool Session::Impl::Differs(ddr_Model const& before) const {
  if (now_.model.Name() != before.Name() || now_.model.Space() != before.Space()) { return true; }
  auto const differs = [&](std::string_view member) {
    mdl_Extension const *const was = before.ConstExtension(member), *const is = now_.model.ConstExtension(member);
    return was != is && (was == nullptr || !was->Equals(*is));
  };
  if (differs(ddr_Model::stepsCmd())) { return true; }  // first: whatever follows from it differs too
  for (auto const& [member, extension] : now_.model.Extensions()) {
    if (differs(member)) { return true; }
  }
  return false;
}

std::optional<Session::Impl::Told> Session::Impl::UndoOrRedo(cls_Value const& command, Arguments const& arguments, Subject& subject,
                                                             Outcome& outcome) {
  arguments.AssertNoRest({});
  bool const undo = arguments.Command() == kUndo;
  if (open_ != nullptr) { RefuseEdit(subject, "A transaction has begun: commit it or roll it back first."); }
  Edits const& edits = undo ? now_.undo : now_.redo;
  if (edits.empty()) { RefuseEdit(subject, undo ? "There is nothing to undo." : "There is nothing to redo."); }
  Edit const& edit = *edits.back();
  Touched const touched = edit.touched;
  Told told{undo ? ChangeEvent::Cause::Undo : ChangeEvent::Cause::Redo, listeners_.IsEmpty() ? std::string() : edit.label.Text(),
            undo ? Reversed(touched.renames) : touched.renames};
  ddr_Model const before = now_.model;
  undo ? UndoEdit() : RedoEdit();
  if (trace_ || arguments.DryRun()) { outcome.history = Histories(touched); }
  if (arguments.DryRun()) {
    outcome.effects = EffectsBetween(before, now_.model, told.renames);
    undo ? RedoEdit() : UndoEdit();
    return {};
  }
  now_.journal.Append(command);
  return told;
}

void Session::Impl::ForgetPast() {
  keepsPast_ = false;
  now_ = Version{std::move(now_.model)};
  for (auto& [name, version] : others_) { version = Version{std::move(version.model)}; }
}

void Session::Impl::Keep(cls_Value const& command, Edit edit) {
  if (!keepsPast_) { return now_.changes.TruncateTo(0); }
  now_.redo.clear();
  now_.journal.Append(command);
  now_.undoWeight += edit.weight;
  now_.undo.push_back(cow_Handle<KeptEdit>::Make(std::move(edit)));
  for (; now_.undoWeight > undoMemory_ && now_.undo.size() > 1; now_.undo.pop_front()) { now_.undoWeight -= now_.undo.front()->weight; }
}

std::size_t Session::Impl::Weight(ddr_Model const& before) const {
  std::size_t weight = kEditWeight;
  kprC_StepTable const &steps = kprC_Steps(now_.model).Table(), &stepsBefore = kprC_Steps(before).Table();
  bool const grown = !steps.Same(stepsBefore) && steps.Continues(stepsBefore) && steps.Disturbed() == 0;  // no record has changed
  for (auto const& [member, now] : now_.model.Extensions()) {
    mdl_Extension const* const was = before.ConstExtension(member);
    if (was == now.ConstGet() || was == nullptr) { continue; }
    auto const* const attributes = mdl_ExtensionAs<kprC_StepAwareRepository>(was);
    if (grown && attributes != nullptr) {
      weight += kRestingWeight * attributes->Size();  // each stands on another version of the steps
      continue;
    }
    auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(now.ConstGet());
    mdl_Extension const& later = *now;
    bool const told = was->ForEachChange(later, [&](cow_String const& name, cls_Object const* object) {
      if (kprC_StepDependent const* const item = attributes == nullptr ? nullptr : attributes->ConstItem(name)) {
        weight += item->WeightBeside(static_cast<kprC_StepAwareRepository const&>(later).ConstItem(name));
      } else {
        cls_Object const* const same = named == nullptr ? nullptr : named->ConstObject(name.View());
        weight += kObjectWeight + (object == nullptr ? 0 : cls_HeldBytes(*object, {&same, 1}));
      }
    });
    if (!told) { weight += kStepsWeight + kprC_Steps(before).Size(); }
  }
  return weight;
}

void Session::Impl::UndoEdit() {
  cow_Handle<KeptEdit> edit = std::move(now_.undo.back());
  now_.undo.pop_back();
  Edit& own = edit.Get();
  now_.undoWeight -= own.weight;
  own.records.AppendFrom(now_.changes, own.changes);
  now_.changes.TruncateTo(own.changes);
  std::swap(now_.model, own.model);
  now_.redo.push_back(std::move(edit));
}

void Session::Impl::RedoEdit() {
  cow_Handle<KeptEdit> edit = std::move(now_.redo.back());
  now_.redo.pop_back();
  Edit& own = edit.Get();
  now_.changes.AppendFrom(own.records);
  own.records.TruncateTo(0);
  std::swap(now_.model, own.model);
  now_.undoWeight += own.weight;
  now_.undo.push_back(std::move(edit));
}

// ---- branches

void Session::Impl::AssertNoTransaction() const {
  if (open_ != nullptr) { throw std::logic_error("a transaction has begun: commit it or roll it back before another branch"); }
}

std::vector<std::string> Session::Impl::Branches() const {
  std::vector<std::string> names{branch_};
  for (auto const& [name, parked] : others_) { names.push_back(name); }
  std::ranges::sort(names);
  return names;
}

std::map<std::string, Session::Impl::Version, std::less<>>::iterator Session::Impl::Other(std::string_view name) {
  auto const found = others_.find(name);
  if (found != others_.end()) { return found; }
  throw std::invalid_argument("There is no branch " + Quoted(name) + ". " + Suggestion(name, Branches(), "Branches"));
}

void Session::Impl::Branch(std::string_view name) {
  AssertNoTransaction();
  if (name.empty() || !IsUtf8(name)) { throw std::invalid_argument("A branch needs a name in UTF-8."); }
  if (name == branch_ || others_.contains(name)) { throw std::invalid_argument("There is a branch " + Quoted(name) + " already."); }
  others_.emplace(branch_, now_);
  branch_ = name;
}

std::vector<Rename> Session::Impl::RenamesBetween(Edits const& from, Edits const& to) {
  auto const [begin, other] = std::ranges::mismatch(from, to);  // what both have done they share
  std::vector<Rename> forth, back;
  for (auto edit = begin; edit != from.end(); ++edit) {
    forth.insert(forth.end(), (*edit)->touched.renames.begin(), (*edit)->touched.renames.end());
  }
  back = Reversed(std::move(forth));
  for (auto edit = other; edit != to.end(); ++edit) {
    back.insert(back.end(), (*edit)->touched.renames.begin(), (*edit)->touched.renames.end());
  }
  return back;
}

void Session::Impl::Switch(std::string_view name) {
  AssertNoTransaction();
  if (name == branch_) { return; }
  auto const found = Other(name);
  Told const told{ChangeEvent::Cause::Switch, "switch " + Quoted(name), RenamesBetween(now_.undo, found->second.undo)};
  ddr_Model const before = now_.model;
  auto node = others_.extract(found);
  std::swap(now_, node.mapped());
  std::swap(branch_, node.key());
  others_.insert(std::move(node));
  Tell(told, before);
}

void Session::Impl::DeleteBranch(std::string_view name) {
  if (name == branch_) { throw std::invalid_argument("The branch " + Quoted(name) + " is worked in: switch to another one first."); }
  others_.erase(Other(name));
}

void Session::Branch(std::string_view name) { impl_->Branch(name); }
void Session::Switch(std::string_view name) { impl_->Switch(name); }
void Session::DeleteBranch(std::string_view name) { impl_->DeleteBranch(name); }
std::vector<std::string> Session::Branches() const { return impl_->Branches(); }
std::string const& Session::CurrentBranch() const { return impl_->branch_; }
ddr_Model const& Session::ModelOf(std::string_view branch) const {
  return branch == impl_->branch_ ? impl_->now_.model : impl_->Other(branch)->second.model;
}
std::vector<ObjectDifference> Session::Compare(std::string_view name, std::string_view other) const {
  return DifferencesBetween(ModelOf(other), ModelOf(name));
}

std::vector<NamedHistory> Session::Impl::Histories(Touched const& touched) const {
  std::vector<NamedHistory> histories;
  auto const tell = [&](std::string name, kprC_StepDependent const& item) {
    std::vector<int> statuses;
    for (mdl_PropagationStatusEnm const status : item.History()) { statuses.push_back(static_cast<int>(status)); }
    histories.emplace_back(std::move(name), std::move(statuses));
  };
  if (touched.all) {
    auto const isShared = [&](cow_String const& name) {
      int families = 0;
      ForEachRepository(now_.model, [&](auto const&, kprC_StepAwareRepository const& repository) {
        families += repository.ConstItem(name) != nullptr ? 1 : 0;
      });
      return families > 1;
    };
    ForEachRepository(now_.model, [&](auto const&, kprC_StepAwareRepository const& repository) {
      repository.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
        tell(isShared(name) ? ObjectText(repository.ItemCmd(), name) : std::string(name.View()), item);
      });
    });
  } else if (!touched.extension.IsEmpty()) {
    auto const& repository = now_.model.ConstGet<kprC_StepAwareRepository>(touched.extension);
    for (cow_String const& name : touched.names) {
      if (kprC_StepDependent const* item = repository.ConstItem(name)) { tell(std::string(name.View()), *item); }
    }
  }
  return histories;
}

std::vector<CommandInfo> Session::Commands() {
  std::vector<CommandInfo> infos = StepConstructions();
  for (auto const& more : {AttributeConstructions(), ReferenceConstructions()}) { infos.insert(infos.end(), more.begin(), more.end()); }
  for (ObjectCommand const& command : ObjectCommands(ddr_Model())) {
    CommandInfo info{std::string(command.name), "objects", std::string(command.meaning), command.arguments};
    info.kinds = ObjectKinds(ddr_Model(), command, command.name);
    info.members = command.members;
    if (command.onlyType != 0) { info.onlyClass = cls_MetadataRegistrar::Registrar().Find(command.onlyType)->name; }
    infos.push_back(std::move(info));
  }
  infos.push_back({std::string(kSetModel), "session", "gives the model a name", {Required("name", "the model's name")}});
  infos.push_back(
      {std::string(kSetModelSpace), "session", "says which space the model lives in", {Describe(SpaceArgument(), ddr_Model(), true)}});
  infos.push_back({std::string(kReleaseRegions), "session", "lets go of the regions that deleted steps have left without an owner", {}});
  ArgumentInfo commands = Required(kCommands, "the commands, in their order");
  commands.kind = ValueKind::Object;
  commands.depth = 1;
  commands.className = "command";
  infos.push_back({std::string(kTransaction), "session", "runs several commands as one: all or none, to be undone together", {commands}});
  infos.push_back({std::string(kUndo), "session", "puts back the model before the last command", {}});
  infos.push_back({std::string(kRedo), "session", "does again what undo took back", {}});
  return infos;
}

std::vector<ClassInfo> Session::ValueClasses() {
  std::vector<ClassInfo> classes;
  std::function<void(std::vector<ArgumentInfo> const&)> const collect = [&](std::vector<ArgumentInfo> const& arguments) {
    for (ArgumentInfo const& argument : arguments) {
      if (argument.className.empty() || !argument.refers.empty()) { continue; }
      if (std::ranges::find(classes, argument.className, &ClassInfo::name) != classes.end()) { continue; }
      cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(argument.className);
      if (type == nullptr) { continue; }  // commands
      std::vector<ArgumentInfo> members;
      Describe(members, *type->make());
      classes.push_back({argument.className, members});
      collect(members);
    }
  };
  for (CommandInfo const& command : Commands()) { collect(command.arguments); }
  return classes;
}

std::vector<KindInfo> Session::Kinds() {
  std::vector<KindInfo> kinds = {{std::string(kprC_Step::stepCmd().View()), std::string(ddr_Model::stepsCmd().View())}};
  ForEachRepository(ddr_Model(), [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    kinds.push_back({std::string(repository.ItemCmd()), std::string(extension.View())});
  });
  for (ReferenceKind const& kind : ReferenceKinds()) { kinds.push_back({std::string(kind.kind), std::string(kind.extension)}); }
  return kinds;
}

std::vector<ArgumentInfo> CommandInfo::Listed() const {
  std::vector<ArgumentInfo> listed = arguments;
  if (!kinds.empty()) {
    std::string names;
    for (std::string const& one : kinds) { names += (names.empty() ? "" : " | ") + one; }
    listed.insert(listed.begin(), Required(names, "name of the object, under its kind"));
  }
  constexpr std::string_view kMeanings[] = {"", "a member of the object, as its construction takes it",
                                            R"(a member of the attribute's state: a value, "UNSET" or "FREED")",
                                            "a member of the new procedure"};
  if (members == ObjectMembers::None) { return listed; }
  listed.push_back(Optional("<member>", kMeanings[static_cast<std::size_t>(members)]));
  listed.back().kind = ValueKind::Object;
  listed.back().className = "any";
  return listed;
}

}  // namespace gattr
