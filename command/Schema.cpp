#include "command/Schema.h"

#include <algorithm>
#include <limits>
#include <map>

#include "command/Command.h"
#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/steps/kprC_Steps.h"

namespace gattr {

namespace {

using Fields = cls_Value::Fields;
using List = cls_Value::List;

constexpr char const* kDraft = "http://json-schema.org/draft-07/schema#";

cls_Value TextList(std::vector<std::string> const& texts) {
  List list;
  for (std::string const& text : texts) { list.emplace_back(text); }
  return list;
}
Fields OfType(char const* type) { return {{"type", type}}; }
Fields Const(std::string_view text) { return {{"const", std::string(text)}}; }
Fields Ref(std::string const& name) { return {{"$ref", "#/definitions/" + name}}; }
Fields Enum(std::vector<std::string> const& texts) { return {{"enum", TextList(texts)}}; }
Fields ListOf(cls_Value items) { return {{"type", "array"}, {"items", std::move(items)}}; }
/// One of several; itself where there is one.
cls_Value AnyOf(List schemas) {
  List each;
  for (cls_Value& schema : schemas) {
    if (std::ranges::find(each, schema) == each.end()) { each.push_back(std::move(schema)); }
  }
  return each.size() == 1 ? std::move(each.front()) : cls_Value(Fields{{"anyOf", std::move(each)}});
}
/// An object of these members and no others.
Fields ObjectOf(Fields properties, std::vector<std::string> const& required = {}) {
  Fields schema{{"type", "object"}, {"properties", std::move(properties)}, {"additionalProperties", false}};
  if (!required.empty()) { schema.emplace_back("required", TextList(required)); }
  return schema;
}
/// "if" the member has that value "then" the definition.
cls_Value Case(std::string_view member, std::string const& value, cls_Value then) {
  Fields const asked{{"properties", Fields{{std::string(member), Const(value)}}}, {"required", TextList({std::string(member)})}};
  return Fields{{"if", asked}, {"then", std::move(then)}};
}
/// A whole number that a member holds.
Fields Integer() {
  return {{"type", "integer"}, {"minimum", std::numeric_limits<int>::min()}, {"maximum", std::numeric_limits<int>::max()}};
}

// ---- journals

class Journals {
public:
  cls_Value Make() {
    List cases;
    std::vector<std::string> names;
    for (CommandInfo const& command : commands_) {
      names.push_back(command.name);
      definitions_.emplace_back("command " + command.name, OfCommand(command));
      cases.push_back(Case("command", command.name, Ref("command " + command.name)));
    }
    for (ClassInfo const& type : Session::ValueClasses()) {
      Fields members;
      for (ArgumentInfo const& member : type.members) { members.emplace_back(member.name, OfArgument(member)); }
      definitions_.emplace_back("class " + type.name, ObjectOf(std::move(members)));
    }
    definitions_.emplace_back(
        "names", Fields{{"anyOf", List{OfType("string"), Fields{{"type", "array"}, {"items", OfType("string")}, {"minItems", 1}}}}});
    definitions_.emplace_back(
        "command",
        Fields{
            {"type", "object"}, {"properties", Fields{{"command", Enum(names)}}}, {"required", TextList({"command"})}, {"allOf", cases}});
    definitions_.emplace_back("document", ObjectOf({{"$schema", OfType("string")}, {"commands", ListOf(Ref("command"))}}, {"commands"}));
    Fields const isDocument{
        {"anyOf", List{Fields{{"required", TextList({"commands"})}, {"not", Fields{{"required", TextList({"command"})}}}},
                       Fields{{"required", TextList({"$schema"})}}}}};
    return Fields{{"$schema", kDraft},
                  {"title", "a journal of gattr: a document, or one command of it"},
                  {"definitions", std::move(definitions_)},
                  {"if", isDocument},
                  {"then", Ref("document")},
                  {"else", Ref("command")}};
  }

private:
  cls_Value OfOne(ArgumentInfo const& argument) const {
    switch (argument.kind) {
      case ValueKind::Integer: return Integer();
      case ValueKind::Real: return OfType("number");
      case ValueKind::Boolean: return OfType("boolean");
      case ValueKind::Enumerated: return Enum(argument.permissible);
      case ValueKind::String: return OfType("string");
      case ValueKind::Object: break;
    }
    if (argument.refers.empty() && !argument.className.empty()) { return Ref("class " + argument.className); }
    return argument.refers.empty() ? OfType("object") : Fields{{"type", TextList({"string", "object"})}};
  }
  cls_Value OfArgument(ArgumentInfo const& argument) const {
    cls_Value value = OfOne(argument);
    for (int i = 0; i < argument.depth; ++i) { value = ListOf(std::move(value)); }
    List any{std::move(value)};
    if (argument.depth == 1 && argument.kind == ValueKind::Real) { any.push_back(OfType("number")); }  // a list of one
    if (argument.kind != ValueKind::Enumerated && !argument.permissible.empty()) { any.push_back(Enum(argument.permissible)); }
    if (argument.perStep) { any.push_back(Enum({"UNSET", "FREED"})); }
    bool const isText = argument.kind == ValueKind::String || !argument.refers.empty();
    if (!argument.required && (isText || !argument.perStep)) { any.push_back(OfType("null")); }
    return AnyOf(std::move(any));
  }
  static Fields Common(std::string const& command) { return {{"command", Const(command)}, {"dryRun", OfType("boolean")}}; }

  cls_Value OfCommand(CommandInfo const& command) const {
    if (command.kinds.empty()) {
      Fields properties = Common(command.name);
      std::vector<std::string> required{"command"};
      for (ArgumentInfo const& argument : command.arguments) { Take(properties, required, argument); }
      return ObjectOf(std::move(properties), required);
    }
    List kinds;
    for (std::string const& kind : command.kinds) { kinds.push_back(OnObject(command, kind)); }
    return AnyOf(std::move(kinds));
  }
  cls_Value OnObject(CommandInfo const& command, std::string const& kind) const {
    Fields properties = Common(command.name);
    properties.emplace_back(kind, Ref("names"));
    std::vector<std::string> required{"command", kind};
    for (ArgumentInfo const& argument : command.arguments) { Take(properties, required, argument, true); }
    bool const ofProcedure = command.members == ObjectMembers::OfProcedure;
    if (command.members == ObjectMembers::None) { return ObjectOf(std::move(properties), required); }
    std::map<std::string, List> members;
    std::vector<std::string> inOrder;
    for (CommandInfo const& construction : commands_) {
      if (construction.makes != (ofProcedure ? "step" : kind)) { continue; }
      for (ArgumentInfo const& argument : construction.arguments) {
        if (!command.TakesMember(argument)) { continue; }
        List& any = members[argument.name];
        if (any.empty()) { inOrder.push_back(argument.name); }
        any.push_back(OfArgument(argument));
      }
    }
    for (std::string const& name : inOrder) {
      if (std::ranges::find(properties, name, &Fields::value_type::first) != properties.end()) { continue; }
      properties.emplace_back(name, AnyOf(members[name]));
    }
    return ObjectOf(std::move(properties), required);
  }
  void Take(Fields& properties, std::vector<std::string>& required, ArgumentInfo const& argument, bool onObject = false) const {
    bool const several = onObject && argument.name == kStepName;
    bool const commands = argument.name == "commands" && argument.of == ArgumentOf::Command;
    properties.emplace_back(argument.name, several ? cls_Value(Ref("names")) : commands ? ListOf(Ref("command")) : OfArgument(argument));
    if (argument.required) { required.push_back(argument.name); }
  }

  std::vector<CommandInfo> commands_ = Session::Commands();
  Fields definitions_;
};

// ---- models

class Models {
public:
  cls_Value Make() {
    List cases;
    std::vector<std::string> names;
    for (auto const& [id, type] : cls_MetadataRegistrar::Registrar().Classes()) {
      if (!type.CanBeRead()) { continue; }
      names.push_back(type.name);
      definitions_.emplace_back("class " + type.name, OfClass(type));
      cases.push_back(Case("class", type.name, Ref("class " + type.name)));
    }
    definitions_.emplace_back("object", Fields{{"type", "object"},
                                               {"properties", Fields{{"class", Enum(names)}}},
                                               {"required", TextList({"class"})},
                                               {"allOf", std::move(cases)}});
    Fields said{{"step", OfType("string")}};
    for (auto& [name, any] : said_) { said.emplace_back(name, AnyOf(any)); }
    definitions_.emplace_back("change", ObjectOf(std::move(said), {"step"}));
    definitions_.emplace_back("off", ObjectOf({{"off", OfType("string")}}, {"off"}));
    Fields extensions;
    ddr_Model const model;
    for (auto const& [member, extension] : model.Extensions()) { extensions.emplace_back(member.View(), Ref("object")); }
    Fields properties{{"format", Const("gattr model")}, {"version", Fields{{"const", 2}}}, {"name", OfType("string")}};
    properties.emplace_back(ddr_Model::spaceCmd(), OfMember(*ClassOf(model).Find(ddr_Model::spaceCmd())));
    properties.emplace_back("extensions", ObjectOf(std::move(extensions), {"steps"}));
    Fields schema{{"$schema", kDraft}, {"title", "a model of gattr as text"}, {"definitions", std::move(definitions_)}};
    for (auto& part : ObjectOf(std::move(properties), {"format", "version", "extensions"})) { schema.push_back(std::move(part)); }
    return schema;
  }

private:
  cls_Value OfClass(cls_ClassMetadata const& type) {
    Fields properties{{"class", Const(type.name)}, {"step", OfType("string")}};
    for (cls_MemberInfo const& member : type.members) {
      cls_Value const value = OfMember(member);
      properties.emplace_back(member.name, value);
      if (!member.propagating) { continue; }
      Fields companions{{member.name + "State", Enum({"UNSET", "SET", "PROPAGATED", "FREED"})}};
      if (member.many) {  // element by element, and the places of those of which something is said
        companions = {{member.name + "State", ListOf(companions[0].second)}, {member.name + "At", ListOf(Integer())}};
      }
      said_[member.name].push_back(value);
      for (auto& [name, companion] : companions) {
        said_[name].push_back(companion);
        properties.emplace_back(name, std::move(companion));
      }
    }
    return ObjectOf(std::move(properties));
  }
  cls_Value OfOne(cls_MemberInfo const& member) const {
    switch (member.kind) {
      case cls_MemberKind::Integer: return Integer();
      case cls_MemberKind::Real: return OfType("number");
      case cls_MemberKind::Boolean: return OfType("boolean");
      case cls_MemberKind::Enumerated: return Enum(member.permissible);
      case cls_MemberKind::String: return OfType("string");
      case cls_MemberKind::Object: break;
    }
    cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(member.typeId);
    List any{Ref("object"), OfType("string")};  // what it names: a step, a region
    if (type != nullptr && type->CanBeRead()) { any.push_back(Ref("class " + type->name)); }
    if (member.name == "states") { any = {Ref("object"), Ref("change"), Ref("off")}; }
    return AnyOf(std::move(any));
  }
  cls_Value OfMember(cls_MemberInfo const& member) const {
    cls_Value value = OfOne(member);
    if (member.table) { value = ListOf(std::move(value)); }
    List any{value};
    if (member.many || member.propagating) { any.push_back(ListOf(value)); }
    if (member.kind != cls_MemberKind::Enumerated && !member.permissible.empty()) { any.push_back(Enum(member.permissible)); }
    if (member.kind == cls_MemberKind::Integer && !member.permissible.empty()) {  // beside words, written as a text
      any.push_back(Fields{{"type", "string"}, {"pattern", "^-?[0-9]+$"}});
    }
    if (member.kind == cls_MemberKind::Object) {
      any.push_back(ObjectOf({{"components", ListOf(value)}}, {"components"}));
      any.push_back(
          Fields{{"type", "object"}, {"not", Fields{{"required", TextList({"class"})}}}, {"additionalProperties", Ref("object")}});
    }
    any.push_back(OfType("null"));
    return AnyOf(std::move(any));
  }

  Fields definitions_;
  std::map<std::string, List> said_;  // by steps after the creation: of all classes
};

}  // namespace

cls_Value JournalSchema() { return Journals().Make(); }
cls_Value ModelSchema() { return Models().Make(); }

}  // namespace gattr
