#include "cli/Description.h"

#include <algorithm>
#include <memory>

#include "cli/Program.h"
#include "command/HistoryTable.h"
#include "command/Members.h"
#include "command/Words.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

bool SameLetters(std::string_view a, std::string_view b) {
  auto const lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::ranges::equal(a, b, {}, lower, lower);
}

cls_ClassRegistrar const& Registrar() { return cls_MetadataRegistrar::Registrar(); }

/// What a construction command makes; null when it makes nothing that is described.
cow_Handle<cls_Object> Made(std::string_view command) {
  if (kprC_StepHandle const step = kprC_ConstructStep(command)) { return step; }
  std::unique_ptr<kprC_StepDependent> attribute;
  for (auto const& [name, extension] : mdl_ExtensionSubject::Registered()) {
    auto const* family = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
    if (family != nullptr && !attribute) { attribute = family->Construct(command); }
  }
  return cow_Handle<cls_Object>(std::unique_ptr<cls_Object>(std::move(attribute)));
}

void AddAdmission(Description& description, cls_Object const& object) {
  if (auto const* step = dynamic_cast<kprC_Step const*>(&object)) { description.inLoadCases = step->AllowLoadCases() ? "yes" : "no"; }
  auto const* attribute = dynamic_cast<kprC_StepDependent const*>(&object);
  if (attribute == nullptr) { return; }
  description.inLoadCases = attribute->LoadCaseText();
  auto& created = description.createdIn.emplace();
  auto& carried = description.carriedInto.emplace();
  auto const sort = [&](unsigned procedureType) {
    if (attribute->Admits(procedureType, false)) {
      created.push_back(ProcedureText(procedureType));
    } else if (attribute->Admits(procedureType, true)) {
      carried.push_back(ProcedureText(procedureType));
    }
  };
  sort(kprC_ProcedureType::Initial);
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    sort(row.type);
    bool const inBaseState = attribute->IsPartOfBaseState() && kprC_Step::Perturbation(row.type);
    if (inBaseState) { description.inBaseStateOf.push_back(ProcedureText(row.type)); }
  }
}

Description OfCommand(CommandInfo const& command) {
  Description description;
  description.name = command.name;
  description.isCommand = true;
  description.meaning = command.meaning;
  description.entries = command.Listed();
  if (auto const made = Made(command.name)) {
    cls_ClassMetadata const* metadata = Registrar().Find(made->DynTypeId());
    if (metadata != nullptr) { description.className = metadata->name; }
    AddAdmission(description, *made);
  }
  return description;
}

Description OfClass(cls_ClassMetadata const& metadata) {
  Description description;
  description.name = description.className = metadata.name;
  for (CommandInfo const& command : Session::Commands()) {
    auto const made = Made(command.name);
    if (made && made->DynTypeId() == metadata.typeId) { description.commands.push_back(command.name); }
  }
  description.entries = MembersOf(metadata);
  if (metadata.make != nullptr) { AddAdmission(description, *metadata.make()); }
  return description;
}

}  // namespace

std::vector<std::string> ClassNames() {
  std::vector<std::string> names;
  for (auto const& [typeId, metadata] : Registrar().Classes()) { names.push_back(metadata.name); }
  return names;
}

Description DescriptionOf(std::string_view name) {
  std::vector<std::string> known;
  for (CommandInfo const& command : Session::Commands()) {
    if (SameLetters(command.name, name)) { return OfCommand(command); }
    known.push_back(command.name);
  }
  for (auto const& [typeId, metadata] : Registrar().Classes()) {
    if (SameLetters(metadata.name, name)) { return OfClass(metadata); }
    known.push_back(metadata.name);
  }
  std::string const nearest = Nearest(name, known);
  throw BadInput("there is no command or class " + Quoted(name) + ". " +
                 (nearest.empty() ? "`gattr describe` lists them." : "Did you mean " + Quoted(nearest) + "?"));
}

}  // namespace gattr::cli
