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

/// Any values for the members of a state that take numbers, for an attribute that has to say something to be created.
void AddAnyValues(Fields& to, cls_Object const& state) {
  for (MemberArgument const& argument : MemberArguments(state)) {
    bool const isNumber = argument.info->kind == cls_MemberKind::Real && argument.info->propagating && !argument.info->again;
    if (!isNumber || std::ranges::find(to, argument.argument, &Fields::value_type::first) != to.end()) { continue; }
    to.emplace_back(argument.argument, argument.info->many ? cls_Value(cls_Value::List{1.0}) : cls_Value(1.0));
  }
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
    for (cls_Value const& command : trial.commands) { take_(command); }
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
    made_ = std::move(bare);
    ForEachRepository(model_, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
      repository.ForEach([&](cow_String const&, kprC_StepDependent const& item) { MakeOnOtherSteps(extension, repository, item); });
    });
    ForEachRepository(model_, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
      for (cow_String const& name : repository.Keys()) { MakeAttribute(extension, repository, name); }
    });
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

  struct Records {
    Commands changes, offs, inOrder;
  };
  Records RecordsOf(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, std::size_t create) const {
    Records records;
    auto const operations = repository.Operations();
    auto const off = std::ranges::find(operations, kprC_Effect::SwitchOff, &kprC_Operation::effect);
    item.ForEachRecord([&](std::size_t index, mdl_PropagationStatusEnm status, cls_Object const* state) {
      if (state == nullptr || !kprC_StepAwareRepository::SaysSomething(item, index)) { return; }
      bool const isOff = index == create ? status != mdl_PropagationStatusEnm::Created : !Says(*state);
      if (index == create && !isOff) { return; }
      Fields command = Begin(isOff && off != operations.end() ? off->command : std::string_view("setValuesInStep"));
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
    bool edited = false;
    item.ForEachTypeEdit([&](std::string_view command, cow_String const& step, cls_Object const& arguments) {
      Fields edit = Begin(command);
      Add(edit, repository.ItemCmd(), item.Name().View());
      if (!step.IsEmpty()) { Add(edit, kStepName, step.View()); }
      std::unique_ptr<cls_Object> const fresh = ClassOf(arguments).make();
      AddDiffering(edit, arguments, *fresh);
      records.changes.emplace_back(std::move(edit));
      edited = true;
    });
    if (edited) { records.inOrder.clear(); }  // they are done where it is not switched off yet
    return records;
  }

  void MakeAttribute(cow_String const& extension, kprC_StepAwareRepository const& repository, cow_String const& name) {
    if (!begun_.emplace(extension.View(), name.View()).second) { return; }
    kprC_StepDependent const& item = *repository.ConstItem(name.View());
    MakeNamed(item);
    std::string const object = ObjectText(repository.ItemCmd(), name);
    cow_String const createStep = item.CreateStepName();
    std::size_t const create = item.Steps().Find(createStep.View());
    if (create == kprC_StepTable::npos) { return MakeEmpty(extension, repository, item); }
    Trial trial = TryAttribute(made_, extension, repository, item);
    if (trial.IsDone()) { return Keep(std::move(trial)); }
    MissAttribute(object, repository, item, trial);
    made_.Get<kprC_StepAwareRepository>(extension).InsertItem(name, item);
  }

  /// Makes the attribute on \p on; the commands that do, or what is refused or, where \p compared, comes out otherwise.
  Trial TryAsCreated(ddr_Model const& on, cow_String const& extension, kprC_StepAwareRepository const& repository,
                     kprC_StepDependent const& item, bool compared) const {
    cow_String const& name = item.Name();
    std::size_t const create = item.Steps().Find(item.CreateStepName().View());
    Trial trial;
    std::set<std::string_view> also;
    Commands construction;
    for (bool again = create != kprC_StepTable::npos; again;) {
      construction = {Construction(repository, item, create, also)};
      trial = Try(on, construction);
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
      kprC_StepDependent const* const made = whole.model.ConstGet<kprC_StepAwareRepository>(extension).ConstItem(name.View());
      bool const isMade = whole.refused.ok && made != nullptr && (!compared || made->Equals(item));
      if (isMade || &way == &ways.back()) {
        whole.commands = std::move(commands);
        whole.differs = whole.refused.ok && !isMade;
        return whole;
      }
    }
    return trial;
  }
  /// The same, and where that does not do as one that begins switched off.
  Trial TryAttribute(ddr_Model const& on, cow_String const& extension, kprC_StepAwareRepository const& repository,
                     kprC_StepDependent const& item, bool compared = true) const {
    Trial trial = TryAsCreated(on, extension, repository, item, compared);
    if (trial.IsDone() || item.Status(item.CreateStepName()) == mdl_PropagationStatusEnm::Created) { return trial; }
    Trial off = TryCreatedOff(on, extension, repository, item, compared);
    return off.IsDone() ? off : trial;
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
        Fields insert = Constructing(candidate, step), remove = Begin("delete");
        if (!previous.empty()) { Add(insert, "previous", previous); }
        Add(remove, kprC_Step::stepCmd(), step);
        Trial apart = Try(made_, {std::move(insert)});
        if (!apart.refused.ok || !MakeEmptyIn(apart, repository, item, cow_String(step), candidate.procedureType)) { continue; }
        apart.Then(*this, {std::move(remove)});
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
    for (bool const withValues : {false, true}) {
      Fields construction = Begin(item.ConstructionName()), remove = Begin("remove");
      Add(construction, kName, item.Name().View());
      Add(construction, "createStepName", step.View());
      AddDiffering(construction, item, *fresh);
      if (withValues) { AddAnyValues(construction, *fresh->StateAt(0)); }
      Add(remove, repository.ItemCmd(), item.Name().View());
      Add(remove, kStepName, step.View());
      Trial then = trial;
      then.Then(*this, {std::move(construction), std::move(remove)});
      if (then.refused.ok && item.IsSuppressed()) { then.Then(*this, {Suppressing(repository, item)}); }
      if (!then.refused.ok) { continue; }
      trial = std::move(then);
      return true;
    }
    return false;
  }
  static bool Comes(Trial const& trial, cow_String const& extension, kprC_StepDependent const& item) {
    auto const* const made = trial.model.ConstGet<kprC_StepAwareRepository>(extension).ConstItem(item.Name().View());
    return trial.refused.ok && made != nullptr && made->Equals(item);
  }

  /// One that begins switched off: it was created in an earlier step, switched off, and that creation taken back.
  Trial TryCreatedOff(ddr_Model const& on, cow_String const& extension, kprC_StepAwareRepository const& repository,
                      kprC_StepDependent const& item, bool compared) const {
    std::size_t const create = item.Steps().Find(item.CreateStepName().View());
    Records const records = RecordsOf(repository, item, create);
    Trial trial{on, {}, {}};
    for (std::size_t at = create; at-- > 0;) {
      Commands commands{Construction(repository, item, create, {}, at)};
      Fields remove = Begin("remove");
      Add(remove, repository.ItemCmd(), item.Name().View());
      Add(remove, kStepName, item.Steps().Name(at).View());
      commands.insert(commands.end(), records.changes.begin(), records.changes.end());
      commands.insert(commands.end(), records.offs.rbegin(), records.offs.rend());
      commands.emplace_back(std::move(remove));
      if (item.IsSuppressed()) { commands.push_back(Suppressing(repository, item)); }
      trial = Try(on, std::move(commands));
      if (trial.refused.ok && (!compared || Comes(trial, extension, item))) { return trial; }
    }
    trial.differs = trial.refused.ok;
    return trial;
  }

  static cls_Value Suppressing(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item) {
    Fields suppress = Begin("suppress");
    Add(suppress, repository.ItemCmd(), item.Name().View());
    return suppress;
  }

  // A suppressed attribute may say something in steps that no longer take it: their procedures have been replaced since.

  /// Makes such an attribute while the steps are others. Nothing else stands on them yet but what is suppressed, too.
  void MakeOnOtherSteps(cow_String const& extension, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item) {
    if (!item.IsSuppressed() || item.CreateStepName().IsEmpty()) { return; }
    if (TryAttribute(made_, extension, repository, item).IsDone()) { return; }
    std::vector<std::size_t> others;
    item.ForEachRecord([&](std::size_t index, mdl_PropagationStatusEnm, cls_Object const* state) {
      bool const isOwn = state != nullptr && index > 0 && kprC_StepAwareRepository::SaysSomething(item, index);
      bool const isCreation = item.Steps().Name(index) == item.CreateStepName();
      if (isOwn && (isCreation || !item.Admits(item.Steps().Facts(index), true))) { others.push_back(index); }
    });
    for (Candidate const& candidate : Candidates()) {
      kprC_StepHandle const other = kprC_ConstructStep(candidate.procedure);
      if (!item.Admits(kprC_StepFacts(other.ConstGet()), false)) { continue; }
      Trial trial{made_, Done(), {}};
      for (std::size_t const at : others) {
        if (trial.refused.ok) { trial.Then(*this, {Replacing(at, candidate.procedure, candidate.members)}); }
      }
      if (!trial.refused.ok) { continue; }
      Trial made = TryAttribute(trial.model, extension, repository, item, false);  // on these steps it is another one
      if (!made.IsDone()) { continue; }
      trial.commands.insert(trial.commands.end(), made.commands.begin(), made.commands.end());
      trial.model = std::move(made.model);
      for (std::size_t i = others.size(); i-- > 0 && trial.refused.ok;) { ReplaceBack(trial, others[i]); }
      auto const* const came = trial.model.ConstGet<kprC_StepAwareRepository>(extension).ConstItem(item.Name().View());
      if (!trial.refused.ok || came == nullptr || !came->Equals(item)) { continue; }
      begun_.emplace(extension.View(), item.Name().View());
      return Keep(std::move(trial));
    }
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
      if (!again) { trial = std::move(back); }
    }
  }

  /// The command that creates the attribute with what it says in \p create; in \p step where that is another one.
  cls_Value Construction(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, std::size_t create,
                         std::set<std::string_view> const& also, std::optional<std::size_t> step = {}) const {
    Fields command = Begin(item.ConstructionName());
    Add(command, kName, item.Name().View());
    std::size_t const at = step.value_or(create);
    Add(command, "createStepName", item.Steps().Name(at).View());
    std::unique_ptr<kprC_StepDependent> const fresh = repository.Construct(item.ConstructionName());
    fresh->Begin(item.Steps().Name(at), item.Steps().ProcedureType(at));
    AddDiffering(command, item, *fresh, also);
    AddDiffering(command, *item.StateAt(create), *fresh->StateAt(0), also);
    return command;
  }

  void MissAttribute(std::string const& object, kprC_StepAwareRepository const& repository, kprC_StepDependent const& item,
                     Trial const& trial) {
    auto const* const made = trial.model.ConstGet<kprC_StepAwareRepository>(ExtensionOf(repository)).ConstItem(item.Name().View());
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
  cow_String ExtensionOf(kprC_StepAwareRepository const& repository) const {
    cow_String found;
    FindRepository(model_, [&](cow_String const& extension, kprC_StepAwareRepository const& one) {
      found = extension;
      return &one == &repository;
    });
    return found;
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
    Fields remove = Begin("delete");
    Add(remove, kprC_Step::stepCmd(), step);
    trial.Then(*this, {remove});
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
        Add(command, "createStepName", step);
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

  /// What a step can be made with: what those of the model are, then procedures with as little as may do.
  std::vector<Candidate> const& Candidates() {
    if (!candidates_.empty()) { return candidates_; }
    kprC_StepContainer const& steps = kprC_Steps(model_);
    for (std::size_t i = 1; i < steps.Size(); ++i) {
      kprC_Step const& step = steps.Step(i);
      std::string const procedure(kprC_FindProcedure(step.DynTypeId())->command.View());
      bool const isKnown = std::ranges::find(candidates_, procedure, &Candidate::procedure) != candidates_.end();
      if (isKnown) { continue; }
      Candidate& one = candidates_.emplace_back(Candidate{step.ProcedureType(), procedure, {}});
      AddDiffering(one.members, step, *kprC_ConstructStep(procedure));
    }
    for (kprC_ProcedureRow const& row : kprC_procedures) {
      if (row.label.Size() == 0) { continue; }
      std::string const procedure(row.command.View());
      candidates_.push_back({row.type, procedure, {}});
      kprC_StepHandle const fresh = kprC_ConstructStep(procedure);
      for (cls_MemberRow const& member : fresh->MemberRows()) {
        bool const isOpen = member.text.settable && !member.again && member.IsUnset(fresh.ConstGet());
        if (isOpen) { candidates_.push_back({row.type, procedure, {{std::string(ArgumentName(member)), 1}}}); }
      }
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
  std::vector<Candidate> candidates_;
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
