#include "command/CommandWords.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "command/Command.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

using Word = std::pair<std::string_view, std::string_view>;

/// Name and value of "name=value"; the whole word and nothing where there is no "=".
Word Parted(std::string_view word) {
  std::size_t const at = word.find('=');
  return at == std::string_view::npos ? Word{word, {}} : Word{word.substr(0, at), word.substr(at + 1)};
}

std::string_view ValueOf(std::span<std::string const> words, std::string_view name) {
  for (std::string const& word : words) {
    if (auto const [argument, value] = Parted(word); argument == name) { return value; }
  }
  return {};
}

/// What the text says as JSON; null where it is none, which is told by \p isJson.
cls_Value AsJson(std::string_view text, bool& isJson) {
  isJson = true;
  try {
    return ParseJson(text);
  } catch (JsonError const&) { isJson = false; }
  return {};
}

bool IsNumber(cls_Value const& value) { return value.As<long long>() != nullptr || value.As<double>() != nullptr; }

cls_Value ReadValue(ArgumentInfo const* argument, std::string_view text) {
  bool isJson = false;
  cls_Value value = AsJson(text, isJson);
  auto const* const number = value.As<double>();
  isJson = isJson && (number == nullptr || std::isfinite(*number));
  bool const isText = !isJson || value.As<std::string>() != nullptr || value.IsNull();
  if (isJson && (isText || argument == nullptr)) { return value; }
  if (!isText) {
    bool const isList = value.As<cls_Value::List>() != nullptr, isObject = value.As<cls_Value::Fields>() != nullptr;
    bool const named = !argument->refers.empty() || argument->kind == ValueKind::String || argument->kind == ValueKind::Enumerated;
    bool const fits = isList || isObject ? argument->depth > 0 || !named || argument->refers == "step" || isList
                      : IsNumber(value)  ? !named && argument->kind != ValueKind::Boolean
                                         : argument->kind == ValueKind::Boolean;
    if (fits) { return value; }
  }
  return std::string(text);
}

/// The names of the model's objects of a kind, steps among them.
std::vector<std::string> NamesOf(ddr_Model const& model, std::string_view kind) {
  if (kind == kprC_Step::stepCmd().View()) { return Texts(kprC_Steps(model).Names()); }
  std::vector<std::string> names;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    if (repository.ItemCmd() == kind) { names = Texts(repository.Keys()); }
  });
  for (ReferenceKind const& reference : ReferenceKinds()) {
    if (reference.kind == kind) { names = Texts(reference.In(model).Keys()); }
  }
  return names;
}

/// The command that makes an object as the one of that kind and name; empty where there is none.
std::string MakerOf(ddr_Model const& model, std::string_view kind, std::string_view name) {
  if (kind == kprC_Step::stepCmd().View()) {
    kprC_StepContainer const& steps = kprC_Steps(model);
    cow_String const step(name);
    if (!steps.IsMember(step)) { return {}; }
    kprC_ProcedureRow const* const row = kprC_FindProcedure(steps.Step(steps.Index(step)).DynTypeId());
    return row == nullptr ? std::string() : std::string(row->command.View());
  }
  std::string maker;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    kprC_StepDependent const* const item = repository.ItemCmd() == kind ? repository.ConstItem(name) : nullptr;
    if (item != nullptr) { maker = item->ConstructionName(); }
  });
  for (ReferenceKind const& reference : ReferenceKinds()) {
    cls_Object const* const object = reference.kind == kind ? reference.In(model).ConstObject(name) : nullptr;
    if (object != nullptr) { maker = FindDeclaration(reference, *object).first; }
  }
  return maker;
}

bool NeedsQuotes(std::string_view text) { return text.empty() || text.find_first_of(" \t\"'\\[]{}=") != std::string_view::npos; }

std::string InQuotes(std::string_view text) {
  std::string word = "\"";
  for (char const c : text) {
    if (c == '"' || c == '\\') { word += '\\'; }
    word += c;
  }
  return word + '"';
}

}  // namespace

std::string InWord(std::string_view text) { return NeedsQuotes(text) ? InQuotes(text) : std::string(text); }

std::vector<std::string> WordsOf(std::string_view line, std::size_t* lastAt) {
  std::vector<std::string> words;
  std::string word;
  bool begun = false, escaped = false;
  char quote = 0;
  int depth = 0;
  std::size_t at = line.size();  // where the word begins
  for (std::size_t i = 0; i < line.size(); ++i) {
    char const c = line[i];
    bool const isFirst = !begun;
    if (escaped) {
      word += c;
      escaped = false;
    } else if (depth > 0) {  // as it is
      word += c;
      if (c == '\\') { escaped = true; }
      if (c == '"') { quote = quote == 0 ? c : char{0}; }
      if (quote == 0) { depth += c == '[' || c == '{' ? 1 : c == ']' || c == '}' ? -1 : 0; }
    } else if (c == '\\' && quote != '\'') {
      escaped = begun = true;
    } else if (quote != 0) {
      c == quote ? void(quote = 0) : word.push_back(c);
    } else if (c == '"' || c == '\'') {
      quote = c;
      begun = true;
    } else if (c == ' ' || c == '\t' || c == '\r') {
      if (begun) { words.push_back(std::exchange(word, {})); }
      begun = false;
      at = line.size();
    } else {
      depth = c == '[' || c == '{' ? 1 : 0;
      word += c;
      begun = true;
    }
    if (isFirst && begun) { at = i; }
  }
  if (lastAt != nullptr) { *lastAt = at; }
  if (begun) { words.push_back(std::move(word)); }
  return words;
}

CommandInfo const* FindCommand(std::span<CommandInfo const> commands, std::string_view name) {
  auto const found = std::ranges::find(commands, name, &CommandInfo::name);
  return found == commands.end() ? nullptr : &*found;
}

std::vector<ArgumentInfo> CommandWords::Arguments(ddr_Model const& model, std::span<std::string const> words) const {
  CommandInfo const* const info = words.empty() ? nullptr : FindCommand(commands_, words[0]);
  if (info == nullptr) { return {}; }
  std::vector<ArgumentInfo> arguments;
  std::string maker;
  auto const named = std::ranges::find_if(info->kinds, [&](std::string const& kind) { return !ValueOf(words, kind).empty(); });
  for (std::string const& kind : info->kinds) {
    if (named != info->kinds.end() && kind != *named) { continue; }
    ArgumentInfo object = Naming(kind, Optional(kind, "the object"));
    arguments.push_back(std::move(object));
  }
  arguments.insert(arguments.end(), info->arguments.begin(), info->arguments.end());
  if (info->members == ObjectMembers::OfProcedure) {
    maker = ValueOf(words, "procedure");
  } else if (info->members != ObjectMembers::None && named != info->kinds.end()) {
    maker = MakerOf(model, *named, ValueOf(words, *named));
  }
  CommandInfo const* const construction = FindCommand(commands_, maker);
  if (construction == nullptr) { return arguments; }
  std::ranges::copy_if(construction->arguments, std::back_inserter(arguments),
                       [&](ArgumentInfo const& argument) { return info->TakesMember(argument); });
  return arguments;
}

cls_Value CommandWords::Read(ddr_Model const& model, std::span<std::string const> words) const {
  cls_Value::Fields command;
  if (!words.empty()) { command.emplace_back("command", words[0]); }
  std::vector<ArgumentInfo> const arguments = Arguments(model, words);
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (words[i].find('=') == std::string::npos) { throw std::invalid_argument("expected argument=value, not " + Quoted(words[i]) + "."); }
    auto const [name, text] = Parted(words[i]);
    if (std::ranges::find(command, name, &cls_Value::Fields::value_type::first) != command.end()) {
      throw std::invalid_argument("the argument " + Quoted(name) + " is given twice.");
    }
    auto const argument = std::ranges::find(arguments, name, &ArgumentInfo::name);
    command.emplace_back(name, ReadValue(argument == arguments.end() ? nullptr : &*argument, text));
  }
  return command;
}

std::vector<std::string> CommandWords::Completions(ddr_Model const& model, std::span<std::string const> words) const {
  std::vector<std::string> found;
  if (words.empty()) { return found; }
  std::string_view const last = words.back();
  auto const offer = [&](std::string const& text) {
    if (text.starts_with(last) && std::ranges::find(found, text) == found.end()) { found.push_back(text); }
  };
  if (words.size() == 1) {
    for (CommandInfo const& info : commands_) { offer(info.name); }
    return found;
  }
  Word const parted = Parted(last);
  std::string_view const name = parted.first, begun = parted.second;
  bool const isValue = last.find('=') != std::string_view::npos;
  auto const before = words.first(words.size() - 1);
  for (ArgumentInfo const& argument : Arguments(model, before)) {
    if (!isValue) {
      auto const isGiven = [&](std::string const& word) { return Parted(word).first == argument.name; };
      if (std::ranges::none_of(before.subspan(1), isGiven)) { offer(argument.name + "="); }
      continue;
    }
    if (argument.name != name) { continue; }
    std::vector<std::string> values = argument.permissible;
    if (argument.kind == ValueKind::Boolean) { values.insert(values.end(), {"true", "false"}); }
    if (!argument.refers.empty()) {
      for (std::string const& value : NamesOf(model, argument.refers)) { values.push_back(value); }
    }
    if (argument.perStep) { values.insert(values.end(), {"UNSET", "FREED"}); }
    std::erase_if(values, [&](std::string const& value) { return !value.starts_with(begun); });
    bool const quoted = std::ranges::any_of(values, NeedsQuotes);  // all of them: they begin alike where a terminal shows what they share
    for (std::string const& value : values) { found.push_back(argument.name + "=" + (quoted ? InQuotes(value) : value)); }
  }
  return found;
}

}  // namespace gattr
