#pragma once

#include <string_view>
#include <vector>

#include "command/Arguments.h"
#include "command/Session.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/steps/kprC_Step.h"

/// What the command tables share: one command on its way, and the kinds of objects that it may name.
namespace gattr {

/// One command while it runs.
struct Call {
  ddr_Model& model;
  Arguments& arguments;
  Subject& subject;
  Touched& touched;
};

/// The attribute that a command names. Repository and item are those before the command, kept by the session's snapshot.
struct AttributeTarget {
  cow_String extension;
  kprC_StepAwareRepository const& repository;
  kprC_StepDependent const& item;
  cow_String name;
};

/// A kind of objects that attributes refer to by name: regions, amplitudes, connectors, fields.
struct ReferenceKind {
  std::string_view kind;  ///< "region", as commands name one
  std::vector<std::string> (*names)(ddr_Model const& model);
  /// The object of that name, or null.
  cls_Object const* (*find)(ddr_Model const& model, std::string_view name);
  /// Puts a copy of \p object, with an identity of its own, under \p name.
  void (*put)(ddr_Model& model, cow_String const& name, cls_Object const& object);
  void (*remove)(ddr_Model& model, cow_String const& name);
  /// Whether the attribute refers to the object of that name.
  bool (*uses)(kprC_StepDependent const& item, std::string_view name);
};

/// A command on an object that it names by kind, and what it does to each kind; null where the kind does not know it.
struct ObjectCommand {
  std::string_view name;
  std::string_view meaning;
  std::vector<ArgumentInfo> arguments;
  void (*onAttribute)(Call& call, AttributeTarget const& target) = nullptr;
  void (*onStep)(Call& call, cow_String const& name) = nullptr;
  void (*onReference)(Call& call, ReferenceKind const& kind, cow_String const& name) = nullptr;
};

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

/// Names of the regions that a member of a step names, in the records of a list too.
std::vector<std::string> RegionsOf(kprC_Step const& step, cls_MemberInfo const& member);
/// The same of all its members.
std::vector<std::string> RegionsOf(kprC_Step const& step);

// commands on an attribute
void SetAttributeValues(Call& call, AttributeTarget const& target);
void SetAttributeValuesInStep(Call& call, AttributeTarget const& target);
void DeactivateAttribute(Call& call, AttributeTarget const& target);
void ResetAttribute(Call& call, AttributeTarget const& target);
void RemoveAttributeState(Call& call, AttributeTarget const& target);
void MoveAttribute(Call& call, AttributeTarget const& target);
void SuppressAttribute(Call& call, AttributeTarget const& target);
void ResumeAttribute(Call& call, AttributeTarget const& target);
void RenameAttribute(Call& call, AttributeTarget const& target);
void DeleteAttribute(Call& call, AttributeTarget const& target);

/// Asks an attribute, unless it is suppressed, whether it goes with the model as the command leaves it.
void AssertInModel(Call const& call, kprC_StepDependent const& item);

// commands on what attributes refer to
std::vector<ReferenceKind> const& ReferenceKinds();
ReferenceKind const& ReferenceKindOf(std::string_view kind);
/// The object of that name. Refused with the nearest name where the model has none.
cls_Object const& Referred(Call& call, ReferenceKind const& kind, std::string_view name);
void SetReferenceValues(Call& call, ReferenceKind const& kind, cow_String const& name);
void RenameReference(Call& call, ReferenceKind const& kind, cow_String const& name);
void DeleteReference(Call& call, ReferenceKind const& kind, cow_String const& name);

/// The commands on objects, in the order of help.
std::vector<ObjectCommand> const& ObjectCommands();
/// Every kind of object that commands on objects may name, in the order of help.
std::vector<std::string> ObjectKinds(ddr_Model const& model);
/// Runs a command on the object that it names; false when there is no such command.
bool RunOnObject(Call& call);

/// Calls \p visit(member name, repository) for every repository of step-dependent attributes.
template <class Visit> void ForEachRepository(ddr_Model const& model, Visit&& visit) {
  for (auto const& [member, extension] : model.Extensions()) {
    if (auto const* repository = dynamic_cast<kprC_StepAwareRepository const*>(extension.ConstGet())) { visit(member, *repository); }
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

/// Runs \p ask, which asks an attribute that the command does not name; a refusal says whose it is.
template <class Ask> void AskOther(Call& call, kprC_StepAwareRepository const& repository, cow_String const& name, Ask&& ask) {
  try {
    ask();
  } catch (std::exception const&) {
    call.subject.hint = "That is what " + ObjectText(repository.ItemCmd(), name) + " refuses.";
    throw;
  }
}

}  // namespace gattr
