#include "command/Arguments.h"

#include <algorithm>

#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr char const* kSource = "command/Session";
constexpr std::string_view kCommand = "command", kDryRun = "dryRun";

/// What a value of another type than wanted is called.
std::string Described(cls_Value const& value) {
  if (auto const* const text = value.As<std::string>()) { return Quoted(*text); }
  if (value.As<cls_Value::List>() != nullptr) { return "a list"; }
  return value.As<cls_Value::Fields>() != nullptr ? "an object" : JsonText(value);
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

Arguments::Arguments(cls_Value const& command, Subject& subject) : command_(command), subject_(subject) {
  if (command.As<cls_Value::Fields>() == nullptr) {
    RefuseValue(subject, "A command is an object with named members, not " + Described(command) + ".",
                R"(For example {"command": "undo"}.)");
  }
  taken_.reserve(8);  // most commands take fewer
  subject.command = Text(kCommand);
  dryRun_ = Flag(kDryRun);
}

bool Arguments::Flag(std::string_view name) {
  cls_Value const* const value = Take(name);
  if (value == nullptr) { return false; }
  bool const* const flag = value->As<bool>();
  if (flag == nullptr) { RefuseValue(subject_, Quoted(name) + " is true or false, not " + Described(*value) + "."); }
  return *flag;
}

cls_Value const* Arguments::Take(std::string_view name) {
  cls_Value const* const value = command_.Find(name);
  if (value != nullptr) { taken_.push_back(value); }
  return value;
}

bool Arguments::IsTaken(cls_Value const& value) const { return std::ranges::find(taken_, &value) != taken_.end(); }

void Arguments::AssertTexts(std::string_view name, cls_Value const& value) const {
  if (value.As<std::string>() != nullptr) {
    AsText(name, value);
  } else if (auto const* const list = value.As<cls_Value::List>()) {
    for (cls_Value const& element : *list) { AssertTexts(name, element); }
  } else if (auto const* const fields = value.As<cls_Value::Fields>()) {
    for (auto const& [field, element] : *fields) { AssertTexts(name, element); }
  }
}

std::string const& Arguments::AsText(std::string_view name, cls_Value const& value) const {
  auto const* const text = value.As<std::string>();
  if (text == nullptr) { RefuseValue(subject_, Quoted(name) + " is a text, not " + Described(value) + "."); }
  if (!IsUtf8(*text)) { RefuseValue(subject_, Quoted(name) + " is not UTF-8: " + Quoted(*text) + "."); }
  return *text;
}

std::string const* Arguments::OptionalText(std::string_view name) {
  cls_Value const* const value = Take(name);
  return value == nullptr ? nullptr : &AsText(name, *value);
}

void Arguments::RefuseMissing(std::string_view name) const {
  std::vector<std::string> given;
  for (auto const& [other, value] : Rest()) { given.push_back(other); }
  std::string const nearest = Nearest(name, given);
  RefuseUnknown(subject_, "The argument " + Quoted(name) + " is missing.",
                nearest.empty() ? "" : "Is " + Quoted(nearest) + " meant to be it?");
}

std::string const& Arguments::Text(std::string_view name) {
  auto const* const text = OptionalText(name);
  if (text == nullptr) { RefuseMissing(name); }
  return *text;
}

cls_Value::List const& Arguments::List(std::string_view name) {
  cls_Value const* const value = Take(name);
  if (value == nullptr) { RefuseMissing(name); }
  auto const* const list = value->As<cls_Value::List>();
  if (list == nullptr) { RefuseValue(subject_, Quoted(name) + " is a list, not " + Described(*value) + "."); }
  return *list;
}

cow_String Arguments::Name(std::string_view name) {
  std::string const& text = Text(name);
  if (text.empty()) { RefuseValue(subject_, Quoted(name) + " is empty.", "A name is any text but the empty one."); }
  return cow_String(text);
}

kprC_Arguments Arguments::Rest() const {
  kprC_Arguments rest;
  rest.reserve(command_.As<cls_Value::Fields>()->size());
  ForEachRest([&rest](std::string const& name, cls_Value const& value) { rest.emplace_back(name, value); });
  return rest;
}

void Arguments::AssertNoRest(std::initializer_list<std::string_view> known) const {
  std::string const* unknown = nullptr;
  ForEachRest([&](std::string const& name, cls_Value const&) { unknown = unknown == nullptr ? &name : unknown; });
  if (unknown == nullptr) { return; }
  std::vector<std::string> const names(known.begin(), known.end());
  RefuseUnknown(subject_, "There is no argument " + Quoted(*unknown) + ".", Suggestion(*unknown, names, "Its arguments"));
}

bool IsDryRun(cls_Value const& command) {
  cls_Value const* const flag = command.Find(kDryRun);
  return flag != nullptr && *flag == cls_Value(true);
}

}  // namespace gattr
