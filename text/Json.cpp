#include "text/Json.h"

#include <concepts>
#include <limits>

namespace gattr {

cls_Value ToValue(Json const& json) {
  switch (json.type()) {
    case Json::value_t::boolean: return json.get<bool>();
    case Json::value_t::number_integer: return static_cast<long long>(json.get<std::int64_t>());
    case Json::value_t::number_unsigned: {
      auto const number = json.get<std::uint64_t>();
      if (number <= static_cast<std::uint64_t>(std::numeric_limits<long long>::max())) { return static_cast<long long>(number); }
      return static_cast<double>(number);
    }
    case Json::value_t::number_float: return json.get<double>();
    case Json::value_t::string: return json.get_ref<std::string const&>();
    case Json::value_t::array: {
      cls_Value::List list;
      for (Json const& element : json) { list.push_back(ToValue(element)); }
      return list;
    }
    case Json::value_t::object: {
      cls_Value::Fields fields;
      for (auto const& [name, member] : json.items()) { fields.emplace_back(name, ToValue(member)); }
      return fields;
    }
    default: return {};
  }
}

Json ToJson(cls_Value const& value) {
  return std::visit(
      []<class T>(T const& held) -> Json {
        if constexpr (std::same_as<T, std::monostate>) {
          return nullptr;
        } else if constexpr (std::same_as<T, cls_Value::List>) {
          Json list = Json::array();
          for (cls_Value const& item : held) { list.push_back(ToJson(item)); }
          return list;
        } else if constexpr (std::same_as<T, cls_Value::Fields>) {
          Json fields = Json::object();
          for (auto const& [name, field] : held) { fields[name] = ToJson(field); }
          return fields;
        } else {
          return held;
        }
      },
      value.data);
}

}  // namespace gattr
