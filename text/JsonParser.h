#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace gattr {

/// A text that is no JSON, or nested too deep; what() says what was expected.
class JsonError final : public std::runtime_error {
public:
  JsonError(std::size_t at, std::string const& expected) : std::runtime_error(expected), at_(at) {}
  std::size_t At() const { return at_; }  ///< in bytes from the beginning

private:
  std::size_t at_;
};

/// Takes what stands in a JSON text, in order. What it throws passes. Texts are without their escapes, and good during the call.
class JsonHandler {
public:
  virtual ~JsonHandler() = default;
  virtual void Null() = 0;
  virtual void Bool(bool value) = 0;
  virtual void Integer(long long value) = 0;
  /// \p value is infinite where \p number is too large.
  virtual void Real(double value, std::string_view number) = 0;
  virtual void String(std::string_view value) = 0;
  virtual void Open(bool isObject) = 0;
  /// The name of the value to come, in an object.
  virtual void Name(std::string_view name) = 0;
  virtual void Close() = 0;
};

inline constexpr std::size_t kDeepestJson = 64;  ///< levels of objects and lists

/// Parses one value, in one pass and without recursion: the JSON package's reader, with a limit on depth. Whole numbers that are too
/// large become real ones; texts are UTF-8. Raises a JsonError.
void ParseJson(std::string_view text, JsonHandler& handler);

}  // namespace gattr
