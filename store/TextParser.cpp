#include "store/TextParser.h"

#include <limits>
#include <string>
#include <utility>

#include <nlohmann/json.hpp>

namespace gattr {

namespace {

/// Takes what the parser finds into a document.
class Handler final : public nlohmann::json_sax<nlohmann::json> {
public:
  explicit Handler(Document& document) : document_(document) {}

  bool null() override {
    document_.AddNull(Name());
    return true;
  }
  bool boolean(bool value) override {
    document_.AddBool(Name(), value);
    return true;
  }
  bool number_integer(number_integer_t value) override {
    document_.AddInteger(Name(), value);
    return true;
  }
  bool number_unsigned(number_unsigned_t value) override {
    constexpr number_unsigned_t kGreatest = std::numeric_limits<number_integer_t>::max();
    return value <= kGreatest ? number_integer(static_cast<number_integer_t>(value)) : number_float(static_cast<double>(value), {});
  }
  bool number_float(number_float_t value, string_t const& /*text*/) override {
    document_.AddReal(Name(), value);
    return true;
  }
  bool string(string_t& value) override {
    document_.AddText(Name(), document_.Intern(value));
    return true;
  }
  bool binary(binary_t& /*value*/) override { return false; }  // not part of JSON
  bool start_object(std::size_t /*size*/) override {
    document_.Open(Document::Kind::Object, Name());
    return true;
  }
  bool key(string_t& name) override {
    name_ = document_.Intern(name);
    return true;
  }
  bool end_object() override { return Close(); }
  bool start_array(std::size_t /*size*/) override {
    document_.Open(Document::Kind::List, Name());
    return true;
  }
  bool end_array() override { return Close(); }

  bool parse_error(std::size_t /*position*/, std::string const& /*token*/, nlohmann::detail::exception const& error) override {
    constexpr int kNumberOverflow = 406;
    if (error.id == kNumberOverflow) { document_.Refuse(document_.OpenPath(document_.View(name_)), "expected a finite number"); }
    std::string_view text = error.what();
    document_.Refuse("", text.substr(text.find("] ") + 2));  // behind the parser's own name for the error
  }

private:
  Document::Text Name() { return std::exchange(name_, 0); }
  bool Close() {
    document_.Close();
    return true;
  }

  Document& document_;
  Document::Text name_ = 0;  // of the value to come
};

}  // namespace

Document ParseText(std::string_view text, std::string_view fileName) {
  Document document(fileName);
  Handler handler(document);
  nlohmann::json::sax_parse(text, &handler);
  return document;
}

}  // namespace gattr
