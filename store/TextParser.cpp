#include "store/TextParser.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "text/JsonParser.h"

namespace gattr {

namespace {

/// Takes what the parser finds into a document.
class Handler final : public JsonHandler {
public:
  Handler(Document& document, Ticker& tick) : document_(document), tick_(tick) {}

  void Null() override { document_.AddNull(Named()); }
  void Bool(bool value) override { document_.AddBool(Named(), value); }
  void Integer(long long value) override { document_.AddInteger(Named(), value); }
  void Real(double value, std::string_view /*number*/) override {
    if (!std::isfinite(value)) { document_.Refuse(document_.OpenPath(document_.View(name_)), "expected a finite number"); }
    document_.AddReal(Named(), value);
  }
  void String(std::string_view value) override { document_.AddText(Named(), document_.Intern(value)); }
  void Open(bool isObject) override {
    tick_();
    document_.Open(isObject ? Document::Kind::Object : Document::Kind::List, Named());
  }
  void Name(std::string_view name) override { name_ = document_.Intern(name); }
  void Close() override { document_.Close(); }

private:
  Document::Text Named() { return std::exchange(name_, 0); }

  Document& document_;
  Ticker& tick_;
  Document::Text name_ = 0;  // of the value to come
};

}  // namespace

Document ParseText(std::string_view text, std::string_view fileName, Ticker& tick) {
  Document document(fileName);
  if (text.size() > kLargestText) {
    document.Refuse("", "is longer than " + std::to_string(kLargestText) + " bytes, which the text of a model has at most");
  }
  Handler handler(document, tick);
  try {
    ParseJson(text, handler);
  } catch (JsonError const& error) {
    std::string_view const before = text.substr(0, error.At());
    auto const line = std::ranges::count(before, '\n') + 1;
    std::size_t const column = before.size() - (before.rfind('\n') + 1) + 1;  // behind the last line's end, if there is one
    document.Refuse("", "is no JSON at line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + error.what());
  }
  return document;
}

}  // namespace gattr
