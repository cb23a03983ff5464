#include "command/Arguments.h"

#include <algorithm>

#include "text/Text.h"

namespace gattr {

namespace {

constexpr char const* kSource = "command/Session";
constexpr std::string_view kCommand = "command", kDryRun = "dryRun";

/// What a value of another type than wanted is called.
std::string Described(Json const& value) {
  switch (value.type()) {
    case Json::value_t::null: return "null";
    case Json::value_t::boolean: return value.get<bool>() ? "true" : "false";
    case Json::value_t::string: return Quoted(value.get_ref<std::string const&>());
    case Json::value_t::array: return "a list";
    case Json::value_t::object: return "an object";
    default: return value.dump();
  }
}

}  // namespace

void RefuseUnknown(Subject& subject, std::string const& text, std::string hint) {
  subject.hint = std::move(hint);
  subject.atFault = true;
  nex_Exception::Throw(omu_KeyErrorException(text), kSource, __LINE__);
}

void RefuseValue(Subject& subject, std::string const& text, std::string hint) {
  subject.hint = std::move(hint);
  subject.atFault = true;
  nex_Exception::Throw(omu_ValueErrorException(text), kSource, __LINE__);
}

void RefuseEdit(Subject& subject, std::string const& text, std::string hint) {
  subject.hint = std::move(hint);
  nex_Exception::Throw(nex_TextException(text), kSource, __LINE__);
}

Arguments::Arguments(Json const& command, Subject& subject) : command_(command), subject_(subject) {
  if (!command.is_object()) {
    RefuseValue(subject, "A command is an object with named members, not " + Described(command) + ".",
                R"(For example {"command": "undo"}.)");
  }
  taken_.reserve(8);  // most commands take fewer
  subject.command = Text(kCommand);
  dryRun_ = Flag(kDryRun);
}

bool Arguments::Flag(std::string_view name) {
  Json const* const flag = Take(name);
  if (flag == nullptr) { return false; }
  if (!flag->is_boolean()) { RefuseValue(subject_, Quoted(name) + " is true or false, not " + Described(*flag) + "."); }
  return flag->get<bool>();
}

Json const* Arguments::Find(std::string_view name) const {
  auto const found = command_.find(name);
  return found == command_.end() ? nullptr : &*found;
}

Json const* Arguments::Take(std::string_view name) {
  Json const* const value = Find(name);
  if (value != nullptr) { taken_.push_back(value); }
  return value;
}

bool Arguments::IsTaken(Json const& value) const { return std::ranges::find(taken_, &value) != taken_.end(); }

void Arguments::AssertTexts(std::string_view name, Json const& value) const {
  if (value.is_string()) { AsText(name, value); }
  if (!value.is_structured()) { return; }
  for (Json const& element : value) { AssertTexts(name, element); }
}

cls_Value Arguments::AsValue(std::string_view name, Json const& value) const {
  AssertTexts(name, value);
  return ToValue(value);
}

std::string const& Arguments::AsText(std::string_view name, Json const& value) const {
  if (!value.is_string()) { RefuseValue(subject_, Quoted(name) + " is a text, not " + Described(value) + "."); }
  auto const& text = value.get_ref<std::string const&>();
  if (!IsUtf8(text)) { RefuseValue(subject_, Quoted(name) + " is not UTF-8: " + Quoted(text) + "."); }
  return text;
}

std::string const* Arguments::OptionalText(std::string_view name) {
  Json const* const value = Take(name);
  return value == nullptr ? nullptr : &AsText(name, *value);
}

std::string const& Arguments::Text(std::string_view name) {
  if (auto const* const text = OptionalText(name)) { return *text; }
  std::vector<std::string> given;
  for (auto const& [other, value] : Rest()) { given.push_back(other); }
  std::string const nearest = Nearest(name, given);
  RefuseUnknown(subject_, "The argument " + Quoted(name) + " is missing.",
                nearest.empty() ? "" : "Is " + Quoted(nearest) + " meant to be it?");
}

cow_String Arguments::Name(std::string_view name) {
  std::string const& text = Text(name);
  if (text.empty()) { RefuseValue(subject_, Quoted(name) + " is empty.", "A name is any text but the empty one."); }
  return cow_String(text);
}

kprC_Arguments Arguments::Rest() const {
  kprC_Arguments rest;
  rest.reserve(command_.size());
  ForEachRest([&rest](std::string const& name, cls_Value value) { rest.emplace_back(name, std::move(value)); });
  return rest;
}

void Arguments::AssertNoRest(std::vector<std::string> const& known) const {
  for (auto const& [name, value] : Rest()) {
    RefuseUnknown(subject_, "There is no argument " + Quoted(name) + ".", Suggestion(name, known, "Its arguments"));
  }
}

}  // namespace gattr
