#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/BasicUtils/cls_Value.h"

/// What arguments of commands are made of: each is given or left out. Braces with names do: {.u1 = 0.0, .u2 = UNSET}.
namespace gattr {

struct UnsetWord {};
struct FreedWord {};
/// Leaves a value open in the create step.
inline constexpr UnsetWord UNSET;
/// Gives a value up from a later step on.
inline constexpr FreedWord FREED;

/// An argument, given or not. What was read from a model is given too; Get() of it is empty where no value is in force.
class Given {
public:
  Given() = default;
  bool IsGiven() const { return given_; }
  cls_Value Value() const { return value_; }
  void Read(cls_Value value) {
    value_ = std::move(value);
    given_ = true;
  }

protected:
  explicit Given(cls_Value value) : value_(std::move(value)), given_(true) {}
  template <class T> std::optional<T> As() const {
    auto const* const held = value_.As<T>();
    return held == nullptr ? std::nullopt : std::optional<T>(*held);
  }

private:
  cls_Value value_;
  bool given_ = false;
};

class Number : public Given {
public:
  Number() = default;
  Number(double value) : Given(value) {}
  std::optional<double> Get() const { return As<double>(); }

protected:
  using Given::Given;
};

class Integer : public Given {
public:
  Integer() = default;
  Integer(int value) : Given(value) {}
  std::optional<long long> Get() const { return As<long long>(); }

protected:
  using Given::Given;
};

class Flag : public Given {
public:
  Flag() = default;
  Flag(bool value) : Given(value) {}
  std::optional<bool> Get() const { return As<bool>(); }

protected:
  using Given::Given;
};

/// A text, or the name of an object.
class Text : public Given {
public:
  Text() = default;
  Text(char const* value) : Given(value) {}
  Text(std::string value) : Given(std::move(value)) {}
  std::optional<std::string> Get() const { return As<std::string>(); }

protected:
  using Given::Given;
};

/// A value that a word may stand for: "DEFAULT", "PRESELECT".
template <class T> class OrWord : public T {
public:
  using T::T;
  OrWord() = default;
  OrWord(char const* word) : T(cls_Value(word)) {}
};

/// One of a few texts, checked by the compiler; Of takes one that is known when the program runs.
template <auto const& Texts> class Choice {
public:
  Choice() = default;
  consteval Choice(char const* text) : text_(text), given_(true) {
    for (std::string_view const known : Texts) {
      if (known == text_) { return; }
    }
    throw "no such choice";
  }
  /// Of another text it is refused when the command runs.
  static Choice Of(std::string_view text) {
    Choice choice;
    for (std::string_view const known : Texts) {
      if (known == text) { choice.text_ = known; }
    }
    choice.given_ = true;
    return choice;
  }
  bool IsGiven() const { return given_; }
  cls_Value Value() const { return text_; }
  void Read(cls_Value const& value) {
    auto const* const text = value.As<std::string>();
    *this = Of(text == nullptr ? std::string_view() : *text);
  }
  /// Empty where no value is in force.
  std::string_view Get() const { return text_; }

protected:
  constexpr explicit Choice(std::string_view word) : text_(word), given_(true) {}

private:
  std::string_view text_;
  bool given_ = false;
};

template <class T> class List : public Given {
public:
  List() = default;
  List(std::initializer_list<T> values) : Given(Values(values)) {}
  List(std::vector<T> const& values) : Given(Values(values)) {}
  /// The elements as they were read or given.
  cls_Value::List Get() const { return Given::As<cls_Value::List>().value_or(cls_Value::List()); }

protected:
  using Given::Given;

private:
  static cls_Value Values(auto const& values) {
    cls_Value::List list;
    for (T const& value : values) { list.push_back(value.Value()); }
    return list;
  }
};

/// The members of \p arguments that are given.
template <class Arguments> cls_Value::Fields FieldsOf(Arguments const& arguments) {
  cls_Value::Fields fields;
  Arguments::ForEach(arguments, [&fields](char const* name, auto const& argument) {
    if (argument.IsGiven()) { fields.emplace_back(name, argument.Value()); }
  });
  return fields;
}

/// An object that is given by its members; UNSET for none.
template <class Members> class Object : public Given {
public:
  Object() = default;
  Object(Members const& members) : Given(FieldsOf(members)) {}
  Object(UnsetWord) : Given(cls_Value()) {}
};

/// A value that steps carry.
template <class T> class Carried : public T {
public:
  using T::T;
  Carried() = default;
  Carried(UnsetWord) : T(Word("UNSET")) {}
  Carried(FreedWord) : T(Word("FREED")) {}

private:
  static auto Word(std::string_view word) {
    if constexpr (requires { T().Value().IsNull(); } && std::is_base_of_v<Given, T>) {
      return cls_Value(word);
    } else {
      return word;
    }
  }
};

}  // namespace gattr
