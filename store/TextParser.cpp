#include "store/TextParser.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>
#include <system_error>

#include "text/Text.h"

namespace gattr {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// One pass over the text. What is open is the document's business, so that no nesting can exhaust the stack.
class Parser {
public:
  Parser(std::string_view text, Document& document) : text_(text), document_(document) {}

  void Run() {
    if (text_.starts_with("\xEF\xBB\xBF")) { at_ = 3; }  // the mark that some editors put in front
    do {
      Value();
      CloseAll();
    } while (document_.Depth() > 0);
    Blanks();
    if (at_ != text_.size()) { Refuse("expected the end of the text"); }
  }

private:
  using Kind = Document::Kind;
  using Text = Document::Text;

  char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  bool Take(char c) {
    if (Peek() != c || at_ >= text_.size()) { return false; }
    ++at_;
    return true;
  }
  bool Take(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) { return false; }
    at_ += word.size();
    return true;
  }
  void Blanks() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\n' || text_[at_] == '\r' || text_[at_] == '\t')) { ++at_; }
  }

  /// A value with the name before it; of an object or a list its beginning, and whatever it begins with.
  void Value() {
    for (;;) {
      Text const name = document_.Depth() > 0 && document_.OpenKind() == Kind::Object ? Name() : 0;
      Blanks();
      char const first = Peek();
      if (first == '{' || first == '[') {
        if (document_.Depth() == kDeepestText) { Refuse("nested deeper than " + std::to_string(kDeepestText) + " levels"); }
        ++at_;
        document_.Open(first == '{' ? Kind::Object : Kind::List, name);
        Blanks();
        if (Peek() == (first == '{' ? '}' : ']')) { return; }
        continue;
      }
      if (first == '"') {
        document_.AddText(name, String());
      } else if (first == '-' || IsDigit(first)) {
        Number(name);
      } else if (Take("null")) {
        document_.AddNull(name);
      } else if (Take("true")) {
        document_.AddBool(name, true);
      } else if (Take("false")) {
        document_.AddBool(name, false);
      } else {
        Refuse("expected a value");
      }
      return;
    }
  }

  /// Closes what ends here; stops in front of the next value.
  void CloseAll() {
    while (document_.Depth() > 0) {
      Blanks();
      if (Take(',')) { return; }
      bool const isObject = document_.OpenKind() == Kind::Object;
      if (!Take(isObject ? '}' : ']')) { Refuse(isObject ? "expected , or }" : "expected , or ]"); }
      document_.Close();
    }
  }

  Text Name() {
    Blanks();
    if (Peek() != '"') { Refuse("expected a name"); }
    Text const name = String();
    Blanks();
    if (!Take(':')) { Refuse("expected :"); }
    return name;
  }

  Text String() {
    std::size_t const begin = ++at_;
    bool isAscii = true, isPlain = true;
    for (;; ++at_) {
      if (at_ >= text_.size()) { Refuse("expected \""); }
      auto const byte = static_cast<unsigned char>(text_[at_]);
      if (byte == '"') { break; }
      if (byte < 0x20) { Refuse("expected no control character in a text"); }
      isAscii = isAscii && byte < 0x80;
      if (byte == '\\') {
        isPlain = false;
        ++at_;
      }
    }
    std::string_view const raw = text_.substr(begin, at_++ - begin);
    if (!isAscii && !IsUtf8(raw)) { RefuseAt(begin, "expected a text in UTF-8"); }
    return isPlain ? document_.InternLasting(raw) : document_.Intern(Unescaped(begin, raw));
  }

  std::string Unescaped(std::size_t begin, std::string_view raw) const {
    constexpr std::string_view kNames = "\"\\/bfnrt", kMeanings = "\"\\/\b\f\n\r\t";
    std::string text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
      if (raw[i] != '\\') {
        text += raw[i];
        continue;
      }
      std::size_t const at = begin + i++;
      if (auto const name = kNames.find(raw[i]); name != std::string_view::npos) {
        text += kMeanings[name];
        continue;
      }
      unsigned code = raw[i] == 'u' ? Unit(raw, i + 1) : kNoUnit;
      i += 4;
      if (code >= 0xD800 && code < 0xDC00 && raw.substr(i + 1, 2) == "\\u") {  // the first half of a pair
        unsigned const second = Unit(raw, i + 3);
        code = second >= 0xDC00 && second < 0xE000 ? 0x10000 + ((code - 0xD800) << 10) + (second - 0xDC00) : kNoUnit;
        i += 6;
      }
      if (code == kNoUnit || (code >= 0xD800 && code < 0xE000)) { RefuseAt(at, "expected an escape such as \\n or \\u00e9"); }
      AppendUtf8(text, code);
    }
    return text;
  }
  static constexpr unsigned kNoUnit = ~0U;
  static unsigned Unit(std::string_view raw, std::size_t at) {
    unsigned code = 0;
    if (at + 4 > raw.size()) { return kNoUnit; }
    auto const [end, error] = std::from_chars(raw.data() + at, raw.data() + at + 4, code, 16);
    return error == std::errc() && end == raw.data() + at + 4 ? code : kNoUnit;
  }
  static void AppendUtf8(std::string& text, unsigned code) {
    auto const rest = [&](int shift) { text += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
      text += static_cast<char>(code);
    } else if (code < 0x800) {
      text += static_cast<char>(0xC0U | code >> 6);
      rest(0);
    } else if (code < 0x10000) {
      text += static_cast<char>(0xE0U | code >> 12);
      rest(6), rest(0);
    } else {
      text += static_cast<char>(0xF0U | code >> 18);
      rest(12), rest(6), rest(0);
    }
  }

  void Digits() {
    if (!IsDigit(Peek())) { Refuse("expected a digit"); }
    while (IsDigit(Peek())) { ++at_; }
  }
  void Number(Text name) {
    std::size_t const begin = at_;
    Take('-');
    if (!Take('0')) { Digits(); }
    bool isInteger = true;
    if (Take('.')) {
      isInteger = false;
      Digits();
    }
    if (Take('e') || Take('E')) {
      isInteger = false;
      static_cast<void>(Take('+') || Take('-'));
      Digits();
    }
    char const* const first = text_.data() + begin;
    char const* const last = text_.data() + at_;
    long long integer = 0;
    if (isInteger && std::from_chars(first, last, integer).ec == std::errc()) { return document_.AddInteger(name, integer); }
    double real = 0.0;
    if (std::from_chars(first, last, real).ec != std::errc()) { real = std::strtod(std::string(first, last).c_str(), nullptr); }  // 1e-999 is 0
    if (!std::isfinite(real)) { document_.Refuse(document_.OpenPath(document_.View(name)), "expected a finite number"); }
    document_.AddReal(name, real);
  }

  [[noreturn]] void Refuse(std::string_view expected) const { RefuseAt(at_, expected); }
  [[noreturn]] void RefuseAt(std::size_t at, std::string_view expected) const {
    std::size_t line = 1, column = 1;
    for (std::size_t i = 0; i < at && i < text_.size(); ++i, ++column) {
      if (text_[i] == '\n') { ++line, column = 0; }
    }
    document_.Refuse("", "is no JSON at line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + std::string(expected));
  }

  std::string_view text_;
  Document& document_;
  std::size_t at_ = 0;
};

}  // namespace

Document ParseText(std::string_view text, std::string_view fileName) {
  Document document(fileName);
  if (text.size() > kLargestText) {
    document.Refuse("", "has " + std::to_string(text.size()) + " bytes; the text of a model has " + std::to_string(kLargestText) + " at most");
  }
  Parser(text, document).Run();
  return document;
}

}  // namespace gattr
