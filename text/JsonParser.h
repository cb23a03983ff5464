#pragma once

#include <cstddef>
#include <string_view>

#include "text/JsonError.h"

namespace gattr {

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
