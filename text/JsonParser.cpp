#include "text/JsonParser.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <system_error>

#include "text/Text.h"

namespace gattr {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

class Parser {
public:
  Parser(std::string_view text, JsonHandler& handler) : text_(text), handler_(handler) {}

  void Run() {
    if (text_.starts_with("\xEF\xBB\xBF")) { at_ = 3; }  // the mark that some editors put in front
    do {
      Value();
      CloseAll();
    } while (depth_ > 0);
    Blanks();
    if (at_ != text_.size()) { Refuse("expected the end of the text"); }
  }

private:
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
      if (depth_ > 0 && InObject()) { Name(); }
      Blanks();
      char const first = Peek();
      if (first == '{' || first == '[') {
        if (depth_ == kDeepestJson) { Refuse("nested deeper than " + std::to_string(kDeepestJson) + " levels"); }
        ++at_;
        isObject_[depth_++] = first == '{';
        handler_.Open(first == '{');
        Blanks();
        if (Peek() == (first == '{' ? '}' : ']')) { return; }
        continue;
      }
      if (first == '"') {
        handler_.String(String());
      } else if (first == '-' || IsDigit(first)) {
        Number();
      } else if (Take("null")) {
        handler_.Null();
      } else if (Take("true")) {
        handler_.Bool(true);
      } else if (Take("false")) {
        handler_.Bool(false);
      } else {
        Refuse("expected a value");
      }
      return;
    }
  }

  /// Closes what ends here; stops in front of the next value.
  void CloseAll() {
    while (depth_ > 0) {
      Blanks();
      if (Take(',')) { return; }
      if (!Take(InObject() ? '}' : ']')) { Refuse(InObject() ? "expected , or }" : "expected , or ]"); }
      --depth_;
      handler_.Close();
    }
  }

  void Name() {
    Blanks();
    if (Peek() != '"') { Refuse("expected a name"); }
    handler_.Name(String());
    Blanks();
    if (!Take(':')) { Refuse("expected :"); }
  }

  /// Good until the next one.
  JsonHandler::Text String() {
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
    if (isPlain) { return {raw, true}; }
    unescaped_ = Unescaped(begin, raw);
    return {unescaped_, false};
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
  void Number() {
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
    if (isInteger && std::from_chars(first, last, integer).ec == std::errc()) { return handler_.Integer(integer); }
    double real = 0.0;
    if (std::from_chars(first, last, real).ec != std::errc()) {
      real = std::strtod(std::string(first, last).c_str(), nullptr);
    }  // 1e-999 is 0
    handler_.Real(real, {first, last});
  }

  bool InObject() const { return isObject_[depth_ - 1]; }
  [[noreturn]] void Refuse(std::string const& expected) const { RefuseAt(at_, expected); }
  [[noreturn]] static void RefuseAt(std::size_t at, std::string const& expected) { throw JsonError(at, expected); }

  std::string_view text_;
  JsonHandler& handler_;
  std::size_t at_ = 0, depth_ = 0;
  std::array<bool, kDeepestJson> isObject_{};  // of what is open
  std::string unescaped_;
};

}  // namespace

void ParseJson(std::string_view text, JsonHandler& handler) { Parser(text, handler).Run(); }

}  // namespace gattr
