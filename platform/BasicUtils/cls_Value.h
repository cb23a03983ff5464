#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// A value on its way between a script and a member: nothing, a truth value, a number, a text, a list or named values.
struct cls_Value {
  using List = std::vector<cls_Value>;
  using Fields = std::vector<std::pair<std::string, cls_Value>>;

  cls_Value() = default;
  cls_Value(bool value) : data(value) {}
  cls_Value(int value) : data(static_cast<long long>(value)) {}
  cls_Value(long long value) : data(value) {}
  cls_Value(double value) : data(value) {}
  cls_Value(std::string value) : data(std::move(value)) {}
  cls_Value(std::string_view value) : data(std::string(value)) {}
  cls_Value(char const* value) : data(std::string(value)) {}
  cls_Value(List value) : data(std::move(value)) {}
  cls_Value(Fields value) : data(std::move(value)) {}

  bool IsNull() const { return std::holds_alternative<std::monostate>(data); }
  template <class T> T const* As() const { return std::get_if<T>(&data); }
  /// The first of the named values that bears the name; null where there is none.
  cls_Value const* Find(std::string_view name) const {
    if (auto const* const fields = As<Fields>()) {
      for (auto const& [known, value] : *fields) {
        if (known == name) { return &value; }
      }
    }
    return nullptr;
  }

  friend bool operator==(cls_Value const&, cls_Value const&) = default;

  std::variant<std::monostate, bool, long long, double, std::string, List, Fields> data;
};
