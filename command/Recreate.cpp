#include "command/Recreate.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "command/Command.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "text/Text.h"

namespace gattr {

namespace {

using Fields = cls_Value::Fields;
using Commands = std::vector<cls_Value>;

Fields Begin(std::string_view command) { return {{"command", std::string(command)}}; }
void Add(Fields& to, std::string_view name, std::string_view text) { to.emplace_back(name, std::string(text)); }

/// The members that commands set in which \p object differs from \p fresh, and those of \p also.
void AddDiffering(Fields& to, cls_Object const& object, cls_Object const& fresh, std::set<std::string_view> const& also = {}) {
  for (cls_MemberRow const& row : object.MemberRows()) {
    if (!row.text.settable || row.again) { continue; }
    void const *const member = row.In(static_cast<void const*>(&object)), *const preset = row.In(static_cast<void const*>(&fresh));
    if (row.ops->equal(member, preset) && !also.contains(ArgumentName(row))) { continue; }
    to.emplace_back(ArgumentName(row), row.ToValue(&object));
  }
}

/// The first member in which both differ, by what commands call it; empty where there is none.
std::string_view DifferingMember(cls_Object const& a, cls_Object const& b, bool settableOnly = false) {
  for (cls_MemberRow const& row : a.MemberRows()) {
    if (settableOnly && (!row.text.settable || row.again)) { continue; }
    if (!row.ops->equal(row.In(static_cast<void const*>(&a)), row.In(static_cast<void const*>(&b)))) { return ArgumentName(row); }
  }
  return {};
}

bool IsSaid(cls_MemberRow const& row, cls_Object const& state) {
  return row.ops->isModified != nullptr && row.ops->isModified(row.In(static_cast<void const*>(&state)));
}
/// Whether \p state sets or frees anything; an own record that does not is there to be switched off.
bool Says(cls_Object const& state) {
  return std::ranges::any_of(state.MemberRows(), [&](cls_MemberRow const& row) { return IsSaid(row, state); });
}
/// The members that \p state sets or frees, as commands give them.
void AddSaid(Fields& to, cls_Object const& state) {
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (IsSaid(row, state) && row.text.settable && !row.again) { to.emplace_back(ArgumentName(row), row.ToValue(&state)); }
  }
}

/// Whether it is given already.
bool HasField(Fields const& arguments, std::string_view name) {
  return std::ranges::find(arguments, name, &Fields::value_type::first) != arguments.end();
}

/// Any values for the members of a state that take numbers, for an attribute that has to say something to be created.
void AddAnyValues(Fields& to, cls_Object const& state) {
  for (MemberArgument const& argument : MemberArguments(state)) {
    bool const isNumber = argument.info->kind == cls_MemberKind::Real && argument.info->propagating && !argument.info->again;
    if (!isNumber || HasField(to, argument.argument)) { continue; }
    to.emplace_back(argument.argument, argument.info->many ? cls_Value(cls_Value::List{1.0}) : cls_Value(1.0));
  }
}

/// What may be tried for each member of a state, one value after the other.
Fields ValuesToTry(cls_Object const& state) {
  Fields values;
  for (MemberArgument const& argument : MemberArguments(state)) {
    cls_MemberInfo const& info = *argument.info;
    if (info.again || info.refers != cls_Reference::None) { continue; }
    cls_Value::List any;
    switch (info.kind) {
      case cls_MemberKind::Integer:
      case cls_MemberKind::Real: any = {1}; break;
      case cls_MemberKind::Boolean: any = {true}; break;
      case cls_MemberKind::Enumerated: any = {info.permissible.begin(), info.permissible.end()}; break;
      case cls_MemberKind::String: any = {"Any"}; break;
      case cls_MemberKind::Object: break;
    }
    for (cls_Value& one : any) {
      values.emplace_back(argument.argument, info.many ? cls_Value(cls_Value::List{std::move(one)}) : std::move(one));
    }
  }
  return values;
}

/// Calls \p does(fields) with nothing, then with each of \p values, then with each two of them, until it says yes.
template <class Does> bool TryUpToTwo(Fields const& values, Does&& does) {
  if (does(Fields{})) { return true; }
  for (auto const& one : values) {
    if (does(Fields{one})) { return true; }
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    for (std::size_t j = i + 1; j < values.size(); ++j) {
      if (values[i].first != values[j].first && does(Fields{values[i], values[j]})) { return true; }
    }
  }
  return false;
}

class Maker {
public:
  Maker(ddr_Model const& model, std::function<void(cls_Value const&)> const& take) : model_(model), take_(take) {}

  std::vector<Unmade> Run() {
    MakeSettings();
    MakeReferences(false);
    MakeSteps();
    // All attributes stand on the model's own version of the sequence, so that comparing them costs what they say.
    MakeAttributes();
    MakeReferences(true);
    MakeDangling();
    CompareRest();
    for (cls_Value const& command : commands_) { take_(command); }
    return std::move(unmade_);
  }

private:
  /// A procedure, and parameters with which a step of it may be made.
  struct Candidate {
    unsigned procedureType;
    std::string procedure;
    Fields members;
  };
  static Outcome Done() {
    Outcome outcome;
    outcome.ok = true;
    return outcome;
  }
  /// What running commands on a model gives.
  struct Trial {
    ddr_Model model;
    Outcome refused;  // ok unless a command was
    Commands commands;
    bool differs = false;  // whether something else comes out

    bool IsDone() const { return refused.ok && !differs; }
    void Then(Maker const& maker, Commands const& more) {
      Trial then = maker.Try(model, more);
      commands.insert(commands.end(), more.begin(), more.end());
      model = std::move(then.model);
      refused = std::move(then.refused);
    }
  };
  Trial Try(ddr_Model const& on, Commands commands) const {
    Session session(on);
    session.ForgetPast();
    Outcome outcome = Done();
    for (cls_Value const& command : commands) {
      outcome = session.Execute(command);
      if (!outcome.ok) { break; }
    }
    return {session.Model(), std::move(outcome), std::move(commands)};
  }
  void Keep(Trial trial) {
    made_ = std::move(trial.model);
    commands_.insert(commands_.end(), std::make_move_iterator(trial.commands.begin()), std::make_move_iterator(trial.commands.end()));
  }
  void Miss(std::string object, Trial const& trial, std::string step = {}, std::string member = {}) {
    Outcome const& refused = trial.refused;
    if (refused.ok) { return unmade_.push_back({std::move(object), std::move(step), std::move(member), "it comes out otherwise"}); }
    if (!refused.step.empty()) { step = refused.step; }
    if (!refused.member.empty()) { member = refused.member; }
    unmade_.push_back({std::move(object), std::move(step), std::move(member), refused.message});
  }

  void MakeSettings() {
    Commands commands;
    ddr_Model const fresh;
    if (model_.Name() != fresh.Name()) {
      Fields command = Begin("setModel");
      Add(command, kName, model_.Name().View());
      commands.emplace_back(std::move(command));
    }
    if (model_.Space() != fresh.Space()) {
      Fields command = Begin("setModelSpace");
      command.emplace_back(ddr_Model::spaceCmd(), model_.Member(ddr_Model::spaceCmd()));
      commands.emplace_back(std::move(command));
    }
    Keep(Try(made_, commands));
  }

  // ---- what others refer to

  void MakeReferences(bool needModel) {
    for (ReferenceKind const& kind : ReferenceKinds()) {
      if ((kind.assertInModel != nullptr) != needModel) { continue; }
      for (cow_String const& name : kind.In(model_).Keys()) { MakeReference(kind, name); }
    }
  }

  void MakeReference(ReferenceKind const& kind, cow_String const& name) {
    if (!begun_.emplace(kind.extension, name.View()).second) { return; }
    cls_Object const& object = *kind.In(model_).ConstObject(name.View());
    ForEachNamed(object, [&](cls_MemberRow const&, cls_Reference reference, std::string_view other, cls_Object const*) {
      ReferenceKind const* const needed = FindReferenceKind(reference);
      if (needed != nullptr && needed->In(model_).ConstObject(other) != nullptr) { MakeReference(*needed, cow_String(other)); }
    });
    auto const [command, fresh] = FindDeclaration(kind, object);
    Trial trial{made_, {}, {}};
    if (fresh != nullptr) {
      Fields arguments = Begin(command);
      Add(arguments, kName, name.View());
      AddDiffering(arguments, object, *fresh);
      Commands const commands{std::move(arguments)};
      trial = Try(made_, commands);
      cls_Object const* const made = kind.In(std::as_const(trial.model)).ConstObject(name.View());
      if (trial.refused.ok && made != nullptr && made->Equals(object)) { return Keep(std::move(trial)); }
      Miss(ObjectText(kind.kind, name), trial, {}, made == nullptr ? std::string() : std::string(DifferingMember(*made, object)));
    } else {
      unmade_.push_back({ObjectText(kind.kind, name), {}, {}, "no command declares an object of that class"});
    }
    kind.In(made_).Put(name, object);  // for those that name it
  }

  // ---- steps

  void MakeSteps() {
    kprC_StepContainer const& steps = kprC_Steps(model_);
    for (std::size_t i = 1; i < steps.Size(); ++i) {
      kprC_Step const& step = steps.Step(i);
      cow_String const name = steps.Name(i);
      std::string const command(kprC_FindProcedure(step.DynTypeId())->command.View());
      kprC_StepHandle const fresh = kprC_ConstructStep(command);
      // what commands complete by themselves is left out, as long as the step comes out so
      std::set<std::string_view> completed{kprC_StepParameters::initialIncCmd(), kprC_StepParameters::minIncCmd(),
                                           kprC_StepParameters::maxIncCmd()};
      std::set<std::string_view> also;
      for (bool again = true; again;) {
        Fields arguments = Begin(command);
        Add(arguments, kName, name.View());
        AddDiffering(arguments, step, *fresh, also);
        std::erase_if(arguments, [&](auto const& argument) { return completed.contains(argument.first); });
        Commands const commands{std::move(arguments)};
        Trial trial = Try(made_, commands);
        kprC_StepContainer const& made = kprC_Steps(std::as_const(trial.model));
        bool const isThere = trial.refused.ok && made.Size() == i + 1;
        if (isThere && made.Step(i).Equals(step)) {
          Keep(std::move(trial));
          break;
        }
        // what the command completes by itself has to be said
        std::string_view const member = isThere ? DifferingMember(made.Step(i), step, true) : std::string_view();
        again = !member.empty() && (completed.erase(member) != 0 || also.insert(member).second);
        again = again || std::exchange(completed, {}).size() != 0;
        if (again) { continue; }
        Miss(ObjectText(kprC_Step::stepCmd(), name), trial, {}, isThere ? std::string(DifferingMember(made.Step(i), step)) : "");
        if (isThere) {
          Keep(std::move(trial));
          kprC_ReplaceStep(made_, name, steps.Handle(i));
        } else {
          kprC_InsertStep(made_, steps.Name(i - 1), name, steps.Handle(i));
        }
      }
    }
  }

  // ---- attributes

  void MakeAttributes() {
    ddr_Model bare = model_;
    for (auto const& [member, extension] : model_.Extensions()) {
      auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
      if (repository == nullptr) { continue; }
      auto& own = bare.Get<kprC_StepAwareRepository>(member);
      for (cow_String const& name : repository->Keys()) { own.Remove(name); }
      own.ReleaseDanglingRegions();
    }
    for (ReferenceKind const& kind : ReferenceKinds()) {
      if (kind.assertInModel == nullptr) { continue; }
      for (cow_String const& name : kind.In(model_).Keys()) { kind.In(bare).Remove(name); }
    }
    // Most are made on the steps as they are. One that is not was made while they were others: it comes before all that stand on them.
    auto const begun = begun_;
    std::size_t const commands = commands_.size(), unmade = unmade_.size();
    for (std::size_t hard = 0;; hard = hard_.size()) {
      begun_ = begun;
      commands_.resize(commands);
      unmade_.resize(unmade);
      made_ = bare;
      MakeHard();
      ForEachRepository(model_, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
        for (cow_String const& name : repository.Keys()) { MakeAttribute(extension, repository, name); }
      });
      if (hard_.size() == hard) { break; }
    }
  }

  /// Makes the attributes that \p object names.
  void MakeNamed(cls_Object const& object) {
    ForEachNamed(object, [&](cls_MemberRow const&, cls_Reference reference, std::string_view other, cls_Object const*) {
      FindRepository(model_, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
        if (reference == cls_Reference::None || repository.Reference() != reference) { return false; }
        if (auto const* const item = repository.ConstItem(other)) { MakeAttribute(extension, repository, item->Name()); }
        return true;
      });
    });
  }

  /// An attribute, by its repository and name.
  struct User {
    cow_String extension, name;
    friend bool operator==(User const&, User const&) = default;
  };
  struct Records {
    Commands changes, offs, inOrder;
  };
  Records RecordsOf(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, std::size_t create) const {
    Records records;
    kprC_Operation const* const off = FindOperation(repository, kprC_Effect::SwitchOff);
    item.ForEachRecord([&](std::size_t index, mdl_PropagationStatusEnm status, cls_Object const* state) {
      if (state == nullptr || !kprC_StepAwareRepository::SaysSomething(item, index)) { return; }
      bool const isOff = index == create ? status != mdl_PropagationStatusEnm::Created : !Says(*state);
      if (index == create && !isOff) { return; }
      Fields command = Begin(isOff && off != nullptr ? off->command : std::string_view("setValuesInStep"));
      Add(command, repository.ItemCmd(), item.Name().View());
      Add(command, kStepName, item.Steps().Name(index).View());
      if (!isOff) {
        std::size_t const size = command.size();
        AddSaid(command, *state);
        if (command.size() == size) { return; }  // what it says is made by edits of its type
      }
      (isOff ? records.offs : records.changes).emplace_back(command);
      records.inOrder.emplace_back(std::move(command));
    });
    Commands edits = TypeEditsOf(repository, item);
    if (edits.empty()) { return records; }
    records.inOrder.clear();  // they are done where it is not switched off yet
    records.changes.insert(records.changes.end(), std::make_move_iterator(edits.begin()), std::make_move_iterator(edits.end()));
    return records;
  }

  /// What edits of its type have made. Those of steps that have gone are done \p instead, or in a step that is made for them.
  Commands TypeEditsOf(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, cow_String const& instead = {}) const {
    Commands commands;
    std::string const goneStep = instead.IsEmpty() ? FreeStepName() : std::string(instead.View());
    bool gone = false;
    item.ForEachTypeEdit([&](std::string_view command, cow_String const& step, cls_Object const& arguments) {
      auto const inStep =
          std::ranges::any_of(repository.TypeEdits(), [&](kprC_TypeEdit const& edit) { return edit.command == command && edit.inStep; });
      gone = gone || (inStep && step.IsEmpty());
      Fields edit = Begin(command);
      Add(edit, repository.ItemCmd(), item.Name().View());
      if (inStep) { Add(edit, kStepName, step.IsEmpty() ? goneStep : step.View()); }
      std::unique_ptr<cls_Object> const fresh = ClassOf(arguments).make();
      AddDiffering(edit, arguments, *fresh);
      commands.emplace_back(std::move(edit));
    });
    if (!gone || !instead.IsEmpty()) { return commands; }
    for (Candidate const& candidate : Candidates()) {
      kprC_StepHandle const step = kprC_ConstructStep(candidate.procedure);
      if (step->Perturbation() || !item.Admits(kprC_StepFacts(step.ConstGet()), true)) { continue; }
      commands.insert(commands.begin(), Constructing(candidate, goneStep));
      commands.emplace_back(Deleting(goneStep));
      break;
    }
    return commands;
  }
  static cls_Value Deleting(std::string_view step) {
    Fields command = Begin("delete");
    Add(command, kprC_Step::stepCmd(), step);
    return command;
  }

  void MakeAttribute(cow_String const& extension, kprC_StepAwareRepository const& repository, cow_String const& name) {
    if (!begun_.emplace(extension.View(), name.View()).second) { return; }
    kprC_StepDependent const& item = *repository.ConstItem(name.View());
    MakeNamed(item);
    std::string const object = ObjectText(repository.ItemCmd(), name);
    cow_String const createStep = item.CreateStepName();
    std::size_t const create = item.Steps().Find(createStep.View());
    if (create == kprC_StepTable::npos) { return MakeEmpty(extension, repository, item); }
    Trial trial = TryAttribute(made_, extension, repository, item, [&](Trial const& made) { return Comes(made, extension, item); });
    if (trial.IsDone()) { return Keep(std::move(trial)); }
    bool const mayBeOfSteps = trial.refused.ok || !trial.refused.badInput;  // a name that the model does not have is not had on others
    if (mayBeOfSteps && std::ranges::find(hard_, User{extension, name}) == hard_.end()) { hard_.push_back({extension, name}); }
    MissAttribute(object, extension, item, trial);
    made_.Get<kprC_StepAwareRepository>(extension).InsertItem(name, item);
  }

  /// Whether what was made is the attribute.
  using Accept = std::function<bool(Trial const& trial)>;

  /// Makes the attribute on \p on; the commands that do, or what is refused or comes out otherwise.
  Trial TryAsCreated(ddr_Model const& on, cow_String const& extension, kprC_StepAwareRepository const& repository,
                     kprC_StepDependent const& item, Accept const& accept) const {
    cow_String const& name = item.Name();
    std::size_t const create = item.Steps().Find(item.CreateStepName().View());
    Trial trial;
    std::set<std::string_view> also;
    Commands construction;
    for (bool again = create != kprC_StepTable::npos; again;) {
      Commands with{Construction(repository, item, create, also)};
      Trial then = Try(on, with);
      if (!then.refused.ok && !construction.empty()) { break; }  // it may become so when its step does
      for (MemberArgument const& argument : MemberArguments(*item.StateAt(create))) {
        if (then.refused.ok) { break; }
        if (argument.info->kind != cls_MemberKind::Enumerated || argument.info->again) { continue; }
        with = {Construction(repository, item, create, {argument.argument})};  // a choice that is left out may follow from the rest
        then = Try(on, with);
      }
      construction = std::move(with);
      trial = std::move(then);
      kprC_StepDependent const* const made = trial.model.ConstGet<kprC_StepAwareRepository>(extension).ConstItem(name.View());
      if (!trial.refused.ok || made == nullptr) { break; }
      std::string_view member = DifferingMember(*made->StateAt(create), *item.StateAt(create), true);
      if (member.empty()) { member = DifferingMember(*made, item, true); }
      again = !member.empty() && also.insert(member).second;
    }
    if (!trial.refused.ok) { return trial; }
    Records const records = RecordsOf(repository, item, create);
    std::vector<Commands> ways{records.changes};
    ways.back().insert(ways.back().end(), records.offs.rbegin(), records.offs.rend());
    if (records.inOrder.size() > 1) {  // what reads best comes first
      ways.insert(ways.begin(), records.inOrder);
      ways.emplace_back(records.inOrder.rbegin(), records.inOrder.rend());
    }
    for (Commands& way : ways) {
      Commands commands = construction;
      commands.insert(commands.end(), way.begin(), way.end());
      if (item.IsSuppressed()) { commands.push_back(Suppressing(repository, item)); }
      Trial whole = Try(trial.model, {commands.begin() + 1, commands.end()});
      bool const isMade = whole.refused.ok && accept(whole);
      if (isMade || &way == &ways.back()) {
        whole.commands = std::move(commands);
        whole.differs = whole.refused.ok && !isMade;
        return whole;
      }
    }
    return trial;
  }
  /// The same, and where that does not do as one that was created in another step.
  Trial TryAttribute(ddr_Model const& on, cow_String const& extension, kprC_StepAwareRepository const& repository,
                     kprC_StepDependent const& item, Accept const& accept) const {
    Trial trial = TryAsCreated(on, extension, repository, item, accept);
    if (trial.IsDone()) { return trial; }
    bool const isOff = item.Status(item.CreateStepName()) != mdl_PropagationStatusEnm::Created;
    Trial other;
    if (isOff) { other = TryCreatedOff(on, repository, item, accept); }
    if (!other.IsDone()) { other = TryMoved(on, repository, item, accept); }
    return other.IsDone() ? other : trial;
  }

  /// One without any record: its creation has been taken back. Where none of the steps creates it, one does that is made for it.
  void MakeEmpty(cow_String const& extension, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item) {
    kprC_StepTable const& steps = item.Steps();
    Trial trial{made_, Done(), {}};
    for (std::size_t at = 0; at < steps.Size(); ++at) {
      if (MakeEmptyIn(trial, repository, item, steps.Name(at), steps.ProcedureType(at)) && Comes(trial, extension, item)) {
        return Keep(std::move(trial));
      }
      trial = {made_, Done(), {}};
    }
    std::string const step = FreeStepName();
    for (Candidate const& candidate : Candidates()) {
      for (std::string_view const previous : {std::string_view(), std::string_view(kprC_Step::initialCmd())}) {
        Fields insert = Constructing(candidate, step);
        if (!previous.empty()) { Add(insert, "previous", previous); }
        Trial apart = Try(made_, {std::move(insert)});
        if (!apart.refused.ok || !MakeEmptyIn(apart, repository, item, cow_String(step), candidate.procedureType)) { continue; }
        apart.Then(*this, {Deleting(step)});
        if (Comes(apart, extension, item)) { return Keep(std::move(apart)); }
      }
    }
    unmade_.push_back(
        {ObjectText(repository.ItemCmd(), item.Name()), {}, {}, "it says nothing in any step, and none is found that creates it"});
    made_.Get<kprC_StepAwareRepository>(extension).InsertItem(item.Name(), item);
  }
  bool MakeEmptyIn(Trial& trial, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, cow_String const& step,
                   unsigned procedureType) const {
    std::unique_ptr<kprC_StepDependent> const fresh = repository.Construct(item.ConstructionName());
    fresh->Begin(step, procedureType);
    Fields construction = Begin(item.ConstructionName()), remove = Begin("remove");
    Add(construction, kName, item.Name().View());
    Add(construction, kCreateStep, step.View());
    AddDiffering(construction, item, *fresh);
    Add(remove, repository.ItemCmd(), item.Name().View());
    Add(remove, kStepName, step.View());
    auto const make = [&](Fields const& values) {
      Fields with = construction;
      with.insert(with.end(), values.begin(), values.end());
      Trial then = trial;
      then.Then(*this, {with});
      if (!then.refused.ok) { return false; }
      then.Then(*this, TypeEditsOf(repository, item, step));
      if (then.refused.ok) { then.Then(*this, {remove}); }
      if (then.refused.ok && item.IsSuppressed()) { then.Then(*this, {Suppressing(repository, item)}); }
      if (!then.refused.ok) { return false; }
      trial = std::move(then);
      return true;
    };
    Fields numbers;
    AddAnyValues(numbers, *fresh->StateAt(0));
    return make({}) || make(numbers) || TryUpToTwo(ValuesToTry(*fresh->StateAt(0)), make);
  }
  static bool Comes(Trial const& trial, cow_String const& extension, kprC_StepDependent const& item) {
    auto const* const made = trial.model.ConstGet<kprC_StepAwareRepository>(extension).ConstItem(item.Name().View());
    return trial.refused.ok && made != nullptr && made->Equals(item);
  }

  /// One that is created in the step at \p at, with \p first behind the construction and \p last behind what it says.
  Trial TryCreatedAt(ddr_Model const& on, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, std::size_t create,
                     std::size_t at, Commands const& first, Commands const& last, Accept const& accept) const {
    Records const records = RecordsOf(repository, item, create);
    Commands commands{Construction(repository, item, create, {}, at)};
    commands.insert(commands.end(), first.begin(), first.end());
    commands.insert(commands.end(), records.changes.begin(), records.changes.end());
    commands.insert(commands.end(), records.offs.rbegin(), records.offs.rend());
    commands.insert(commands.end(), last.begin(), last.end());
    if (item.IsSuppressed()) { commands.push_back(Suppressing(repository, item)); }
    Trial trial = Try(on, std::move(commands));
    trial.differs = trial.refused.ok && !accept(trial);
    return trial;
  }

  /// One that begins switched off: it was created in an earlier step, switched off, and that creation taken back.
  Trial TryCreatedOff(ddr_Model const& on, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item,
                      Accept const& accept) const {
    std::size_t const create = item.Steps().Find(item.CreateStepName().View());
    Trial trial{on, {}, {}};
    for (std::size_t at = create; at-- > 0 && !trial.IsDone();) {
      Fields remove = Begin("remove");
      Add(remove, repository.ItemCmd(), item.Name().View());
      Add(remove, kStepName, item.Steps().Name(at).View());
      trial = TryCreatedAt(on, repository, item, create, at, {}, {std::move(remove)}, accept);
    }
    return trial;
  }

  /// One that was created in another step and moved.
  Trial TryMoved(ddr_Model const& on, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item,
                 Accept const& accept) const {
    std::size_t const create = item.Steps().Find(item.CreateStepName().View());
    kprC_Operation const* const move = FindOperation(repository, kprC_Effect::Move);
    Trial trial{on, {}, {}};
    if (move == nullptr) { return trial; }
    for (std::size_t at = 0; at < item.Steps().Size() && !trial.IsDone(); ++at) {
      if (at == create) { continue; }
      Fields moving = Begin(move->command);
      Add(moving, repository.ItemCmd(), item.Name().View());
      Add(moving, kFromStep, item.Steps().Name(at).View());
      Add(moving, kToStep, item.CreateStepName().View());
      trial = TryCreatedAt(on, repository, item, create, at, {std::move(moving)}, {}, accept);
    }
    return trial;
  }

  static cls_Value Suppressing(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item) {
    Fields suppress = Begin("suppress");
    Add(suppress, repository.ItemCmd(), item.Name().View());
    return suppress;
  }

  // An attribute may say something in steps that no longer take it: their procedures have been replaced since, while it was suppressed
  // or switched off earlier.

  /// Makes those that are not made on the steps as they are: on others, before anything else stands on them. All are suppressed until
  /// the last is there.
  void MakeHard() {
    Commands resumed;
    for (User const& user : hard_) {
      auto const& repository = model_.ConstGet<kprC_StepAwareRepository>(user.extension);
      kprC_StepDependent const& item = *repository.ConstItem(user.name.View());
      ddr_Model scratch = model_;
      kprC_StepDependent& suppressed = *scratch.Get<kprC_StepAwareRepository>(user.extension).Item(user.name.View());
      suppressed.Suppress();
      Fields resume = Begin("resume");
      Add(resume, repository.ItemCmd(), user.name.View());
      bool isMade = MakeOnOtherSteps(user, repository, suppressed, [&](Trial const& trial) {
        if (item.IsSuppressed()) { return true; }
        return Comes(Try(trial.model, {resume}), user.extension, item);
      });
      if (isMade && !item.IsSuppressed()) { resumed.emplace_back(std::move(resume)); }
      isMade = isMade || (!item.IsSuppressed() && MakeOnOtherSteps(user, repository, item, [](Trial const&) { return true; }));
      if (isMade) { begun_.emplace(user.extension.View(), user.name.View()); }
    }
    Keep(Try(made_, std::move(resumed)));
  }

  template <class Goes>
  bool MakeOnOtherSteps(User const& user, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, Goes&& goes) {
    if (item.CreateStepName().IsEmpty()) { return false; }
    MakeNamed(item);
    auto const isIt = [&](Trial const& made) { return Comes(made, user.extension, item) && goes(made); };
    if (Trial alone = TryAttribute(made_, user.extension, repository, item, isIt); alone.IsDone()) {
      Keep(std::move(alone));
      return true;
    }
    std::vector<std::size_t> own, all, unfit;
    for (std::size_t i = 1; i < item.Steps().Size(); ++i) { all.push_back(i); }
    item.ForEachRecord([&](std::size_t index, mdl_PropagationStatusEnm, cls_Object const* state) {
      if (state == nullptr || index == 0 || !kprC_StepAwareRepository::SaysSomething(item, index)) { return; }
      bool const isCreation = item.Steps().Name(index) == item.CreateStepName();
      own.push_back(index);
      if (isCreation || !item.Admits(item.Steps().Facts(index), true)) { unfit.push_back(index); }
    });
    std::vector<Candidate> const candidates = Candidates();
    std::set<std::vector<std::size_t>> tried{{}};  // on the steps as they are it has been tried
    for (std::vector<std::size_t> const& others : {unfit, own, all}) {
      if (!tried.insert(others).second) { continue; }
      for (Candidate const& candidate : candidates) {
        Trial trial{made_, Done(), {}};
        for (std::size_t const at : others) {
          if (trial.refused.ok) { trial.Then(*this, {Replacing(at, candidate.procedure, PlainMembers(at, candidate))}); }
        }
        if (!trial.refused.ok) { continue; }
        Trial whole;
        Trial const made = TryAttribute(trial.model, user.extension, repository, item, [&](Trial const& attribute) {
          whole = {attribute.model, Done(), {}};
          for (std::size_t i = others.size(); i-- > 0 && whole.refused.ok;) { ReplaceBack(whole, others[i]); }
          return isIt(whole);
        });
        if (!made.IsDone()) { continue; }
        trial.commands.insert(trial.commands.end(), made.commands.begin(), made.commands.end());
        trial.commands.insert(trial.commands.end(), whole.commands.begin(), whole.commands.end());
        trial.model = std::move(whole.model);
        Keep(std::move(trial));
        return true;
      }
    }
    return false;
  }

  /// Parameters that make a step of the procedure a plain one: those of the step before it would stay.
  Fields PlainMembers(std::size_t at, Candidate const& candidate) const {
    Fields members = candidate.members;
    kprC_Step const& step = kprC_Steps(model_).Step(at);
    kprC_StepHandle const plain = kprC_ConstructStep(candidate.procedure);
    for (cls_MemberRow const& row : plain->MemberRows()) {
      bool const isFlag = row.text.settable && !row.again && plain->Member(row.name).As<bool>() != nullptr;
      if (isFlag && step.Member(row.name) != plain->Member(row.name) && !HasField(members, ArgumentName(row))) {
        members.emplace_back(ArgumentName(row), plain->Member(row.name));
      }
    }
    return members;
  }
  cls_Value Replacing(std::size_t at, std::string_view procedure, Fields members) const {
    Fields command = Begin("replace");
    Add(command, kprC_Step::stepCmd(), kprC_Steps(model_).Name(at).View());
    Add(command, "procedure", procedure);
    command.emplace_back(kprC_Step::maintainAttributesCmd(), true);
    for (auto& member : members) { command.push_back(std::move(member)); }
    return command;
  }
  /// Gives the step the procedure and the parameters that it has in the model.
  void ReplaceBack(Trial& trial, std::size_t at) const {
    kprC_Step const& step = kprC_Steps(model_).Step(at);
    std::string const procedure(kprC_FindProcedure(step.DynTypeId())->command.View());
    kprC_StepHandle const fresh = kprC_ConstructStep(procedure);
    std::set<std::string_view> also;
    for (bool again = true; again;) {
      Fields members;
      AddDiffering(members, step, *fresh, also);
      Trial back = trial;
      back.Then(*this, {Replacing(at, procedure, std::move(members))});
      std::string_view const member = back.refused.ok ? DifferingMember(kprC_Steps(std::as_const(back.model)).Step(at), step, true) : "";
      again = !member.empty() && also.insert(member).second;
      if (again) { continue; }
      trial = std::move(back);
      trial.refused.ok = trial.refused.ok && kprC_Steps(std::as_const(trial.model)).Step(at).Equals(step);
    }
  }

  /// The command that creates the attribute with what it says in \p create; in \p step where that is another one.
  cls_Value Construction(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, std::size_t create,
                         std::set<std::string_view> const& also, std::optional<std::size_t> step = {}) const {
    Fields command = Begin(item.ConstructionName());
    Add(command, kName, item.Name().View());
    std::size_t const at = step.value_or(create);
    Add(command, kCreateStep, item.Steps().Name(at).View());
    std::unique_ptr<kprC_StepDependent> const fresh = repository.Construct(item.ConstructionName());
    fresh->Begin(item.Steps().Name(at), item.Steps().ProcedureType(at));
    AddDiffering(command, item, *fresh, also);
    AddDiffering(command, *item.StateAt(create), *fresh->StateAt(0), also);
    return command;
  }

  void MissAttribute(std::string const& object, cow_String const& extension, kprC_StepDependent const& item, Trial const& trial) {
    auto const* const made = trial.model.ConstGet<kprC_StepAwareRepository>(extension).ConstItem(item.Name().View());
    if (!trial.refused.ok || made == nullptr) { return Miss(object, trial, std::string(item.CreateStepName().View())); }
    std::string step, member(DifferingMember(*made, item, true));
    for (std::size_t i = 0; member.empty() && step.empty() && i < item.Steps().Size(); ++i) {
      cls_Object const *const is = made->StateAt(i), *const was = item.StateAt(i);
      bool const same = made->StatusAt(i) == item.StatusAt(i) && (is == nullptr || was == nullptr ? is == was : is->Equals(*was));
      if (same) { continue; }
      step = item.Steps().Name(i).View();
      if (is != nullptr && was != nullptr && is->DynTypeId() == was->DynTypeId()) { member = DifferingMember(*is, *was); }
    }
    Miss(object, trial, std::move(step), std::move(member));
  }

  // ---- the rest

  // Regions that nobody owns any more are left by attributes that went with their step: such a step is made and deleted again.
  void MakeDangling() {
    ForEachRepository(model_, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
      auto const regions = repository.Dangling();
      if (regions.IsEmpty()) { return; }
      for (Candidate const& candidate : Candidates()) {
        if (MakeDangling(extension, repository, candidate, regions)) { return; }
      }
      unmade_.push_back({std::string(extension.View()), {}, "danglingRegions", "no attribute is found that leaves them behind"});
    });
  }

  bool MakeDangling(cow_String const& extension, kprC_StepAwareRepository const& repository, Candidate const& candidate,
                    cls_xoList<rgnC_Region> const& regions) {
    std::string const step = FreeStepName();
    Trial trial = Try(made_, {Constructing(candidate, step)});
    if (!trial.refused.ok) { return false; }
    Commands after;
    std::size_t number = 0;
    for (rgnC_Region const& region : regions) {
      ReferenceKind const& kind = *FindReferenceKind(cls_Reference::Region);
      auto const [command, fresh] = FindDeclaration(kind, region);
      cls_Object const* const declared = kind.In(model_).ConstObject(region.Name().View());
      if (declared == nullptr) {
        Fields declare = Begin(command), forget = Begin("delete");
        Add(declare, kName, region.Name().View());
        AddDiffering(declare, region, *fresh);
        Add(forget, kind.kind, region.Name().View());
        trial.Then(*this, {declare});
        after.emplace_back(std::move(forget));
      } else if (!declared->Equals(region)) {
        Fields before = Begin("setValues"), back = before;
        Add(before, kind.kind, region.Name().View());
        Add(back, kind.kind, region.Name().View());
        AddDiffering(before, region, *declared);
        AddDiffering(back, *declared, region);
        trial.Then(*this, {before});
        after.emplace_back(std::move(back));
      }
      if (!trial.refused.ok || !PutOn(trial, repository, region, step, number++)) { return false; }
    }
    trial.Then(*this, {Deleting(step)});
    if (trial.refused.ok) { trial.Then(*this, after); }
    mdl_Extension const* const made = trial.model.ConstExtension(extension);
    if (!trial.refused.ok || !made->Equals(*model_.ConstExtension(extension))) { return false; }
    Keep(std::move(trial));
    return true;
  }

  /// Puts any attribute of the family that can be created so on the region.
  bool PutOn(Trial& trial, kprC_StepAwareRepository const& repository, rgnC_Region const& region, std::string const& step,
             std::size_t number) const {
    for (auto const& construction : repository.Constructions()) {
      std::unique_ptr<kprC_StepDependent> const fresh = repository.Construct(construction.command);
      fresh->Begin(cow_String(step), 0);
      for (bool const withValues : {false, true}) {
        Fields command = Begin(construction.command);
        std::string const digits = std::to_string(number);
        std::string name = step + "-";
        name.append(digits.size() < 6 ? 6 - digits.size() : 0, '0').append(digits);  // they go in the order of their names
        Add(command, kName, name);
        Add(command, kCreateStep, step);
        bool onRegion = false;
        for (cls_Object const* const object : {static_cast<cls_Object const*>(fresh.get()), fresh->StateAt(0)}) {
          for (MemberArgument const& argument : MemberArguments(*object)) {
            bool const isRegion = argument.info->refers == cls_Reference::Region && !argument.info->many;
            if (isRegion && !onRegion) { Add(command, argument.argument, region.Name().View()); }
            onRegion = onRegion || isRegion;
          }
        }
        if (withValues) { AddAnyValues(command, *fresh->StateAt(0)); }
        if (!onRegion) { break; }
        Trial then = trial;
        then.Then(*this, {command});
        if (!then.refused.ok) { continue; }
        trial = std::move(then);
        return true;
      }
    }
    return false;
  }

  /// The procedures, each with as little as will do.
  std::vector<Candidate> const& Candidates() const {
    if (!candidates_.empty()) { return candidates_; }
    ddr_Model const bare = Session().Model();
    for (kprC_ProcedureRow const& row : kprC_procedures) {
      if (row.label.Size() == 0) { continue; }
      Candidate candidate{row.type, std::string(row.command.View()), {}};
      kprC_StepHandle const fresh = kprC_ConstructStep(candidate.procedure);
      Fields open;
      for (cls_MemberRow const& member : fresh->MemberRows()) {
        bool const isOpen = member.text.settable && !member.again && member.IsUnset(fresh.ConstGet());
        if (isOpen) { open.emplace_back(ArgumentName(member), 1); }
      }
      bool const isFound = TryUpToTwo(open, [&](Fields const& members) {
        candidate.members = members;
        return Try(bare, {Constructing(candidate, "Any")}).refused.ok;
      });
      if (isFound) { candidates_.push_back(std::move(candidate)); }
    }
    return candidates_;
  }
  static Fields Constructing(Candidate const& candidate, std::string_view name) {
    Fields command = Begin(candidate.procedure);
    Add(command, kName, name);
    command.insert(command.end(), candidate.members.begin(), candidate.members.end());
    return command;
  }

  std::string FreeStepName() const {
    std::string name = "Gone";
    for (int i = 2; kprC_Steps(model_).IsMember(cow_String(name)); ++i) { name = "Gone-" + std::to_string(i); }
    return name;
  }

  void CompareRest() {
    if (!unmade_.empty()) { return; }
    for (auto const& [member, extension] : model_.Extensions()) {
      mdl_Extension const* const made = made_.ConstExtension(member);
      if (made != nullptr && made->Equals(*extension)) { continue; }
      unmade_.push_back({std::string(member.View()),
                         {},
                         made == nullptr ? "" : std::string(DifferingMember(*made, *extension)),
                         "it comes out otherwise"});
    }
  }

  ddr_Model const& model_;
  std::function<void(cls_Value const&)> const& take_;
  ddr_Model made_ = Session().Model();
  Commands commands_;
  mutable std::vector<Candidate> candidates_;
  std::vector<User> hard_;                               // that are not made on the steps as they are
  std::set<std::pair<std::string, std::string>> begun_;  // extension and name
  std::vector<Unmade> unmade_;
};

}  // namespace

std::string Unmade::Text() const {
  std::string text = "no command makes " + object;
  if (!step.empty()) { text += " in step " + Quoted(step); }
  if (!member.empty()) { text += ", " + Quoted(member); }
  return why.empty() ? text + "." : text + ": " + OneLine(why);
}

std::vector<Unmade> Recreate(ddr_Model const& model, std::function<void(cls_Value const& command)> const& take) {
  return Maker(model, take).Run();
}

}  // namespace gattr
