#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "command/Arguments.h"
#include "command/Members.h"
#include "command/Session.h"
#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/steps/kprC_Step.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"

/// What the command tables share: one command on its way, and the kinds of objects that it may name.
namespace gattr {

struct Finding;

inline constexpr std::string_view kName = "name", kNewName = "newName", kStepName = "stepName", kCreateStep = "createStepName",
                                  kFromStep = "fromStepName", kToStep = "toStepName";

/// Whose histories a command touches.
struct Touched {
  bool all = false;                    ///< a command on a step: every attribute
  cow_String extension = {};           ///< member name of the attribute's repository; empty when no attribute is named
  std::vector<cow_String> names = {};  ///< of the attribute, before and after
  std::vector<Rename> renames = {};    ///< of any object, in their order

  /// Adds what a further command has touched.
  void Add(Touched const& other);
};

/// One command while it runs.
struct Call {
  ddr_Model& model;
  Arguments& arguments;
  Subject& subject;
  Touched& touched;
  std::string& report;  ///< what a command tells that changes nothing
  /// The attribute before and after, where the command has edited one and done nothing else.
  kprC_StepDependent const *was = nullptr, *is = nullptr;
};

/// Lets no change be recorded of models that nobody keeps.
class Unrecorded {
public:
  Unrecorded() = default;
  ~Unrecorded() { changes_.TruncateTo(before_); }
  Unrecorded(Unrecorded const&) = delete;
  Unrecorded& operator=(Unrecorded const&) = delete;

private:
  omu_ChangeHistory& changes_ = thr_ThreadSingleton<omu_ChangeHistory>::Instance();
  std::size_t before_ = changes_.Size();
};

/// The attribute that a command names. Repository and item are those before the command, kept by the session's snapshot.
struct AttributeTarget {
  cow_String extension;
  kprC_StepAwareRepository const& repository;
  kprC_StepDependent const& item;
  cow_String name;
};

/// A kind of named objects beside attributes and steps, and where the model keeps them. Most are referred to by name.
struct ReferenceKind {
  cls_Reference reference;     ///< by which members refer to one; None: by none
  std::string_view kind;       ///< "region", as commands name one
  std::string_view extension;  ///< member name of the model's map
  std::string_view known;      ///< what a message calls those that there are: "Amplitudes"
  /// Refuses one that does not go with the model; null where each does.
  void (*assertInModel)(Call& call, cls_Object const& object) = nullptr;

  mdl_NamedObjects const& In(ddr_Model const& model) const { return model.ConstGet<mdl_NamedObjects>(extension); }
  mdl_NamedObjects& In(ddr_Model& model) const { return model.Get<mdl_NamedObjects>(extension); }
};

/// A command on an object that it names by kind, and what it does to each kind; null where the kind does not know it.
struct ObjectCommand {
  std::string_view name;
  std::string_view meaning;
  std::vector<ArgumentInfo> arguments;
  ObjectMembers members = ObjectMembers::None;  ///< which of the object's are arguments too
  void (*onAttribute)(Call& call, AttributeTarget const& target) = nullptr;
  void (*onStep)(Call& call, cow_String const& name) = nullptr;
  void (*onReference)(Call& call, ReferenceKind const& kind, cow_String const& name) = nullptr;
  unsigned onlyType = 0;  ///< number of the type of attribute that alone knows it; 0 where any does
};

/// An argument that is none of an object's members.
inline ArgumentInfo Optional(std::string_view name, std::string_view meaning) {
  ArgumentInfo info;
  info.name = name;
  info.meaning = meaning;
  return info;
}
inline ArgumentInfo Required(std::string_view name, std::string_view meaning) {
  ArgumentInfo info = Optional(name, meaning);
  info.required = true;
  return info;
}
/// One that names an object of that kind.
inline ArgumentInfo Naming(std::string_view kind, ArgumentInfo info) {
  info.refers = kind;
  return info;
}
/// The state of the step that creates the attribute; null where no step says anything.
cls_Object const* CreateState(kprC_StepDependent const& item);
/// What help tells of the members of \p object that commands may set.
void Describe(std::vector<ArgumentInfo>& arguments, cls_Object const& object, ArgumentOf of = ArgumentOf::Object);

// Each file of commands offers what it constructs: the descriptions, and to run one; false when the command is none of its.
std::vector<CommandInfo> StepConstructions();
bool ConstructStep(Call& call);
std::vector<CommandInfo> AttributeConstructions();
bool ConstructAttribute(Call& call);
std::vector<CommandInfo> ReferenceConstructions();
bool ConstructReference(Call& call);

// commands on a step
void SetStepValues(Call& call, cow_String const& name);
void RenameStep(Call& call, cow_String const& name);
void DeleteStep(Call& call, cow_String const& name);
void ReplaceStep(Call& call, cow_String const& name);
/// What may become of attributes whose step gets another procedure, in the order of help.
std::vector<std::string> ReplacementPolicies();
/// Inserts a copy of a step, in which every attribute says what it says in the step itself.
void CopyStep(Call& call, cow_String const& name);

// commands on an attribute
void SetAttributeValues(Call& call, AttributeTarget const& target);
void SetAttributeValuesInStep(Call& call, AttributeTarget const& target);
/// The operation that a command is in a family; null where it is none.
kprC_Operation const* FindOperation(kprC_StepAwareRepository const& repository, std::string_view command);
/// The family's operation with that effect; null where it has none.
kprC_Operation const* FindOperation(kprC_StepAwareRepository const& repository, kprC_Effect effect);
void PerformOnAttribute(Call& call, AttributeTarget const& target);
/// An edit that the attribute's type knows beside its family's operations.
void EditByType(Call& call, AttributeTarget const& target);
void ReportAttribute(Call& call, AttributeTarget const& target);
void RemoveAttributeState(Call& call, AttributeTarget const& target);
void SuppressAttribute(Call& call, AttributeTarget const& target);
void ResumeAttribute(Call& call, AttributeTarget const& target);
void RenameAttribute(Call& call, AttributeTarget const& target);
void DeleteAttribute(Call& call, AttributeTarget const& target);
void CopyAttribute(Call& call, AttributeTarget const& target);
/// Has every attribute that says something of its own in the step \p from say the same in \p to, unless it is so there already. One
/// that is created in \p from and not carried to \p to is copied: "Push-Again" of "Push" in "Again".
void SayAgain(Call& call, cow_String const& from, cow_String const& to);

/// Runs \p run; where it is refused and the message has no hint yet, \p hint(refusal) gives one.
template <class Run, class Hint> void Hinting(Call& call, Run&& run, Hint&& hint) {
  try {
    run();
  } catch (std::exception const& error) {
    if (call.subject.hint.empty()) { call.subject.hint = hint(RefusalOf(error)); }
    throw;
  }
}

/// Asks an attribute, unless it is suppressed, whether it goes with the model as the command leaves it.
void AssertInModel(Call const& call, kprC_StepDependent const& item);

// commands on what attributes and steps refer to
std::span<ReferenceKind const> ReferenceKinds();
/// The kind of what a member names; null where the model keeps nothing of that kind.
ReferenceKind const* FindReferenceKind(cls_Reference reference);
/// The object of that name. Refused with the nearest name where the model has none.
cls_Object const& Referred(Call& call, ReferenceKind const& kind, std::string_view name);
/// The command that declares such an object, and what it begins with; "" and null where none does.
std::pair<std::string_view, std::unique_ptr<cls_Object>> FindDeclaration(ReferenceKind const& kind, cls_Object const& object);
void SetReferenceValues(Call& call, ReferenceKind const& kind, cow_String const& name);
void RenameReference(Call& call, ReferenceKind const& kind, cow_String const& name);
void DeleteReference(Call& call, ReferenceKind const& kind, cow_String const& name);
// load cases, which name steps and attributes
void AssertLoadCase(Call& call, cls_Object const& object);
void CheckLoadCases(ddr_Model const& model, std::vector<Finding>& findings);
/// Has load cases follow what they name; \p kind is "step" or that of an attribute.
void RenameInLoadCases(Call& call, std::string_view kind, cow_String const& name, cow_String const& newName);
/// Refuses to delete what a load case names.
void AssertInNoLoadCase(Call& call, std::string_view kind, cow_String const& name);

void CopyReference(Call& call, ReferenceKind const& kind, cow_String const& name);
/// Has those follow that name an attribute of the repository.
void RenameInReferences(Call& call, kprC_StepAwareRepository const& repository, cow_String const& name, cow_String const& newName);
/// Refuses to delete an attribute that others name.
void AssertInNoReference(Call& call, kprC_StepAwareRepository const& repository, cow_String const& name);

/// Whether the member may name something of the model, itself or in what it holds.
inline bool NamesSomething(cls_MemberInfo const& info) { return info.refers != cls_Reference::None || info.typeId != 0; }
/// Completes the value of such a member that is an argument of the command; refused as below.
void ResolveReference(Call& call, kprC_StepAwareRepository const* repository, cls_MemberInfo const& info,
                      kprC_Arguments::value_type& argument);
/// Completes the values of members of a class that name something of the model, in lists and nested objects too, and refuses what the
/// model does not have: by the number of \p repository's family where that has one.
void ResolveReferences(Call& call, kprC_StepAwareRepository const* repository, cls_ClassMetadata const& type, kprC_Arguments& members);
/// Sets members of \p object, which may be a step, what others refer to by name or a command's arguments, and completes what they name;
/// refuses what does not fit and, as ResolveReferences does, what the model does not have.
void SetObjectMembers(Call& call, kprC_StepAwareRepository const* repository, cls_Object& object, kprC_Arguments members);
/// The family's refusal of a name of that kind that the model does not have; nothing where it has no number for it.
std::optional<int> UnknownCode(kprC_EditRefusalCodes const& codes, cls_Reference reference);
/// Calls \p visit for what \p object names, each name of a kind once, that the model keeps no object of; \p member is what commands
/// call the member that names it, empty for one that they do not set.
void ForEachUnknown(ddr_Model const& model, cls_Object const& object,
                    std::function<void(ReferenceKind const& kind, std::string_view name, std::string_view member)> const& visit);

inline constexpr std::string_view kCopy = "copy";
/// What the argument for the copy's name is called: "newName", or "name" where the command is \p construction ("Load"), which is
/// refused on objects of another kind.
std::string_view CopyNameArgument(Call& call, std::string_view kind, std::string_view construction);
/// The help of the command that constructs a copy of an object of that kind.
CommandInfo CopyConstruction(std::string_view construction, std::string group, std::string_view kind);

/// The commands on objects, in the order of help; those that operations of the model's families are among them.
std::vector<ObjectCommand> ObjectCommands(ddr_Model const& model);
/// The kinds of object that the command called \p name may name, in the order of help.
std::vector<std::string> ObjectKinds(ddr_Model const& model, ObjectCommand const& command, std::string_view name);
/// A command on objects that names several of them, or several steps, as one command for each pair, in the order written: what is named
/// by the earlier argument changes last. Nothing where it names one of each.
std::optional<std::vector<cls_Value>> Spread(ddr_Model const& model, cls_Value const& command);
/// Runs a command on the object that it names; false when there is no such command.
bool RunOnObject(Call& call);

/// Calls \p is(member name, repository) for the repositories of step-dependent attributes until it says yes.
template <class Is> bool FindRepository(ddr_Model const& model, Is&& is) {
  for (auto const& [member, extension] : model.Extensions()) {
    auto const* repository = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
    if (repository != nullptr && is(member, *repository)) { return true; }
  }
  return false;
}
/// Calls \p visit(member name, repository) for every repository of step-dependent attributes.
template <class Visit> void ForEachRepository(ddr_Model const& model, Visit&& visit) {
  FindRepository(model, [&visit](cow_String const& member, kprC_StepAwareRepository const& repository) {
    visit(member, repository);
    return false;
  });
}

/// What commands call a member.
inline std::string_view ArgumentName(cls_MemberRow const& row) { return row.text.command.empty() ? row.name : row.text.command; }
/// Calls \p visit(row, kind, name, whole) for what the members of \p object name.
template <class Visit> void ForEachNamed(cls_Object const& object, Visit&& visit) {
  for (cls_MemberRow const& row : object.MemberRows()) {
    cls_ForEachReference({&row, 1}, &object,
                         [&](cls_Reference kind, std::string_view name, cls_Object const* whole) { visit(row, kind, name, whole); });
  }
}

/// The names of a list as texts.
template <class Names> std::vector<std::string> Texts(Names const& names) {
  std::vector<std::string> texts;
  for (cow_String const& name : names) { texts.emplace_back(name.View()); }
  return texts;
}

/// 'boundaryCondition "Fix"'.
std::string ObjectText(std::string_view kind, std::string_view name);

/// Whose refusal it is, of an attribute that the command does not name.
inline std::string OtherHint(kprC_StepAwareRepository const& repository, cow_String const& name) {
  return "That is what " + ObjectText(repository.ItemCmd(), name) + " refuses.";
}
/// Runs \p ask, which asks an attribute that the command does not name; a refusal says whose it is.
template <class Ask> void AskOther(Call& call, kprC_StepAwareRepository const& repository, cow_String const& name, Ask&& ask) {
  try {
    ask();
  } catch (std::exception const&) {
    call.subject.hint = OtherHint(repository, name);
    throw;
  }
}

}  // namespace gattr
