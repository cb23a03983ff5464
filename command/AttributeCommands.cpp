#include <algorithm>

#include "command/Command.h"
#include "command/Families.h"
#include "command/Members.h"
#include "framework/ddr_ModelMembers.h"
#include "module/kfd/kfdC_Field.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr std::string_view kName = "name", kCreateStep = "createStepName", kStep = "stepName", kFromStep = "fromStepName",
                           kToStep = "toStepName", kNewName = "newName";
constexpr std::string_view kAmplitude = "amplitude", kField = "fieldName", kConnectors = "connectors", kGlobal = "(Global)";
/// What a state lists beside what its step says of the members.
std::vector<std::string_view> const kNotSettable = {"deactivate"};

Family const* FamilyOf(std::string_view extension) {
  auto const found = std::ranges::find(Families(), extension, &Family::extension);
  return found == Families().end() ? nullptr : &*found;
}

/// What commands may set in an attribute itself.
std::vector<MemberArgument> OwnArguments(std::string_view extension, kprC_StepDependent const& item) {
  std::vector<MemberArgument> arguments;
  if (Family const* family = FamilyOf(extension)) {
    for (OwnArgument const& own : family->own) {
      if (cls_MemberInfo const* info = ClassOf(item).Find(own.member)) { arguments.push_back({std::string(own.argument), info}); }
    }
  }
  return arguments;
}

/// The state of the create step; null when there is none.
cls_Object const* CreateState(kprC_StepDependent const& item) {
  std::size_t const index = item.Steps().Find(item.CreateStepName());
  return index == kprC_StepTable::npos ? nullptr : item.StateAt(index);
}

/// Members of a command, those of the attribute apart from those of a state.
struct Members {
  std::vector<MemberArgument> ownArguments, stateArguments;
  kprC_Arguments own, state;
};

/// Sorts what is left of the arguments into those of the attribute and those of \p state. Refuses an argument that is neither.
Members Sorted(Call& call, std::string_view extension, kprC_StepDependent const& item, cls_Object const& state) {
  Members members;
  members.ownArguments = OwnArguments(extension, item);
  members.stateArguments = MemberArguments(state, kNotSettable);
  for (auto& [name, value] : call.arguments.Rest()) {
    if (MemberArgument const* own = FindArgument(members.ownArguments, name)) {
      FitNull(*own->info, value);
      members.own.emplace_back(name, value);
    } else if (MemberArgument const* ofState = FindArgument(members.stateArguments, name)) {
      FitNull(*ofState->info, value);
      members.state.emplace_back(name, value);
    } else {
      std::vector<std::string> known = ArgumentNames(members.ownArguments);
      for (std::string const& other : ArgumentNames(members.stateArguments)) { known.push_back(other); }
      RefuseUnknown(call.subject, "There is no argument " + Quoted(name) + ".", Suggestion(name, known, "Its arguments"));
    }
  }
  return members;
}

/// Raises the family's refusal and blames the command with what would have fitted.
void Refuse(Call& call, kprC_StepAwareRepository const& repository, kprC_EditRefusal refusal, std::string hint) {
  call.subject.hint = std::move(hint);
  call.subject.atFault = true;
  repository.Refuse(refusal);
}

/// The model's region of that name with all that the model knows of it.
cls_Value WholeRegion(Call& call, std::string const& name) {
  return cls_ObjectTraits<rgnC_Region>::ToValue(dynamic_cast<rgnC_Region const&>(Referred(call, ReferenceKindOf("region"), name)));
}

/// Refuses a connector of a list of names that the model does not know.
void AssertConnectors(Call& call, cls_Value const& names) {
  auto const* list = names.As<cls_Value::List>();
  if (list == nullptr) { return; }
  for (cls_Value const& element : *list) {
    if (auto const* name = element.As<std::string>()) { Referred(call, ReferenceKindOf("connector"), *name); }
  }
}

/// Completes the members that refer to something of the model and refuses what the model does not know.
void ResolveReferences(Call& call, kprC_StepAwareRepository const& repository, std::vector<MemberArgument> const& arguments,
                       kprC_Arguments& members) {
  for (auto& [name, value] : members) {
    cls_MemberInfo const& info = *FindArgument(arguments, name)->info;
    auto const* text = value.As<std::string>();
    call.subject.member = name;
    if (info.typeId == rgnC_Region::TypeId()) {
      if (text != nullptr && !text->empty()) { value = WholeRegion(call, *text); }
    } else if (info.typeId == dtmC_DatumRef::TypeId()) {
      if (text != nullptr && *text == kGlobal) { value = ""; }
    } else if (name == kAmplitude) {
      auto const& amplitudes = call.model.ConstGet<ddr_AmplitudeMap>(ddr_Model::amplitudesCmd());
      bool const isState = text != nullptr && info.propagating && (*text == "UNSET" || *text == "FREED" || *text == "PROPAGATED");
      if (isState) { continue; }
      if (text != nullptr && text->empty()) { Refuse(call, repository, kprC_EditRefusal::AmplitudeName, "The name is empty."); }
      if (text == nullptr || !amplitudes.IsMember(*text)) {
        Refuse(call, repository, kprC_EditRefusal::AmplitudeValue,
               Suggestion(text == nullptr ? "" : *text, Texts(amplitudes.Keys()), "Amplitudes"));
      }
    } else if (name == kField && text != nullptr && !text->empty()) {
      auto const& fields = call.model.ConstGet<kfdC_FieldMap>(ddr_Model::fieldsCmd());
      if (!fields.IsMember(*text)) {
        Refuse(call, repository, kprC_EditRefusal::FieldUnknown, Suggestion(*text, Texts(fields.Keys()), "Fields"));
      }
    } else if (name == kConnectors) {
      AssertConnectors(call, value);
    }
  }
  call.subject.member.clear();
}

void SetOwn(Call& call, kprC_StepDependent& item, Members const& members) {
  ExplainValues(call.subject, item, members.ownArguments, members.own, [&] {
    for (auto const& [name, value] : members.own) { item.SetMember(FindArgument(members.ownArguments, name)->info->name, value); }
  });
}

void SetState(Call& call, kprC_StepDependent& item, cow_String const& step, cls_Object const& state, Members const& members) {
  ExplainValues(call.subject, state, members.stateArguments, members.state, [&] {
    std::string unknown;
    item.SetInStep(step, members.state, &unknown);
  });
}

/// The step of a command on an attribute; where the model has none of that name, the message says which it has.
cow_String StepArgument(Call& call, std::string_view argument) {
  cow_String step(call.arguments.Text(argument));
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  call.subject.step = step.View();
  if (!steps.IsMember(step)) {
    call.subject.hint = Suggestion(step, Texts(steps.Names()), "Steps");
    call.subject.atFault = true;
  }
  return step;
}

void AssertNotSuppressed(AttributeTarget const& target) {
  if (target.item.IsSuppressed()) { target.repository.Refuse(kprC_EditRefusal::Suppressed); }
}

/// Refuses an attribute whose creation has been removed: there is nothing to set values in.
void AssertCreated(Call& call, AttributeTarget const& target, cls_Object const* state) {
  if (state != nullptr) { return; }
  call.subject.hint = "Its creation has been removed; delete it and create it anew.";
  target.repository.Refuse(kprC_EditRefusal::NotInStep);
}

/// Edits the attribute, asks whether it still goes with the model, and records the edit.
template <class Fn> void Edit(Call& call, AttributeTarget const& target, Fn&& edit) {
  auto& repository = call.model.Get<kprC_StepAwareRepository>(target.extension);
  kprC_StepDependent& item = *repository.Item(target.name);
  edit(item);
  AssertInModel(call, item);
  repository.RecordModify(target.name);
}

/// A command that takes one step and runs one operation of the attribute there.
template <class Fn> void EditInStep(Call& call, AttributeTarget const& target, Fn&& operation) {
  cow_String const step = StepArgument(call, kStep);
  call.arguments.AssertNoRest({std::string(kStep)});
  AssertNotSuppressed(target);
  Edit(call, target, [&](kprC_StepDependent& item) { operation(item, step); });
}

cow_String FreeName(Call& call, std::string_view argument, kprC_StepAwareRepository const& repository, cow_String const& own) {
  cow_String name = call.arguments.Name(argument);
  if (name != own && repository.ConstItem(name) != nullptr) {
    call.subject.hint = "The name is that of " + ObjectText(repository.ItemCmd(), name) + ".";
    repository.Refuse(kprC_EditRefusal::NameInUse);
  }
  return name;
}

}  // namespace

void AssertInModel(Call const& call, kprC_StepDependent const& item) {
  if (!item.IsSuppressed()) { item.AssertInModel(call.model); }
}

std::vector<CommandInfo> AttributeConstructions() {
  std::vector<CommandInfo> infos;
  for (Family const& family : Families()) {
    for (Construction const& construction : family.constructions()) {
      std::unique_ptr<kprC_StepDependent> const item = family.make(construction.command);
      std::string unknown;
      item->SetInStep(cow_String(kprC_Step::initialCmd().View()), {}, &unknown);
      std::string_view const label = construction.label.empty() ? construction.command : construction.label;
      CommandInfo info{std::string(construction.command), std::string(family.group), "creates: " + std::string(label), {}};
      info.arguments.push_back({std::string(kName), "the new object's name", "", {}, true});
      info.arguments.push_back({std::string(kCreateStep), "the step in which it is created", "", {}, true});
      for (MemberArgument const& own : OwnArguments(family.extension, *item)) { info.arguments.push_back(Describe(own)); }
      for (MemberArgument const& member : MemberArguments(*CreateState(*item), kNotSettable)) {
        info.arguments.push_back(Describe(member));
      }
      infos.push_back(std::move(info));
    }
  }
  return infos;
}

bool ConstructAttribute(Call& call) {
  for (Family const& family : Families()) {
    std::unique_ptr<kprC_StepDependent> const item = family.make(call.arguments.Command());
    if (!item) { continue; }
    auto const& repository = call.model.ConstGet<kprC_StepAwareRepository>(family.extension);
    cow_String const name = FreeName(call, kName, repository, cow_String());
    call.subject.object = Quoted(name);
    call.touched = {false, std::string(family.extension), {name}};
    kprC_StepContainer const& steps = kprC_Steps(call.model);
    cow_String const step = StepArgument(call, kCreateStep);
    if (steps.Size() == 0) { repository.Refuse(kprC_EditRefusal::NoSteps); }
    if (!steps.IsMember(step)) { repository.Refuse(kprC_EditRefusal::UnknownStep); }
    if (!family.inInitialStep && steps.Index(step) == 0) { repository.Refuse(kprC_EditRefusal::InInitialStep); }

    std::string unknown;
    item->SetInStep(step, {}, &unknown);  // begins with a default state, which tells what it takes
    Members members = Sorted(call, family.extension, *item, *CreateState(*item));
    ResolveReferences(call, repository, members.ownArguments, members.own);
    ResolveReferences(call, repository, members.stateArguments, members.state);
    SetOwn(call, *item, members);
    SetState(call, *item, step, *CreateState(*item), members);
    auto& target = call.model.Get<kprC_StepAwareRepository>(family.extension);
    target.InsertItem(name, *item);
    AssertInModel(call, *target.ConstItem(name));
    return true;
  }
  return false;
}

void SetAttributeValues(Call& call, AttributeTarget const& target) {
  cls_Object const* state = CreateState(target.item);
  AssertCreated(call, target, state);
  Members members = Sorted(call, target.extension, target.item, *state);
  AssertNotSuppressed(target);
  ResolveReferences(call, target.repository, members.ownArguments, members.own);
  ResolveReferences(call, target.repository, members.stateArguments, members.state);
  Edit(call, target, [&](kprC_StepDependent& item) {
    SetOwn(call, item, members);
    if (members.state.empty()) { return item.AssertValid(); }
    call.subject.step = item.CreateStepName().View();
    SetState(call, item, item.CreateStepName(), *state, members);
  });
}

void SetAttributeValuesInStep(Call& call, AttributeTarget const& target) {
  cow_String const step = StepArgument(call, kStep);
  cls_Object const* state = CreateState(target.item);
  AssertCreated(call, target, state);
  Members members = Sorted(call, "", target.item, *state);  // what is the attribute's own is the same in all steps
  AssertNotSuppressed(target);
  if (!kprC_Steps(call.model).IsMember(step)) { target.repository.Refuse(kprC_EditRefusal::UnknownStep); }
  if (!target.item.IsEditable(step)) {
    call.subject.hint = "It has the status " + std::to_string(static_cast<int>(target.item.Status(step))) + " there.";
    target.repository.Refuse(target.item.IsActiveIn(step) ? kprC_EditRefusal::ReadOnlyInStep : kprC_EditRefusal::NotInStep);
  }
  ResolveReferences(call, target.repository, members.stateArguments, members.state);
  Edit(call, target, [&](kprC_StepDependent& item) { SetState(call, item, step, *state, members); });
}

void DeactivateAttribute(Call& call, AttributeTarget const& target) {
  EditInStep(call, target, [](kprC_StepDependent& item, cow_String const& step) { item.Deactivate(step); });
}

void ResetAttribute(Call& call, AttributeTarget const& target) {
  EditInStep(call, target, [](kprC_StepDependent& item, cow_String const& step) { item.Reset(step); });
}

void RemoveAttributeState(Call& call, AttributeTarget const& target) {
  EditInStep(call, target, [&](kprC_StepDependent& item, cow_String const& step) {
    if (!item.Remove(step)) { target.repository.Refuse(kprC_EditRefusal::UnknownStep); }
  });
}

void MoveAttribute(Call& call, AttributeTarget const& target) {
  cow_String const from = StepArgument(call, kFromStep);
  cow_String const to(call.arguments.Text(kToStep));
  if (!call.subject.atFault) { StepArgument(call, kToStep); }
  call.arguments.AssertNoRest({std::string(kFromStep), std::string(kToStep)});
  AssertNotSuppressed(target);
  Edit(call, target, [&](kprC_StepDependent& item) { item.Move(from, to); });
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
  call.arguments.AssertNoRest({std::string(kNewName)});
  if (newName == target.name) { return; }
  call.model.Get<kprC_StepAwareRepository>(target.extension).RenameItem(target.name, newName);
  call.touched.names.push_back(newName);
}

void DeleteAttribute(Call& call, AttributeTarget const& target) {
  call.arguments.AssertNoRest({});
  call.model.Get<kprC_StepAwareRepository>(target.extension).Remove(target.name);
}

}  // namespace gattr
