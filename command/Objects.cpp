#include <algorithm>

#include "command/Command.h"
#include "module/kpr/kprC_assert.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "text/Text.h"

namespace gattr {

namespace {

ArgumentInfo Step(std::string_view name, char const* meaning) { return Naming(kprC_Step::stepCmd(), Required(name, meaning)); }
ArgumentInfo StepName() { return Step(kStepName, "the step"); }
ArgumentInfo Maintains(char const* meaning) {
  ArgumentInfo maintains = Optional(kprC_Step::maintainAttributesCmd(), meaning);
  maintains.kind = ValueKind::Boolean;
  maintains.preset = false;
  return maintains;
}
ArgumentInfo Policy(char const* meaning) {
  ArgumentInfo policy = Optional(kprC_Step::replacementPolicyCmd(), meaning);
  policy.kind = ValueKind::Enumerated;
  policy.permissible = ReplacementPolicies();
  policy.preset = "SUBSTITUTE";
  return policy;
}

/// Takes the object's name and sets the subject.
std::string const& Named(Call& call, std::string_view kind) {
  call.subject.kind = kind;
  return call.subject.name = call.arguments.Text(kind);
}

[[noreturn]] void RefuseKind(Call& call, std::string_view kind) {
  RefuseUnknown(call.subject, Quoted(call.arguments.Command()) + " is no command on " + WithArticle(kind) + ".");
}

bool RunOnStep(Call& call, ObjectCommand const& command) {
  std::string_view const kind = kprC_Step::stepCmd();
  if (!call.arguments.Has(kind)) { return false; }
  if (command.onStep == nullptr) { RefuseKind(call, kind); }
  cow_String const name(Named(call, kind));
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  if (!steps.IsMember(name)) {
    call.subject.hint = Suggestion(name, Texts(steps.Names()), "Steps");
    call.subject.atFault = true;
    kprC_Assert(false, kprC_ErrorEnm::NoSuchStep);
  }
  call.touched.all = true;
  command.onStep(call, name);
  return true;
}

bool RunOnReference(Call& call, ObjectCommand const& command, ReferenceKind const& kind) {
  if (!call.arguments.Has(kind.kind)) { return false; }
  if (command.onReference == nullptr) { RefuseKind(call, kind.kind); }
  cow_String const name(Named(call, kind.kind));
  Referred(call, kind, name);
  command.onReference(call, kind, name);
  return true;
}

bool HasTypeEdit(kprC_StepAwareRepository const& repository, std::string_view command) {
  return std::ranges::find(repository.TypeEdits(), command, &kprC_TypeEdit::command) != repository.TypeEdits().end();
}

/// Whether the family's attributes know the command called \p name.
bool IsKnown(ObjectCommand const& command, kprC_StepAwareRepository const& repository, std::string_view name) {
  if (command.onAttribute == &PerformOnAttribute) { return FindOperation(repository, name) != nullptr; }
  return command.onAttribute == &EditByType ? HasTypeEdit(repository, name) : command.onAttribute != nullptr;
}

bool RunOnAttribute(Call& call, ObjectCommand const& command) {
  ddr_Model const before = call.model;  // the target stays good while the command separates what it changes
  return FindRepository(before, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    std::string_view const kind = repository.ItemCmd();
    if (!call.arguments.Has(kind)) { return false; }
    if (!IsKnown(command, repository, call.arguments.Command())) { RefuseKind(call, kind); }
    std::string_view const given = Named(call, kind);
    kprC_StepDependent const* item = repository.ConstItem(given);
    if (item == nullptr) {
      call.subject.hint = Suggestion(given, Texts(repository.Keys()), "There are");
      ForEachRepository(before, [&](auto const&, kprC_StepAwareRepository const& other) {
        if (other.ConstItem(given) == nullptr) { return; }
        call.subject.hint = Quoted(given) + " is " + WithArticle(other.ItemCmd()) + ".";
      });
      call.subject.atFault = true;
      kprC_EditRefusalCodes const& codes = repository.EditRefusals();
      std::optional<int> code = command.onAttribute == &CopyAttribute ? codes.copyUnknown : std::nullopt;
      if (!code) { code = repository.Size() == 0 ? codes.noAttributes : codes.noSuchAttribute; }
      if (code) { repository.Refuse(*code); }
      RefuseUnknown(call.subject, "There is no " + ObjectText(kind, given) + ".", call.subject.hint);
    }
    cow_String const& name = item->Name();
    call.touched = {false, extension, {name}};
    command.onAttribute(call, {extension, repository, *item, name});
    return true;
  });
}

/// The commands that every object of a kind knows; the operations of families stand beside them.
std::vector<ObjectCommand> const& CommonCommands() {
  static std::vector<ObjectCommand> const commands = {
      {"setValues",
       "sets members of an object; of an attribute, its own and those of its create step",
       {},
       ObjectMembers::All,
       &SetAttributeValues,
       &SetStepValues,
       &SetReferenceValues},
      {"setValuesInStep", "sets members of an attribute from a step on", {StepName()}, ObjectMembers::OfState, &SetAttributeValuesInStep},
      {"remove", "takes back what an attribute sets in a step", {StepName()}, {}, &RemoveAttributeState},
      {"suppress", "takes an attribute out of the analysis as a whole; its history stays", {}, {}, &SuppressAttribute},
      {"resume", "takes a suppressed attribute back into the analysis", {}, {}, &ResumeAttribute},
      {"rename",
       "gives an object another name",
       {Required("newName", "the new name")},
       {},
       &RenameAttribute,
       &RenameStep,
       &RenameReference},
      {kCopy,
       "gives an object a second one beside it; with a step goes what attributes say in it",
       {Required("newName", "the copy's name"),
        Naming(kprC_Step::stepCmd(), Optional("previous", "of a step: behind which one the copy comes; itself when left out"))},
       {},
       &CopyAttribute,
       &CopyStep,
       &CopyReference},
      {"delete",
       "deletes an object; with a step go the attributes that were created in it",
       {},
       {},
       &DeleteAttribute,
       &DeleteStep,
       &DeleteReference},
      {"replace",
       "gives a step another procedure; parameters that both have keep their values",
       {Required("procedure", "construction command of the new procedure"),
        Maintains("whether attributes keep what they say in the step where the new procedure takes it"),
        Policy("what becomes of what they do not keep")},
       ObjectMembers::OfProcedure,
       nullptr,
       &ReplaceStep},
      {"report", "tells what an attribute says over all steps; changes nothing", {}, {}, &ReportAttribute},
  };
  return commands;
}

/// A command that is an operation of the family of the attribute that it names.
ObjectCommand const& OperationCommand() {
  static ObjectCommand const command{"", "", {}, {}, &PerformOnAttribute};
  return command;
}
/// A command that only the type of the attribute knows.
ObjectCommand const& TypeEditCommand() {
  static ObjectCommand const command{"", "", {}, {}, &EditByType};
  return command;
}

/// The construction commands of copies: "Load", "Step".
ObjectCommand const& CopyCommand() {
  static ObjectCommand const command{"", "", {}, {}, &CopyAttribute, &CopyStep};
  return command;
}

/// The command that is none of the common ones; null where there is no such command.
ObjectCommand const* OtherCommand(ddr_Model const& model, std::string_view name) {
  bool isTypeEdit = false, isCopy = kprC_Step::copyCmd() == name;
  bool const isOperation = FindRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    isTypeEdit = isTypeEdit || HasTypeEdit(repository, name);
    isCopy = isCopy || (!name.empty() && repository.CopyCmd() == name);
    return FindOperation(repository, name) != nullptr;
  });
  if (isOperation) { return &OperationCommand(); }
  if (isTypeEdit) { return &TypeEditCommand(); }
  return isCopy ? &CopyCommand() : nullptr;
}

/// The command on objects of that name; null where there is none.
ObjectCommand const* FindObjectCommand(ddr_Model const& model, std::string_view name) {
  auto const common = std::ranges::find(CommonCommands(), name, &ObjectCommand::name);
  return common == CommonCommands().end() ? OtherCommand(model, name) : &*common;
}

/// The kind under which a command names its object; empty where it names none.
std::string_view KindNamed(ddr_Model const& model, cls_Value const& command) {
  std::string_view named;
  FindRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    if (command.Find(repository.ItemCmd()) != nullptr) { named = repository.ItemCmd(); }
    return !named.empty();
  });
  if (named.empty() && command.Find(kprC_Step::stepCmd()) != nullptr) { named = kprC_Step::stepCmd(); }
  // Last: "region" and "amplitude" are members of attributes too.
  for (ReferenceKind const& kind : ReferenceKinds()) {
    if (named.empty() && command.Find(kind.kind) != nullptr) { named = kind.kind; }
  }
  return named;
}

}  // namespace

std::optional<std::vector<cls_Value>> Spread(ddr_Model const& model, cls_Value const& command) {
  auto const* const fields = command.As<cls_Value::Fields>();
  auto const isList = [](auto const& field) { return field.second.template As<cls_Value::List>() != nullptr; };
  if (fields == nullptr || std::ranges::none_of(*fields, isList)) { return std::nullopt; }
  cls_Value const* const called = command.Find("command");
  auto const* const name = called == nullptr ? nullptr : called->As<std::string>();
  if (name == nullptr || FindObjectCommand(model, *name) == nullptr) { return std::nullopt; }
  std::string_view const kind = KindNamed(model, command);
  std::vector<cls_Value> spread{command};
  bool any = false;
  for (std::size_t i = 0; i < fields->size(); ++i) {
    auto const& [argument, value] = (*fields)[i];
    if (!isList((*fields)[i]) || (argument != kind && argument != kStepName)) { continue; }
    any = true;
    std::vector<cls_Value> longer;
    for (cls_Value& one : spread) {
      std::get<cls_Value::Fields>(one.data)[i].second = {};  // not copied with each
      for (cls_Value const& element : *value.As<cls_Value::List>()) {
        std::get<cls_Value::Fields>(longer.emplace_back(one).data)[i].second = element;
      }
    }
    spread = std::move(longer);
  }
  if (!any) { return std::nullopt; }
  return spread;
}

std::string_view CopyNameArgument(Call& call, std::string_view kind, std::string_view construction) {
  if (call.arguments.Command() == kCopy) { return kNewName; }
  if (call.arguments.Command() != construction) { RefuseKind(call, kind); }
  return kName;
}

CommandInfo CopyConstruction(std::string_view construction, std::string group, std::string_view kind) {
  return {std::string(construction),
          std::move(group),
          "copies " + WithArticle(kind) + ", of any type",
          {Required(kName, "the copy's name"), Naming(kind, Required(kind, "what is copied"))},
          std::string(kind)};
}

std::string ObjectText(std::string_view kind, std::string_view name) { return std::string(kind) + " " + Quoted(name); }

std::vector<std::string> ObjectKinds(ddr_Model const& model, ObjectCommand const& command, std::string_view name) {
  std::vector<std::string> kinds;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    if (IsKnown(command, repository, name)) { kinds.emplace_back(repository.ItemCmd()); }
  });
  if (command.onStep != nullptr) { kinds.emplace_back(kprC_Step::stepCmd().View()); }
  if (command.onReference == nullptr) { return kinds; }
  for (ReferenceKind const& kind : ReferenceKinds()) { kinds.emplace_back(kind.kind); }
  return kinds;
}

std::vector<ObjectCommand> ObjectCommands(ddr_Model const& model) {
  std::vector<ObjectCommand> commands = CommonCommands();
  auto const behindEdits = [&commands] { return std::ranges::find(commands, std::string_view("remove"), &ObjectCommand::name); };
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    for (kprC_Operation const& operation : repository.Operations()) {
      if (std::ranges::find(commands, operation.command, &ObjectCommand::name) != commands.end()) { continue; }
      ObjectCommand& command = *commands.insert(behindEdits(), OperationCommand());
      command.name = operation.command;
      command.meaning = operation.meaning;
      command.arguments = operation.effect == kprC_Effect::Move
                              ? std::vector{Step(kFromStep, "the step that sets it"), Step(kToStep, "the step that is to set it")}
                              : std::vector{StepName()};
    }
    for (kprC_TypeEdit const& edit : repository.TypeEdits()) {
      ObjectCommand& command = *commands.insert(behindEdits(), TypeEditCommand());
      command.name = edit.command;
      command.meaning = edit.meaning;
      if (edit.inStep) { command.arguments.push_back(StepName()); }
      std::unique_ptr<cls_Object> const arguments = edit.arguments();
      Describe(command.arguments, *arguments, ArgumentOf::Command);
      command.onlyType = edit.typeId;
    }
  });
  return commands;
}

bool RunOnObject(Call& call) {
  ObjectCommand const* const command = FindObjectCommand(call.model, call.arguments.Command());
  if (command == nullptr) { return false; }
  if (RunOnAttribute(call, *command) || RunOnStep(call, *command)) { return true; }
  // Last: "region" and "amplitude" are members of attributes too.
  if (std::ranges::any_of(ReferenceKinds(), [&](ReferenceKind const& kind) { return RunOnReference(call, *command, kind); })) {
    return true;
  }
  std::vector<std::string> const kinds = ObjectKinds(call.model, *command, call.arguments.Command());
  RefuseUnknown(call.subject, "The object is missing.", "Name it as one of " + QuotedList(kinds, kinds.size()) + ".");
}

}  // namespace gattr
