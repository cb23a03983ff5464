#include "text/JsonParser.h"

#include <iterator>
#include <limits>

#include <nlohmann/json.hpp>

namespace gattr {

namespace {

using Json = nlohmann::json;

/// Goes through a text and tells how far it has come.
class Cursor {
public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = char const*;
  using reference = char const&;

  Cursor(char const* at, char const*& reached) : at_(at), reached_(&reached) {}
  char const& operator*() const { return *at_; }
  Cursor& operator++() {
    *reached_ = ++at_;
    return *this;
  }
  friend bool operator==(Cursor const& a, Cursor const& b) { return a.at_ == b.at_; }

private:
  char const* at_;
  char const** reached_;
};

/// What is wrong, of the package's "[...] parse error at line 1, column 2: syntax error while parsing value - invalid literal; last
/// read: 'x'; expected ...": the place is told by us, and what was read may be long.
std::string Wrong(std::string const& what) {
  constexpr std::string_view kBegin = " - ", kLast = "; last read: ", kExpected = "; expected ";
  auto const begin = what.find(kBegin);
  std::string wrong = begin == std::string::npos ? what : what.substr(begin + kBegin.size());
  if (auto const last = wrong.find(kLast); last != std::string::npos) {
    auto const expected = wrong.rfind(kExpected);
    wrong.erase(last, expected == std::string::npos || expected < last ? std::string::npos : expected - last);
  }
  return wrong;
}

/// Passes on what the package finds.
class Adapter final : public nlohmann::json_sax<Json> {
public:
  Adapter(std::string_view text, JsonHandler& handler) : text_(text), handler_(handler) {}

  void Run() { Json::sax_parse(Cursor(text_.data(), reached_), Cursor(text_.data() + text_.size(), reached_), this); }

  bool null() override { return handler_.Null(), true; }
  bool boolean(bool value) override { return handler_.Bool(value), true; }
  bool number_integer(number_integer_t value) override { return handler_.Integer(value), true; }
  bool number_unsigned(number_unsigned_t value) override {
    if (value > static_cast<number_unsigned_t>(std::numeric_limits<long long>::max())) {
      handler_.Real(static_cast<double>(value), std::to_string(value));
    } else {
      handler_.Integer(static_cast<long long>(value));
    }
    return true;
  }
  bool number_float(number_float_t value, string_t const& number) override { return handler_.Real(value, number), true; }
  bool string(string_t& value) override { return handler_.String(value), true; }
  bool binary(binary_t& /*value*/) override { return false; }  // not in a text
  bool start_object(std::size_t /*size*/) override { return Open(true); }
  bool start_array(std::size_t /*size*/) override { return Open(false); }
  bool key(string_t& name) override { return handler_.Name(name), true; }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }
  bool parse_error(std::size_t position, std::string const& last, Json::exception const& error) override {
    constexpr int kOutOfRange = 406;  // a number that is too large
    if (error.id == kOutOfRange) { handler_.Real(std::numeric_limits<double>::infinity(), last); }
    throw JsonError(position - 1, Wrong(error.what()));  // where reading has stopped
  }

private:
  bool Open(bool isObject) {
    if (depth_++ == kDeepestJson) {
      throw JsonError(static_cast<std::size_t>(reached_ - text_.data()) - 1,
                      "nested deeper than " + std::to_string(kDeepestJson) + " levels");
    }
    return handler_.Open(isObject), true;
  }
  bool Close() {
    --depth_;
    return handler_.Close(), true;
  }

  std::string_view text_;
  JsonHandler& handler_;
  char const* reached_ = text_.data();
  std::size_t depth_ = 0;
};

}  // namespace

void ParseJson(std::string_view text, JsonHandler& handler) { Adapter(text, handler).Run(); }

}  // namespace gattr
