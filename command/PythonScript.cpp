#include "command/PythonScript.h"

#include <algorithm>

#include "command/CommandWords.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

bool IsWordOfTheLanguage(std::string_view name) {
  static constexpr std::string_view kWords[] = {"False", "None",     "True",  "and",    "as",   "assert", "async",  "await",    "break",
                                                "class", "continue", "def",   "del",    "elif", "else",   "except", "finally",  "for",
                                                "from",  "global",   "if",    "import", "in",   "is",     "lambda", "nonlocal", "not",
                                                "or",    "pass",     "raise", "return", "try",  "while",  "with",   "yield"};
  return std::ranges::find(kWords, name) != std::end(kWords);
}

std::string Literal(cls_Value const& value, bool words);

std::string Joined(std::vector<std::string> const& parts) {
  std::string joined;
  for (std::string const& part : parts) { joined += (joined.empty() ? "" : ", ") + part; }
  return joined;
}

/// \p words: whether "UNSET" and "FREED" are the module's constants.
std::string Literal(cls_Value const& value, bool words) {
  if (value.IsNull()) { return "None"; }
  if (auto const* const flag = value.As<bool>()) { return *flag ? "True" : "False"; }
  if (auto const* const text = value.As<std::string>()) {
    if (words && (*text == "UNSET" || *text == "FREED")) { return "gattr." + *text; }
  }
  std::vector<std::string> parts;
  if (auto const* const list = value.As<cls_Value::List>()) {
    for (cls_Value const& element : *list) { parts.push_back(Literal(element, false)); }
    return "[" + Joined(parts) + "]";
  }
  if (auto const* const fields = value.As<cls_Value::Fields>()) {
    for (auto const& [name, field] : *fields) { parts.push_back(JsonText(cls_Value(name)) + ": " + Literal(field, false)); }
    return "{" + Joined(parts) + "}";
  }
  return JsonText(value);  // numbers and texts are written alike
}

}  // namespace

PythonScript::PythonScript() : commands_(Session::Commands()) {
  for (KindInfo const& kind : Session::Kinds()) { mappings_.emplace_back(kind.kind, SplitWords(kind.member, '_')); }
}

std::string PythonScript::Head() { return "import gattr\n\nm = gattr.Model()\n"; }

std::string PythonScript::Line(cls_Value const& command) const {
  auto const& fields = *command.As<cls_Value::Fields>();
  auto const* const name = command.Find("command");
  std::string const called = name == nullptr || name->As<std::string>() == nullptr ? "" : *name->As<std::string>();
  CommandInfo const* const info = FindCommand(commands_, called);
  std::vector<std::string> arguments, apart;
  std::string on = "m", method = called;
  bool const makes = info != nullptr && !info->makes.empty();
  for (auto const& [argument, value] : fields) {
    if (argument == "command") { continue; }
    auto const mapping = std::ranges::find(mappings_, argument, &std::pair<std::string, std::string>::first);
    bool const isObject = info != nullptr && on == "m" && std::ranges::find(info->kinds, argument) != info->kinds.end();
    if (isObject && mapping != mappings_.end()) {
      on = "m." + mapping->second + "[" + Literal(value, false) + "]";
    } else if (!makes && argument == "stepName") {
      arguments.insert(arguments.begin(), Literal(value, false));
    } else if (IsWordOfTheLanguage(argument)) {
      apart.push_back(JsonText(cls_Value(argument)) + ": " + Literal(value, true));
    } else {
      auto const known = makes ? std::ranges::find(info->arguments, argument, &ArgumentInfo::name) : decltype(info->arguments.begin())();
      bool const carried = !makes || (known != info->arguments.end() && known->perStep);  // a name may be "UNSET"
      arguments.push_back(argument + "=" + Literal(value, carried));
    }
  }
  if (method == "setValues" || method == "setValuesInStep") { method = "set"; }
  if (on == "m" && !makes) { return "m.execute(" + Literal(command, false) + ")"; }
  if (!apart.empty()) { arguments.push_back("**{" + Joined(apart) + "}"); }
  return on + "." + method + "(" + Joined(arguments) + ")";
}

}  // namespace gattr
