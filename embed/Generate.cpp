// Writes embed/Commands.h, the commands as C++, from what the session tells of them.
#include <algorithm>
#include <cctype>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "command/Library.h"
#include "command/Session.h"

namespace gattr {
namespace {

using Infos = std::vector<ArgumentInfo>;

/// "BoundaryCondition" of "boundaryCondition".
std::string Capital(std::string name) {
  name.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(name.front())));
  return name;
}

/// A name as C++ takes it.
std::string Safe(std::string const& name) {
  static std::set<std::string> const keywords = {"default", "delete", "explicit", "operator", "register",
                                                 "static",  "switch", "union",    "using"};
  return keywords.contains(name) ? name + "_" : name;
}

bool IsName(ArgumentInfo const& argument) { return argument.kind == ValueKind::String && argument.depth == 0; }

class Writer {
public:
  explicit Writer(std::ostream& out) : out_(out), commands_(Session::Commands()) {}

  void Write() {
    out_
        << "#pragma once\n\n// Made from the tables of the library; edits are lost.\n\n#include \"embed/Model.h\"\n\nnamespace gattr {\n\n";
    WriteChoices();
    WriteArguments();
    WriteHandles();
    WriteModel();
    out_ << "}  // namespace gattr\n";
  }

private:
  static std::string Joined(std::vector<std::string> const& texts) {
    std::string joined;
    for (std::string const& text : texts) { joined += (joined.empty() ? "\"" : ", \"") + text + "\""; }
    return joined;
  }

  /// Each list of permissible texts once.
  void WriteChoices() {
    out_ << "namespace choices {\n";
    auto const collect = [this](Infos const& arguments) {
      for (ArgumentInfo const& argument : arguments) {
        if (argument.kind != ValueKind::Enumerated) { continue; }
        auto const [entry, isNew] = choices_.try_emplace(argument.permissible, "texts" + std::to_string(choices_.size()));
        if (isNew) { out_ << "inline constexpr std::string_view " << entry->second << "[] = {" << Joined(argument.permissible) << "};\n"; }
      }
    };
    for (CommandInfo const& command : commands_) { collect(command.arguments); }
    for (ClassInfo const& type : Session::ValueClasses()) { collect(type.members); }
    out_ << "}  // namespace choices\n\n";
  }

  std::string TypeOf(ArgumentInfo const& argument) const {
    std::string type;
    switch (argument.kind) {
      case ValueKind::Integer: type = "Integer"; break;
      case ValueKind::Real: type = "Number"; break;
      case ValueKind::String: type = "Text"; break;
      case ValueKind::Boolean: type = "Flag"; break;
      case ValueKind::Enumerated: type = "Choice<choices::" + choices_.at(argument.permissible) + ">"; break;
      case ValueKind::Object: type = argument.refers.empty() ? "Object<args::" + argument.className + ">" : "Text";
    }
    auto const wrap = [&type](std::string const& in) { type.insert(0, in + "<").append(">"); };
    bool const isList = argument.depth > 0;
    if (isList && argument.perStep) { wrap("Carried"); }
    for (int level = 0; level < argument.depth; ++level) { wrap("List"); }
    bool const takesWords = argument.kind != ValueKind::Enumerated && !argument.permissible.empty() && type != "Text";
    if (takesWords) { wrap("OrWord"); }
    if (argument.perStep) { wrap("Carried"); }
    return type;
  }

  void WriteMembers(Infos const& arguments, std::string_view indent) {
    for (ArgumentInfo const& argument : arguments) {
      out_ << indent << TypeOf(argument) << " " << Safe(argument.name) << "{};  ///< " << argument.meaning;
      if (!argument.unit.empty()) { out_ << " [" << argument.unit << "]"; }
      out_ << "\n";
    }
    out_ << indent << "template <class Self, class Visit> static void ForEach(Self& self, Visit&& visit) {\n";
    if (arguments.empty()) { out_ << indent << "  static_cast<void>(self), static_cast<void>(visit);\n"; }
    for (ArgumentInfo const& argument : arguments) {
      out_ << indent << "  visit(\"" << argument.name << "\", self." << Safe(argument.name) << ");\n";
    }
    out_ << indent << "}\n";
  }

  /// Those that are no parameters of their own: all that may be left out, and what is no name.
  static Infos Optional(CommandInfo const& command) {
    Infos optional;
    std::ranges::copy_if(command.arguments, std::back_inserter(optional),
                         [](ArgumentInfo const& argument) { return !argument.required || !IsName(argument); });
    return optional;
  }
  static Infos Required(CommandInfo const& command) {
    Infos required;
    std::ranges::copy_if(command.arguments, std::back_inserter(required),
                         [](ArgumentInfo const& argument) { return argument.required && IsName(argument); });
    return required;
  }

  void WriteClass(ClassInfo const& type, std::set<std::string>& written) {
    if (!written.insert(type.name).second) { return; }
    for (ArgumentInfo const& member : type.members) {  // first what it holds
      for (ClassInfo const& held : classes_) {
        if (held.name == member.className && member.refers.empty()) { WriteClass(held, written); }
      }
    }
    out_ << "struct " << type.name << " {\n";
    WriteMembers(type.members, "  ");
    out_ << "};\n";
  }

  void WriteArguments() {
    out_ << "/// What commands are given beside the names that they need.\nnamespace args {\n\n";
    std::set<std::string> written;
    for (ClassInfo const& type : classes_) { WriteClass(type, written); }
    for (CommandInfo const& command : commands_) {
      Infos const optional = Optional(command);
      if (IsSession(command) || (command.className.empty() && optional.empty())) { continue; }
      out_ << "/// " << command.name << ": " << command.meaning << ".\nstruct " << command.name << " {\n";
      if (!command.className.empty()) {
        out_ << "  static constexpr std::string_view kCommand = \"" << command.name << "\";\n";
        Infos state;
        std::ranges::copy_if(optional, std::back_inserter(state), [](auto const& argument) { return argument.of == ArgumentOf::State; });
        if (!state.empty()) {
          out_ << "  /// What such an object says in a step.\n  struct State {\n";
          WriteMembers(state, "    ");
          out_ << "  };\n\n";
        }
      }
      WriteMembers(optional, "  ");
      out_ << "};\n\n";
    }
    out_ << "}  // namespace args\n\n";
  }

  static bool IsSession(CommandInfo const& command) { return command.makes.empty() && command.kinds.empty(); }

  static std::string Parameters(Infos const& required) {
    std::string parameters;
    for (ArgumentInfo const& argument : required) {
      parameters += (parameters.empty() ? "" : ", ") + ("std::string_view " + Safe(argument.name));
    }
    return parameters;
  }
  static std::string FieldsOf(Infos const& required) {
    std::string fields;
    for (ArgumentInfo const& argument : required) {
      fields += (fields.empty() ? "{\"" : ", {\"") + argument.name + "\", " + Safe(argument.name) + "}";
    }
    return "{" + fields + "}";
  }
  static std::string With(std::string const& parameters, std::string const& more) {
    return parameters.empty() || more.empty() ? parameters + more : parameters + ", " + more;
  }

  std::set<std::string> Kinds() const {
    std::set<std::string> kinds;
    for (CommandInfo const& command : commands_) {
      kinds.insert(command.kinds.begin(), command.kinds.end());
      if (!command.makes.empty()) { kinds.insert(command.makes); }
    }
    return kinds;
  }

  void WriteHandles() {
    for (std::string const& kind : Kinds()) {
      std::string const name = Capital(kind);
      out_ << "/// A " << kind << " of any type.\nclass " << name << "Handle : public ObjectHandle {\npublic:\n";
      out_ << "  " << name << "Handle(ModelBase const& model, std::string_view name) : ObjectHandle(model, \"" << kind << "\", name) {}\n";
      out_ << "  " << name << "Handle(ObjectHandle handle) : ObjectHandle(std::move(handle)) {}\n\n";
      for (CommandInfo const& command : commands_) {
        bool const isOnKind = std::ranges::find(command.kinds, kind) != command.kinds.end();
        if (isOnKind && command.members != ObjectMembers::All && command.members != ObjectMembers::OfState) { WriteEdit(command, name); }
      }
      out_ << "};\n\n";
    }
  }

  void WriteEdit(CommandInfo const& command, std::string const& kind) {
    Infos const optional = Optional(command);
    Infos required = Required(command);
    bool const replaces = command.members == ObjectMembers::OfProcedure;
    std::string const given = optional.empty() ? "" : "args::" + command.name + " const& options = {}";
    out_ << "  /// " << command.meaning << "\n";
    if (replaces) {
      std::erase_if(required, [](ArgumentInfo const& argument) { return argument.name == "procedure"; });
      out_ << "  template <class Step> void " << Safe(command.name) << "(Step const& values, " << given << ") const {\n"
           << "    cls_Value::Fields own = gattr::FieldsOf(options);\n    own.emplace_back(\"procedure\", Step::kCommand);\n"
           << "    Run(\"" << command.name << "\", std::move(own), gattr::FieldsOf(values));\n  }\n";
      return;
    }
    bool const copies = command.name == "copy";
    out_ << "  " << (copies ? kind + "Handle " : "void ") << Safe(command.name) << "(" << With(Parameters(required), given)
         << ") const {\n";
    out_ << "    Run(\"" << command.name << "\", " << FieldsOf(required) << (optional.empty() ? "" : ", gattr::FieldsOf(options)")
         << ");\n";
    if (copies) { out_ << "    return Other(newName);\n"; }
    out_ << "  }\n";
  }

  void WriteModel() {
    out_ << "/// A model with all commands.\nclass Model : public ModelBase {\npublic:\n  Model() = default;\n"
         << "  /// Opens a file.\n  explicit Model(std::string const& path) { Open(path); }\n\n";
    for (CommandInfo const& command : commands_) {
      if (command.makes.empty() || command.className.empty()) { continue; }
      std::string const handle = "Handle<args::" + command.name + ", " + Capital(command.makes) + "Handle>";
      Infos const required = Required(command);
      out_ << "  /// " << command.meaning << "\n  " << handle << " " << command.name << "("
           << With(Parameters(required), "args::" + command.name + " const& values = {}") << ") {\n    Construct(\"" << command.name
           << "\", " << FieldsOf(required) << ", FieldsOf(values));\n    return {*this, name};\n  }\n";
    }
    out_ << "\n  /// The object of that name, which need not be there as yet, taken for one that the command makes whose arguments these "
            "are.\n";
    out_ << "  template <class Arguments> auto Find(std::string_view name) const { return typename HandleOf<Arguments>::Type(*this, name); "
            "}\n\n";
    out_ << "private:\n  template <class Arguments> struct HandleOf;\n};\n\n";
    for (CommandInfo const& command : commands_) {
      if (command.makes.empty() || command.className.empty()) { continue; }
      out_ << "template <> struct Model::HandleOf<args::" << command.name << "> {\n  using Type = Handle<args::" << command.name << ", "
           << Capital(command.makes) << "Handle>;\n};\n";
    }
    out_ << "\n";
  }

  std::ostream& out_;
  std::vector<CommandInfo> const commands_;
  std::vector<ClassInfo> const classes_ = Session::ValueClasses();
  std::map<std::vector<std::string>, std::string> choices_;
};

}  // namespace
}  // namespace gattr

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: gattr_embed HEADER\n";
    return 2;
  }
  gattr::Library const library;
  std::ofstream out(argv[1]);
  gattr::Writer(out).Write();
  return out.flush() ? 0 : 1;
}
