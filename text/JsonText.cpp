#include "text/JsonText.h"

#include <algorithm>
#include <cmath>
#include <concepts>
#include <utility>
#include <variant>
#include <vector>

#include "text/JsonParser.h"
#include "text/Text.h"

namespace gattr {

namespace {

/// Makes a value of what the parser finds.
class ValueMaker final : public JsonHandler {
public:
  void Null() override { Add({}); }
  void Bool(bool value) override { Add(value); }
  void Integer(long long value) override { Add(value); }
  void Real(double value, std::string_view number) override {
    if (!std::isfinite(value)) {
      throw JsonError(JsonError::kNowhere, "the value of " + Quoted(name_) + " is too large: " + std::string(number));
    }
    Add(value);
  }
  void String(std::string_view value) override { Add(std::string(value)); }
  void Open(bool isObject) override { open_.push_back(&Add(isObject ? cls_Value(cls_Value::Fields()) : cls_Value(cls_Value::List()))); }
  void Name(std::string_view name) override { name_ = name; }
  void Close() override {
    if (auto const* const fields = open_.back()->As<cls_Value::Fields>()) { AssertOnce(*fields); }
    open_.pop_back();
  }

  cls_Value& Made() { return made_; }

private:
  cls_Value& Add(cls_Value value) {
    if (open_.empty()) { return made_ = std::move(value); }
    if (auto* const list = std::get_if<cls_Value::List>(&open_.back()->data)) { return list->emplace_back(std::move(value)); }
    return std::get<cls_Value::Fields>(open_.back()->data).emplace_back(name_, std::move(value)).second;
  }
  static void AssertOnce(cls_Value::Fields const& fields) {
    std::vector<std::string_view> names;
    names.reserve(fields.size());
    for (auto const& [name, value] : fields) { names.push_back(name); }
    std::ranges::sort(names);
    if (auto const twice = std::ranges::adjacent_find(names); twice != names.end()) {
      throw JsonError(JsonError::kNowhere, "the member " + Quoted(*twice) + " is given twice");
    }
  }

  cls_Value made_;
  std::vector<cls_Value*> open_;  // what is open takes no further value before it is closed, so that it stays where it is
  std::string name_;
};

void AppendReal(std::string& out, double number) {
  if (!std::isfinite(number)) {
    out += "null";
    return;
  }
  char digits[32];
  std::string_view const text = Digits(number, digits);
  out += text;
  if (text.find_first_of(".e") == std::string_view::npos) { out += ".0"; }  // to be read as a real number again
}

}  // namespace

cls_Value ParseJson(std::string_view text) {
  ValueMaker maker;
  ParseJson(text, maker);
  return std::move(maker.Made());
}

std::string JsonText(cls_Value const& value) {
  std::string text;
  AppendJson(text, value);
  return text;
}

void AppendJson(std::string& out, cls_Value const& value) {
  std::visit(
      [&out]<class T>(T const& held) {
        if constexpr (std::same_as<T, std::monostate>) {
          out += "null";
        } else if constexpr (std::same_as<T, bool>) {
          out += held ? "true" : "false";
        } else if constexpr (std::same_as<T, long long>) {
          out += std::to_string(held);
        } else if constexpr (std::same_as<T, double>) {
          AppendReal(out, held);
        } else if constexpr (std::same_as<T, std::string>) {
          AppendJsonQuoted(out, held);
        } else {
          constexpr bool kNamed = std::same_as<T, cls_Value::Fields>;
          char open = kNamed ? '{' : '[';
          for (auto const& item : held) {
            out += open;
            open = ',';
            if constexpr (kNamed) {
              AppendJsonQuoted(out, item.first);
              out += ':';
              AppendJson(out, item.second);
            } else {
              AppendJson(out, item);
            }
          }
          if (held.empty()) { out += open; }
          out += kNamed ? '}' : ']';
        }
      },
      value.data);
}

void AppendJsonQuoted(std::string& out, std::string_view text) {
  constexpr char kHex[] = "0123456789abcdef";
  out += '"';
  std::size_t plain = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto const byte = static_cast<unsigned char>(text[i]);
    if (byte >= 0x20 && byte != '"' && byte != '\\' && byte != 0x7F) { continue; }
    out.append(text, plain, i - plain);
    plain = i + 1;
    switch (byte) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\t': out += "\\t"; break;
      case '\r': out += "\\r"; break;
      default: out.append("\\u00").append(1, kHex[byte >> 4]).append(1, kHex[byte & 0xF]);
    }
  }
  out.append(text, plain, text.size() - plain);
  out += '"';
}

}  // namespace gattr
