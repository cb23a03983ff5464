#include <algorithm>

#include "command/Command.h"
#include "command/Hints.h"
#include "command/Members.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "text/Text.h"

namespace gattr {

namespace {

/// Members of a command, those of the attribute apart from those of a state.
struct Members {
  kprC_Arguments own, state;
  /// Those that name something of the model, by their places.
  struct Naming {
    cls_MemberInfo const* info;
    std::size_t at;
  };
  std::vector<Naming> ownNaming, stateNaming;
};

/// Sorts what is left of the arguments into those of \p item, where such are taken, and those of \p state. Refuses an argument that is
/// neither.
Members Sorted(Call& call, kprC_StepDependent const* item, cls_Object const& state) {
  cls_ClassMetadata const* const ownType = item == nullptr ? nullptr : &ClassOf(*item);
  cls_ClassMetadata const& stateType = ClassOf(state);
  Members members;
  members.state.reserve(stateType.members.size());
  cls_MemberInfo const *own = nullptr, *ofState = nullptr;
  bool hasAliases = false;
  auto const take = [&](kprC_Arguments& taken, std::vector<Members::Naming>& naming, cls_MemberInfo const& info, std::string const& name,
                        cls_Value const& value) {
    FitNull(call.subject, info, taken.emplace_back(name, value).second);
    if (NamesSomething(info)) { naming.push_back({&info, taken.size() - 1}); }
    hasAliases = hasAliases || info.again;
  };
  call.arguments.ForEachRest([&](std::string const& name, cls_Value const& value) {
    cls_MemberInfo const* info = ownType == nullptr ? nullptr : FindArgument(*ownType, name, own);
    if (info != nullptr) { return take(members.own, members.ownNaming, *(own = info), name, value); }
    info = FindArgument(stateType, name, ofState);
    if (info != nullptr) { return take(members.state, members.stateNaming, *(ofState = info), name, value); }
    std::vector<std::string> known = ownType == nullptr ? std::vector<std::string>() : ArgumentNames(*ownType);
    for (std::string const& other : ArgumentNames(stateType)) { known.push_back(other); }
    RefuseUnknown(call.subject, "There is no argument " + Quoted(name) + ".", Suggestion(name, known, "Its arguments"));
  });
  if (hasAliases) { AssertNamesAgree(call.subject, state, members.state); }
  return members;
}

/// Completes what names something of the model.
void ResolveReferences(Call& call, kprC_StepAwareRepository const& repository, Members& members) {
  for (auto const& [info, at] : members.ownNaming) { ResolveReference(call, &repository, *info, members.own[at]); }
  for (auto const& [info, at] : members.stateNaming) { ResolveReference(call, &repository, *info, members.state[at]); }
}

void SetOwn(Call& call, kprC_StepDependent& item, Members const& members) {
  ExplainValues(call.subject, item, members.own, [&] {
    for (auto const& [name, value] : members.own) { item.SetMember(name, value); }
  });
}

void SetState(Call& call, kprC_StepDependent& item, cow_String const& step, kprC_StepFacts facts, cls_Object const& state,
              Members const& members) {
  ExplainValues(call.subject, state, members.state, [&] {
    kprC_Arguments said = members.state;
    item.Complete(said, facts);
    std::string unknown;
    item.SetInStep(step, said, &unknown);
  });
}

/// A step that a command names.
struct NamedStep {
  cow_String name;
  std::size_t index = kprC_StepTable::npos;  ///< in the model's sequence; npos where that has none of the name
  kprC_StepFacts facts = kprC_StepFacts(nullptr);

  bool IsKnown() const { return index != kprC_StepTable::npos; }
};

/// The step of a command on an attribute; where the model has none of that name, the message says which it has.
NamedStep StepArgument(Call& call, std::string_view argument) {
  std::string const& name = call.arguments.Text(argument);
  call.subject.step = name;
  kprC_StepTable const& steps = kprC_Steps(call.model).Table();
  if (std::size_t const index = steps.Find(name); index != kprC_StepTable::npos) { return {steps.Name(index), index, steps.Facts(index)}; }
  call.subject.hint = Suggestion(name, Texts(kprC_Steps(call.model).Names()), "Steps");
  call.subject.atFault = true;
  return {cow_String(name)};
}

void AssertNotSuppressed(AttributeTarget const& target) {
  if (target.item.IsSuppressed()) { target.repository.Refuse(target.repository.EditRefusals().suppressed); }
}

void AssertKnown(AttributeTarget const& target, NamedStep const& step) {
  if (!step.IsKnown()) { target.repository.Refuse(target.repository.EditRefusals().unknownStep); }
}
void AssertEditable(Call& call, AttributeTarget const& target, cow_String const& step) {
  if (target.item.IsEditable(step)) { return; }
  call.subject.hint = NotEditableHint(target.item, step);
  kprC_EditRefusalCodes const& codes = target.repository.EditRefusals();
  std::size_t const index = target.item.Steps().Find(step.View());
  std::optional<int> const refused = target.item.RefusedIn(target.item.Steps().Facts(index));
  if (refused && target.item.StateAt(index) != nullptr) { target.repository.Refuse(*refused); }
  mdl_PropagationStatusEnm const status = target.item.StatusAt(index);
  bool const isOn = status != mdl_PropagationStatusEnm::NotYetCreated && status != mdl_PropagationStatusEnm::InactiveAfterDeactivation;
  bool const inPerturbation = kprC_perturbationProcedures.Contains(target.item.Steps().ProcedureType(index));
  if (codes.droppedInStep && isOn && inPerturbation) { target.repository.Refuse(*codes.droppedInStep); }
  target.repository.Refuse(target.item.IsActiveIn(step) ? codes.readOnlyInStep : codes.notInStep);
}

/// Refuses a creation in the initial step, in a family that has none there.
void AssertNotInInitialStep(kprC_StepAwareRepository const& repository, NamedStep const& step) {
  std::optional<int> const code = repository.EditRefusals().inInitialStep;
  if (code && step.index == 0) { repository.Refuse(*code); }
}

/// Refuses a creation that the type has not refused itself: in a perturbation step, or in one that does not admit the type.
void AssertAdmitted(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, kprC_StepFacts facts) {
  kprC_EditRefusalCodes const& codes = repository.EditRefusals();
  if (codes.inPerturbation && kprC_perturbationProcedures.Contains(facts.procedureType)) { repository.Refuse(*codes.inPerturbation); }
  if (codes.typeNotAdmitted && !item.Admits(facts, false)) { repository.Refuse(*codes.typeNotAdmitted); }
}

/// An attribute of the type as \p step would create it, for one whose creation has been removed: setting values creates it anew.
std::unique_ptr<kprC_StepDependent> Anew(AttributeTarget const& target, NamedStep const& step) {
  AssertKnown(target, step);
  AssertNotInInitialStep(target.repository, step);
  std::unique_ptr<kprC_StepDependent> fresh = target.repository.Construct(target.item.ConstructionName());
  fresh->Begin(step.name, step.facts.procedureType);
  return fresh;
}

/// Runs \p edit of an attribute of \p repository. Where it is refused by what the family asks behind the model, that is asked first:
/// \p askModel asks it of the attribute as the edit would leave it.
template <class Edit, class AskModel> void RefusingInOrder(kprC_StepAwareRepository const& repository, Edit&& edit, AskModel&& askModel) {
  try {
    edit();
  } catch (std::exception const& error) {
    Refusal const refused = RefusalOf(error);
    auto const isSame = [&refused](std::optional<int> code) { return code && *code == refused.code; };
    if (refused.module == repository.Module() && std::ranges::any_of(repository.EditRefusals().behindModel, isSame)) { askModel(); }
    throw;
  }
}

/// Edits the attribute, asks whether it still goes with the model, and records the edit.
template <class Fn> void Edit(Call& call, AttributeTarget const& target, Fn&& edit) {
  auto& repository = call.model.Get<kprC_StepAwareRepository>(target.extension);
  kprC_StepDependent& item = *repository.Item(target.name);
  RefusingInOrder(
      repository, [&] { edit(item); },
      [&] {
        std::unique_ptr<cls_Object> const copy = target.item.Copy();
        auto& unchecked = dynamic_cast<kprC_StepDependent&>(*copy);
        unchecked.Suppress();
        RefusalBy([&] { edit(unchecked); });
        unchecked.AssertInModel(call.model);
      });
  AssertInModel(call, item);
  repository.RecordModify(item);
  call.was = &target.item;
  call.is = &item;
}

/// A command that takes one step and runs one operation of the attribute there.
template <class Fn> void EditInStep(Call& call, AttributeTarget const& target, Fn&& operation) {
  cow_String const step = StepArgument(call, kStepName).name;
  call.arguments.AssertNoRest({kStepName});
  AssertNotSuppressed(target);
  Edit(call, target, [&](kprC_StepDependent& item) { operation(item, step); });
}

/// Whether the operation is refused so for what the attribute is in the step that it is run on, not for the destination of a move.
bool IsOfSource(kprC_Operation const& operation, int code) {
  auto const refused = std::ranges::find(operation.tests, code, &kprC_Test::refusal);
  if (refused == operation.tests.end()) { return false; }
  switch (refused->ask) {
    case kprC_Ask::Perturbation:
    case kprC_Ask::Inactive:
    case kprC_Ask::BuiltIn:
    case kprC_Ask::NotEditable:
    case kprC_Ask::Propagated: return true;
    default: return false;
  }
}

[[noreturn]] void RefuseName(Call& call, kprC_StepAwareRepository const& repository, cow_String const& name) {
  if (auto const code = repository.EditRefusals().nameInUse) {
    call.subject.hint = "The name is that of " + ObjectText(repository.ItemCmd(), name) + ".";
    repository.Refuse(*code);
  }
  RefuseValue(call.subject, "The " + ObjectText(repository.ItemCmd(), name) + " exists already.");
}

cow_String FreeName(Call& call, std::string_view argument, kprC_StepAwareRepository const& repository, cow_String const& own) {
  cow_String name = call.arguments.Name(argument);
  if (name != own && repository.ConstItem(name) != nullptr) { RefuseName(call, repository, name); }
  return name;
}

/// The members that a state sets or frees, as commands give them.
kprC_Arguments SaidBy(cls_Object const& state) {
  kprC_Arguments said;
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (!row.again && row.ops->isModified != nullptr && row.ops->isModified(row.In(&state))) {
      said.emplace_back(row.name, row.ToValue(&state));
    }
  }
  return said;
}

/// Puts a copy of the attribute beside it that begins in \p step with what is \p said there.
void BeginCopy(Call& call, AttributeTarget const& target, cow_String const& step, kprC_Arguments const& said) {
  cow_String const name(std::string(target.name.View()) + "-" + std::string(step.View()));
  if (target.repository.ConstItem(name) != nullptr) { RefuseName(call, target.repository, name); }
  auto& repository = call.model.Get<kprC_StepAwareRepository>(target.extension);
  repository.InsertItem(name, target.item);
  kprC_StepDependent& copy = *repository.Item(name);
  target.item.ForEachRecord([&](std::size_t index, mdl_PropagationStatusEnm status, cls_Object const*) {
    bool const own = (target.repository.Statuses()[static_cast<std::size_t>(status)] & kprC_Changed) != 0;
    if (own) { copy.Remove(target.item.Steps().Name(index)); }
  });
  std::string unknown;
  copy.SetInStep(step, said, &unknown);
  repository.RecordModify(copy);
}

/// Has the attribute say in the step \p to what it says of its own in \p from, unless it is so there already.
void Repeat(Call& call, AttributeTarget const& target, cow_String const& from, cow_String const& to) {
  kprC_StepDependent const& item = target.item;
  unsigned const traits = target.repository.Statuses()[static_cast<std::size_t>(item.Status(from))];
  if ((traits & kprC_Changed) == 0) { return; }
  auto const edit = [&](auto&& change) {
    auto& repository = call.model.Get<kprC_StepAwareRepository>(target.extension);
    kprC_StepDependent& own = *repository.Item(target.name);
    change(own);
    repository.RecordModify(own);
  };
  if ((traits & kprC_Active) == 0) {  // switched off
    kprC_Operation const* const off = FindOperation(target.repository, kprC_Effect::SwitchOff);
    if (item.IsActiveIn(to)) {
      edit([&](kprC_StepDependent& own) { own.Perform(*off, to, to); });
    }
    return;
  }
  kprC_StepTable const& steps = item.Steps();
  kprC_Arguments said = SaidBy(*item.StateAt(steps.Find(from.View())));
  if (!item.IsActiveIn(to) && item.CreateStepName() == from) { return BeginCopy(call, target, to, said); }
  cls_Object const* const there = item.StateAt(steps.Find(to.View()));
  auto const isSo = [there](auto const& member) {
    cls_Value const value = there->Member(member.first);
    auto const* const text = value.template As<std::string>();
    return value == member.second || (member.second == cls_Value("FREED") && text != nullptr && IsStateWord(*text));  // carried as "UNSET"
  };
  bool const holds = item.IsActiveIn(to) && std::ranges::all_of(said, isSo);
  if (holds) { return; }
  if (!item.IsEditable(to)) {
    call.subject.hint = NotEditableHint(item, to);
    target.repository.Refuse(item.IsActiveIn(to) ? target.repository.EditRefusals().readOnlyInStep
                                                 : target.repository.EditRefusals().notInStep);
  }
  ResolveReferences(call, &target.repository, ClassOf(*there), said);
  std::string unknown;
  edit([&](kprC_StepDependent& own) { own.SetInStep(to, said, &unknown); });
}

}  // namespace

cls_Object const* CreateState(kprC_StepDependent const& item) {
  std::size_t const index = item.Steps().Find(item.CreateStepName());
  return index == kprC_StepTable::npos ? nullptr : item.StateAt(index);
}

void AssertInModel(Call const& call, kprC_StepDependent const& item) {
  if (!item.IsSuppressed()) { item.AssertInModel(call.model); }
}

std::vector<CommandInfo> AttributeConstructions() {
  std::vector<CommandInfo> infos;
  ForEachRepository(ddr_Model(), [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    for (auto const& construction : repository.Constructions()) {
      std::unique_ptr<kprC_StepDependent> const item = repository.Construct(construction.command);
      item->Begin(cow_String(kprC_Step::initialCmd().View()), kprC_ProcedureType::Initial);
      std::string_view const label = construction.label.empty() ? construction.command : construction.label;
      CommandInfo info{std::string(construction.command), SplitWords(extension), "creates: " + std::string(label), {}};
      info.makes = repository.ItemCmd();
      info.className = ClassOf(*item).name;
      info.arguments.push_back(Required(kName, "the new object's name"));
      info.arguments.push_back(Naming(kprC_Step::stepCmd(), Required(kCreateStep, "the step in which it is created")));
      Describe(info.arguments, *item);
      Describe(info.arguments, *CreateState(*item), ArgumentOf::State);
      infos.push_back(std::move(info));
    }
    if (!repository.CopyCmd().empty()) {
      infos.push_back(CopyConstruction(repository.CopyCmd(), SplitWords(extension), repository.ItemCmd()));
    }
  });
  return infos;
}

bool ConstructAttribute(Call& call) {
  std::unique_ptr<kprC_StepDependent> item;
  cow_String family;
  FindRepository(std::as_const(call.model), [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    item = repository.Construct(call.arguments.Command());
    family = extension;
    return item != nullptr;
  });
  if (!item) { return false; }
  auto const& repository = std::as_const(call.model).ConstGet<kprC_StepAwareRepository>(family);
  kprC_EditRefusalCodes const& codes = repository.EditRefusals();
  cow_String const name = FreeName(call, kName, repository, cow_String());
  call.subject.name = name.View();
  call.touched = {false, family, {name}};
  kprC_StepTable const& steps = kprC_Steps(call.model).Table();
  NamedStep const step = StepArgument(call, kCreateStep);
  if (steps.Size() == 0 && codes.noSteps) { repository.Refuse(*codes.noSteps); }
  if (!step.IsKnown()) { repository.Refuse(codes.unknownStep); }
  AssertNotInInitialStep(repository, step);

  item->Begin(step.name, step.facts.procedureType);  // with a default state, which tells what it takes
  cls_Object const& state = *CreateState(*item);
  Members members = Sorted(call, item.get(), state);
  ResolveReferences(call, repository, members);
  SetOwn(call, *item, members);
  SetState(call, *item, step.name, step.facts, state, members);
  auto& target = call.model.Get<kprC_StepAwareRepository>(family);
  Hinting(
      call,
      [&] {
        RefusingInOrder(
            target, [&] { target.InsertItem(name, *item); }, [&] { item->AssertInModel(call.model); });
        AssertAdmitted(target, *item, step.facts);
      },
      [&](Refusal const& refused) {
        std::string const hint = OutputHint(*item, members.state, step.facts, refused);
        return hint.empty() ? AdmissionHint(*item, steps, step.name) : hint;
      });
  AssertInModel(call, *target.ConstItem(name));
  return true;
}

void SetAttributeValues(Call& call, AttributeTarget const& target) {
  cls_Object const* state = CreateState(target.item);
  if (state == nullptr) {
    call.subject.hint = "Its creation has been removed; setValuesInStep creates it anew.";
    target.repository.Refuse(target.repository.EditRefusals().notInStep);
  }
  Members members = Sorted(call, &target.item, *state);
  AssertNotSuppressed(target);
  ResolveReferences(call, target.repository, members);
  Edit(call, target, [&](kprC_StepDependent& item) {
    SetOwn(call, item, members);
    if (members.state.empty()) { return item.Resume(); }  // what carries it may have changed
    call.subject.step = item.CreateStepName().View();
    kprC_StepTable const& steps = item.Steps();
    kprC_StepFacts const step = steps.Facts(steps.Find(item.CreateStepName().View()));
    Hinting(
        call, [&] { SetState(call, item, item.CreateStepName(), step, *state, members); },
        [&](Refusal const& refused) { return OutputHint(target.item, members.state, step, refused); });
  });
}

void SetAttributeValuesInStep(Call& call, AttributeTarget const& target) {
  NamedStep const step = StepArgument(call, kStepName);
  cls_Object const* state = CreateState(target.item);
  std::unique_ptr<kprC_StepDependent> const anew = state == nullptr ? Anew(target, step) : nullptr;
  if (anew) { state = anew->StateAt(0); }
  Members members = Sorted(call, nullptr, *state);  // what is the attribute's own is the same in all steps
  AssertNotSuppressed(target);
  AssertKnown(target, step);
  if (!anew) { AssertEditable(call, target, step.name); }
  ResolveReferences(call, target.repository, members);
  Edit(call, target, [&](kprC_StepDependent& item) {
    Hinting(
        call,
        [&] {
          SetState(call, item, step.name, step.facts, *state, members);
          if (anew) { AssertAdmitted(target.repository, item, step.facts); }
        },
        [&](Refusal const& refused) {
          std::string const hint = OutputHint(target.item, members.state, step.facts, refused);
          return hint.empty() && anew ? AdmissionHint(*anew, kprC_Steps(call.model).Table(), step.name) : hint;
        });
  });
}

kprC_Operation const* FindOperation(kprC_StepAwareRepository const& repository, std::string_view command) {
  auto const operations = repository.Operations();
  auto const found = std::ranges::find(operations, command, &kprC_Operation::command);
  return found == operations.end() ? nullptr : &*found;
}

kprC_Operation const* FindOperation(kprC_StepAwareRepository const& repository, kprC_Effect effect) {
  auto const operations = repository.Operations();
  auto const found = std::ranges::find(operations, effect, &kprC_Operation::effect);
  return found == operations.end() ? nullptr : &*found;
}

void PerformOnAttribute(Call& call, AttributeTarget const& target) {
  kprC_Operation const& operation = *FindOperation(target.repository, call.arguments.Command());
  auto const perform = [&](kprC_StepDependent& item, cow_String const& step, cow_String const& toStep) {
    Hinting(
        call, [&] { item.Perform(operation, step, toStep); },
        [&](Refusal const& refused) {
          if (IsOfSource(operation, refused.code)) { call.subject.step = step.View(); }
          return OperationHint(target.repository, target.item, operation, step, toStep, refused.code);
        });
  };
  if (operation.effect != kprC_Effect::Move) {
    return EditInStep(call, target, [&](kprC_StepDependent& item, cow_String const& step) { perform(item, step, step); });
  }
  cow_String const from = StepArgument(call, kFromStep).name;
  cow_String const to(call.arguments.Text(kToStep));
  if (!call.subject.atFault) { StepArgument(call, kToStep); }
  call.arguments.AssertNoRest({kFromStep, kToStep});
  AssertNotSuppressed(target);
  Edit(call, target, [&](kprC_StepDependent& item) { perform(item, from, to); });
}

void EditByType(Call& call, AttributeTarget const& target) {
  auto const edits = target.repository.TypeEdits();
  auto const edit = std::ranges::find_if(
      edits, [&](kprC_TypeEdit const& one) { return one.command == call.arguments.Command() && one.typeId == target.item.DynTypeId(); });
  if (edit == edits.end()) {
    RefuseUnknown(call.subject, Quoted(call.arguments.Command()) + " is no command on " + WithArticle(target.repository.ItemCmd()) +
                                    " of the type " + Quoted(target.item.Label()) + ".");
  }
  NamedStep const step = edit->inStep ? StepArgument(call, kStepName) : NamedStep();
  std::unique_ptr<cls_Object> const arguments = edit->arguments();
  SetObjectMembers(call, &target.repository, *arguments, call.arguments.Rest());
  AssertNotSuppressed(target);
  if (edit->inStep) {
    AssertKnown(target, step);
    AssertEditable(call, target, step.name);
  }
  Edit(call, target, [&](kprC_StepDependent& item) {
    std::string const whyNot = edit->perform(item, step.name, *arguments);
    if (!whyNot.empty()) { RefuseEdit(call.subject, whyNot); }
  });
}

void ReportAttribute(Call& call, AttributeTarget const& target) {
  call.arguments.AssertNoRest({});
  call.report = target.item.Report().View();
  if (!call.report.empty()) { return; }
  RefuseEdit(call.subject, "There is no report of the type " + Quoted(target.item.Label()) + ".");
}

void RemoveAttributeState(Call& call, AttributeTarget const& target) {
  EditInStep(call, target, [&](kprC_StepDependent& item, cow_String const& step) {
    if (!item.Remove(step)) { target.repository.Refuse(target.repository.EditRefusals().unknownStep); }
  });
}

void SuppressAttribute(Call& call, AttributeTarget const& target) {
  call.arguments.AssertNoRest({});
  Edit(call, target, [](kprC_StepDependent& item) { item.Suppress(); });
}

void ResumeAttribute(Call& call, AttributeTarget const& target) {
  call.arguments.AssertNoRest({});
  Edit(call, target, [](kprC_StepDependent& item) { item.Resume(); });
}

void RenameAttribute(Call& call, AttributeTarget const& target) {
  cow_String const newName = FreeName(call, kNewName, target.repository, target.name);
  call.arguments.AssertNoRest({kNewName});
  if (newName == target.name) { return; }
  call.model.Get<kprC_StepAwareRepository>(target.extension).RenameItem(target.name, newName);
  RenameInLoadCases(call, target.repository.ItemCmd(), target.name, newName);
  RenameInReferences(call, target.repository, target.name, newName);
  call.touched.names.push_back(newName);
  call.touched.renames = {{std::string(target.repository.ItemCmd()), std::string(target.name.View()), std::string(newName.View())}};
}

void CopyAttribute(Call& call, AttributeTarget const& target) {
  std::string_view const argument = CopyNameArgument(call, target.repository.ItemCmd(), target.repository.CopyCmd());
  cow_String const newName = FreeName(call, argument, target.repository, cow_String());
  call.arguments.AssertNoRest({argument});
  auto& repository = call.model.Get<kprC_StepAwareRepository>(target.extension);
  repository.InsertItem(newName, target.item);
  AssertInModel(call, *repository.ConstItem(newName));
  call.touched.names.push_back(newName);
}

void SayAgain(Call& call, cow_String const& from, cow_String const& to) {
  ddr_Model const before = call.model;
  ForEachRepository(before, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    repository.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      AskOther(call, repository, name, [&] { Repeat(call, {extension, repository, item, name}, from, to); });
    });
  });
}

void DeleteAttribute(Call& call, AttributeTarget const& target) {
  call.arguments.AssertNoRest({});
  AssertInNoLoadCase(call, target.repository.ItemCmd(), target.name);
  AssertInNoReference(call, target.repository, target.name);
  call.model.Get<kprC_StepAwareRepository>(target.extension).Remove(target.name);
}

}  // namespace gattr
