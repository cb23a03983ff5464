#include "cli/Description.h"

#include <algorithm>
#include <memory>

#include "cli/Program.h"
#include "command/Families.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "report/HistoryTable.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

using Entry = Description::Entry;

bool SameLetters(std::string_view a, std::string_view b) {
  auto const lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::ranges::equal(a, b, {}, lower, lower);
}

cls_ClassRegistrar const& Registrar() { return cls_MetadataRegistrar::Registrar(); }

Json ToJson(cls_Value const& value) {
  return std::visit(
      []<class T>(T const& held) -> Json {
        if constexpr (std::same_as<T, std::monostate>) {
          return nullptr;
        } else if constexpr (std::same_as<T, cls_Value::List>) {
          Json list = Json::array();
          for (cls_Value const& item : held) { list.push_back(ToJson(item)); }
          return list;
        } else if constexpr (std::same_as<T, cls_Value::Fields>) {
          Json fields = Json::object();
          for (auto const& [name, field] : held) { fields[name] = ToJson(field); }
          return fields;
        } else {
          return held;
        }
      },
      value.data);
}

std::string TypeText(cls_MemberInfo const& info) {
  std::string type;
  switch (info.kind) {
    case cls_MemberKind::Integer: type = "integer"; break;
    case cls_MemberKind::Real: type = "number"; break;
    case cls_MemberKind::String: type = "text"; break;
    case cls_MemberKind::Boolean: type = "boolean"; break;
    case cls_MemberKind::Enumerated: type = "choice"; break;
    case cls_MemberKind::Object: {
      cls_ClassMetadata const* held = info.typeId == 0 ? nullptr : Registrar().Find(info.typeId);
      type = held == nullptr ? "object" : held->name;
    }
  }
  return info.table ? "table of " + type : info.many ? "list of " + type : type;
}

/// \p presets may be null.
Entry EntryOf(cls_MemberInfo const& info, cls_Object const* presets) {
  bool const plain = presets != nullptr && !info.many && info.kind != cls_MemberKind::Object;
  return {info.name, TypeText(info), false,           info.propagating, plain ? ToJson(presets->Member(info.name)) : Json(),
          info.unit, info.meaning,   info.permissible};
}

/// What a construction command makes: its class, and for an attribute the state of a step, which takes the other arguments.
struct Made {
  cow_Handle<cls_Object> step;
  std::unique_ptr<kprC_StepDependent> attribute;
  std::span<OwnArgument const> own;

  cls_Object const* Object() const { return step ? step.ConstGet() : attribute.get(); }
  cls_Object const* State() const { return attribute ? attribute->StateAt(0) : nullptr; }
};

Made Make(std::string_view command) {
  Made made;
  made.step = kprC_ConstructStep(command);
  for (Family const& family : Families()) {
    if (made.step || made.attribute) { break; }
    made.attribute = family.make(command);
    made.own = family.own;
  }
  std::string unknown;
  if (made.attribute) { made.attribute->SetInStep(cow_String(kprC_Step::initialCmd().View()), {}, &unknown); }
  return made;
}

void AddAdmission(Description& description, cls_Object const& object) {
  auto const* attribute = dynamic_cast<kprC_StepDependent const*>(&object);
  if (attribute == nullptr) { return; }
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
  for (kprC_ProcedureRow const& row : kprC_procedures) { sort(row.type); }
}

void Complete(Entry& entry, cls_Object const& object, std::string_view member) {
  cls_ClassMetadata const* metadata = Registrar().Find(object.DynTypeId());
  cls_MemberInfo const* info = metadata == nullptr ? nullptr : metadata->Find(member);
  if (info == nullptr) { return; }
  Entry const full = EntryOf(*info, &object);
  entry.type = full.type;
  entry.preset = full.preset;
  entry.perStep = full.perStep;
}

Description OfCommand(CommandInfo const& command) {
  Description description;
  description.name = command.name;
  description.meaning = command.meaning;
  Made const made = Make(command.name);
  for (ArgumentInfo const& argument : command.arguments) {
    Entry entry{argument.name, "", argument.required, false, nullptr, argument.unit, argument.meaning, argument.permissible};
    if (made.Object() != nullptr) {
      auto const own = std::ranges::find(made.own, argument.name, &OwnArgument::argument);
      Complete(entry, *made.Object(), own == made.own.end() ? argument.name : own->member);
      if (entry.type.empty() && made.State() != nullptr) { Complete(entry, *made.State(), argument.name); }
    }
    description.entries.push_back(std::move(entry));
  }
  if (made.Object() != nullptr) {
    cls_ClassMetadata const* metadata = Registrar().Find(made.Object()->DynTypeId());
    if (metadata != nullptr) { description.className = metadata->name; }
    AddAdmission(description, *made.Object());
  }
  return description;
}

Description OfClass(cls_ClassMetadata const& metadata) {
  Description description;
  description.name = description.className = metadata.name;
  for (CommandInfo const& command : Session::Commands()) {
    Made const made = Make(command.name);
    if (made.Object() != nullptr && made.Object()->DynTypeId() == metadata.typeId) { description.commands.push_back(command.name); }
  }
  cow_Handle<cls_Object> const object = metadata.make == nullptr ? nullptr : metadata.make();
  for (cls_MemberInfo const& member : metadata.members) { description.entries.push_back(EntryOf(member, object.ConstGet())); }
  if (object) { AddAdmission(description, *object); }
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
