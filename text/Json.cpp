#include "text/Json.h"

#include <concepts>

namespace gattr {

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
