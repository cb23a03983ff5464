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
  using Data = std::variant<std::monostate, bool, long long, double, std::string, List, Fields>;

  cls_Value() = default;
  // Of what is held: the library's own copy of a variant ends the program where memory runs out on the way, as it takes one whose
  // alternatives can all be moved for one that always holds something (libstdc++ 12).
  cls_Value(cls_Value const& other)
      : data(std::visit([]<class T>(T const& held) { return Data(std::in_place_type<T>, held); }, other.data)) {}
  cls_Value(cls_Value&&) noexcept = default;
  cls_Value& operator=(cls_Value const& other) { return *this = cls_Value(other); }
  cls_Value& operator=(cls_Value&&) noexcept = default;
  ~cls_Value() = default;
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

  Data data;
};
