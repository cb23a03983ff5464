#include "command/Members.h"

#include <algorithm>
#include <cmath>

#include "command/Command.h"
#include "command/Hints.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

std::string ShownValue(cls_Value const& value) {
  if (auto const* text = value.As<std::string>()) { return Quoted(*text); }
  if (auto const* real = value.As<double>()) { return std::isfinite(*real) ? JsonText(value) : "not a finite number"; }
  if (value.As<cls_Value::List>() != nullptr) { return "a list"; }
  return value.As<cls_Value::Fields>() != nullptr ? "an object" : JsonText(value);
}

/// Whether the member is an object, or a list of objects, that are given as named members: none that goes by a name.
bool IsOfObjects(cls_MemberInfo const& info) { return info.kind == cls_MemberKind::Object && info.refers == cls_Reference::None; }

/// Whether \p object, a copy made for the trial, takes the value.
bool Takes(cls_Object& object, std::string_view member, cls_Value const& value) {
  try {
    return object.SetMember(member, value);
  } catch (nex_TextException const&) {
  } catch (omu_ValueErrorException const&) {}
  return false;
}

[[noreturn]] void RefuseMember(Subject& subject, cls_MemberInfo const& member, cls_Value const& value, std::exception const& error) {
  auto const* const fields = IsOfObjects(member) ? value.As<cls_Value::Fields>() : nullptr;
  cls_ClassMetadata const* const type = fields == nullptr ? nullptr : cls_MetadataRegistrar::Registrar().Find(member.typeId);
  if (type != nullptr && type->make != nullptr) {  // the member of the object is to blame
    std::unique_ptr<cls_Object> const object = type->make();
    subject.member = member.command;
    subject.atFault = true;
    ExplainRefusal(subject, *object, *fields, error);
  }
  if (IsOfObjects(member) && value.As<cls_Value::List>() != nullptr) {  // the refusal names what is wrong in which object
    RefuseValue(subject, Quoted(member.command) + ": " + RefusalOf(error).message);
  }
  std::string hint;
  if (auto const* text = value.As<std::string>(); text != nullptr && !member.permissible.empty()) {
    if (auto const nearest = Nearest(*text, member.permissible); !nearest.empty()) { hint = "Did you mean " + Quoted(nearest) + "?"; }
  }
  RefuseValue(subject,
              "Invalid value for " + Quoted(member.command) + ": " + ShownValue(value) + "; expected " + ExpectedValue(member) + ".", hint);
}

}  // namespace

cls_ClassMetadata const& ClassOf(cls_Object const& object) { return *cls_MetadataRegistrar::Registrar().Find(object.DynTypeId()); }

bool IsStateWord(std::string_view text) { return text == "UNSET" || text == "FREED" || text == "PROPAGATED"; }

std::vector<MemberArgument> MemberArguments(cls_Object const& object) {
  std::vector<MemberArgument> arguments;
  auto const& members = ClassOf(object).members;
  arguments.reserve(members.size());
  for (cls_MemberInfo const& info : members) {
    if (info.settable) { arguments.push_back({info.command, &info}); }
  }
  return arguments;
}

cls_MemberInfo const* FindArgument(cls_ClassMetadata const& type, std::string_view name, cls_MemberInfo const* after) {
  cls_MemberInfo const *const begin = type.members.data(), *const end = begin + type.members.size();
  cls_MemberInfo const* info = after == nullptr ? begin : after + 1;
  for (std::size_t left = type.members.size(); left > 0; --left, ++info) {
    if (info == end) { info = begin; }
    if (info->settable && info->command == name) { return info; }
  }
  return nullptr;
}

std::vector<std::string> ArgumentNames(cls_ClassMetadata const& type) {
  std::vector<std::string> names;
  for (cls_MemberInfo const& info : type.members) {
    if (info.settable) { names.push_back(info.command); }
  }
  return names;
}

namespace {

/// The kind of what the member names; empty where it names nothing that models keep under a kind.
std::string KindReferred(cls_Reference refers) {
  if (refers == cls_Reference::None) { return {}; }
  if (ReferenceKind const* const kind = FindReferenceKind(refers)) { return std::string(kind->kind); }
  std::string family;
  FindRepository(ddr_Model(), [&](auto const&, kprC_StepAwareRepository const& repository) {
    bool const isMeant = repository.Reference() == refers;
    if (isMeant) { family = repository.ItemCmd(); }
    return isMeant;
  });
  return family;
}

/// \p presets may be null.
ArgumentInfo Described(cls_MemberInfo const& info, cls_Object const* presets) {
  ArgumentInfo described;
  described.name = info.name;
  described.meaning = info.meaning;
  described.unit = info.unit;
  described.permissible = info.permissible;
  described.kind = info.kind;
  described.depth = info.table ? 2 : info.many ? 1 : 0;
  described.refers = KindReferred(info.refers);
  described.perStep = info.propagating;
  described.again = info.again;
  described.of = ArgumentOf::Object;
  cls_ClassMetadata const* const held = info.typeId == 0 ? nullptr : cls_MetadataRegistrar::Registrar().Find(info.typeId);
  if (held != nullptr) { described.className = held->name; }
  bool const plain = presets != nullptr && !info.many && info.kind != cls_MemberKind::Object;
  if (plain) { described.preset = presets->Member(info.name); }
  return described;
}

}  // namespace

std::string ArgumentInfo::Type() const {
  std::string type;
  switch (kind) {
    case ValueKind::Integer: type = "integer"; break;
    case ValueKind::Real: type = "number"; break;
    case ValueKind::String: type = "text"; break;
    case ValueKind::Boolean: type = "boolean"; break;
    case ValueKind::Enumerated: type = "choice"; break;
    case ValueKind::Object: type = className.empty() ? "object" : className;
  }
  return depth == 2 ? "table of " + type : depth == 1 ? "list of " + type : type;
}

void Describe(std::vector<ArgumentInfo>& arguments, cls_Object const& object, ArgumentOf of) {
  for (MemberArgument const& member : MemberArguments(object)) {
    arguments.push_back(Describe(member, object));
    arguments.back().of = of;
  }
}

ArgumentInfo Describe(MemberArgument const& argument, cls_Object const& object, bool required) {
  ArgumentInfo described = Described(*argument.info, &object);
  described.name = argument.argument;
  described.required = required;
  return described;
}

std::vector<ArgumentInfo> MembersOf(cls_ClassMetadata const& metadata) {
  std::unique_ptr<cls_Object> const object = metadata.make == nullptr ? nullptr : metadata.make();
  std::vector<ArgumentInfo> members;
  for (cls_MemberInfo const& info : metadata.members) { members.push_back(Described(info, object.get())); }
  return members;
}

std::string ExpectedValue(cls_MemberInfo const& info) {
  std::string expected;
  switch (info.kind) {
    case cls_MemberKind::Integer: expected = "a 32-bit integer"; break;
    case cls_MemberKind::Real: expected = "a finite number"; break;
    case cls_MemberKind::String: expected = "a text"; break;
    case cls_MemberKind::Boolean: expected = "true or false"; break;
    case cls_MemberKind::Enumerated: expected = "one of " + QuotedList(info.permissible, info.permissible.size()); break;
    case cls_MemberKind::Object:
      expected = info.typeId == rgnC_Region::TypeId() ? "the name of a region"
                 : info.many                          ? "an object with named members"
                 : IsOfObjects(info)                  ? "an object with named members, or null"
                                                      : "a name";
      break;
  }
  if (info.many) { expected = (info.table ? "a list of rows of one length, each value " : "a list, each ") + expected; }
  if (info.kind != cls_MemberKind::Enumerated && !info.permissible.empty()) {
    expected += (info.many ? ", or " : " or ") + QuotedList(info.permissible, info.permissible.size());
  }
  return info.propagating ? expected + R"(, "UNSET" or "FREED")" : expected;
}

void AssertNamesAgree(Subject& subject, cls_Object const& object, kprC_Arguments const& members) {
  cls_ClassMetadata const& type = ClassOf(object);
  if (std::ranges::none_of(type.members, [](cls_MemberInfo const& info) { return info.settable && info.again; })) { return; }
  auto const memberOf = [&type](std::string_view name) {
    cls_MemberInfo const* info = FindArgument(type, name);
    while (info->again) { --info; }
    return info;
  };
  for (auto said = members.begin(); said != members.end(); ++said) {
    auto const other = std::find_if(members.begin(), said, [&](auto const& one) { return memberOf(one.first) == memberOf(said->first); });
    if (other == said) { continue; }
    std::unique_ptr<cls_Object> const trial = object.Copy();
    if (!Takes(*trial, other->first, other->second)) { continue; }  // refused when it is set
    cls_Value const before = trial->Member(other->first);
    if (!Takes(*trial, said->first, said->second) || trial->Member(other->first) == before) { continue; }
    RefuseValue(subject, Quoted(other->first) + " and " + Quoted(said->first) + " are two names of one member: " +
                             ShownValue(other->second) + " and " + ShownValue(said->second) + " do not go together.");
  }
}

void FitNull(Subject& subject, cls_MemberInfo const& info, cls_Value& value) {
  if (!value.IsNull()) { return; }
  bool const isText = info.kind == cls_MemberKind::String || (info.kind == cls_MemberKind::Object && !IsOfObjects(info));
  if (isText) {
    value = info.propagating ? "UNSET" : "";
  } else if (info.propagating) {
    subject.member = info.command;
    RefuseValue(
        subject, "null says nothing of a value that steps carry.",
        R"(Leave the argument out to keep what there is; "UNSET" leaves it open in the create step, "FREED" gives it up from a later one on.)");
  }
}

void SetMembers(Subject& subject, cls_Object& object, kprC_Arguments members) {
  cls_ClassMetadata const& type = ClassOf(object);
  for (auto& [name, value] : members) {
    cls_MemberInfo const* const info = FindArgument(type, name);
    if (info == nullptr) {
      RefuseUnknown(subject, "There is no argument " + Quoted(name) + ".", Suggestion(name, ArgumentNames(type), "Its arguments"));
    }
    FitNull(subject, *info, value);
  }
  ExplainValues(subject, object, members, [&] {
    for (auto const& [name, value] : members) { object.SetMember(name, value); }
  });
}

void ExplainRefusal(Subject& subject, cls_Object const& object, kprC_Arguments const& members, std::exception const& error) {
  cls_ClassMetadata const& type = ClassOf(object);
  std::unique_ptr<cls_Object> const trial = object.Copy();
  for (auto const& [name, value] : members) {
    cls_MemberInfo const* const info = FindArgument(type, name);
    if (info == nullptr || Takes(*trial, info->name, value)) { continue; }
    if (RefusalOf(error).code < 0) { RefuseMember(subject, *info, value, error); }
    subject.member = name;
    subject.atFault = true;
    subject.hint = "Expected " + ExpectedValue(*info) + ".";
    throw;
  }
  auto const word = std::ranges::find_if(members, [](auto const& member) {
    auto const* text = member.second.template As<std::string>();
    return text != nullptr && IsStateWord(*text);
  });
  if (word != members.end()) {
    subject.member = word->first;
    if (subject.hint.empty()) { subject.hint = WordHint(*word->second.As<std::string>()); }
  }
  throw;
}

}  // namespace gattr
