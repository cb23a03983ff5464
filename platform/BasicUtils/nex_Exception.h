#pragma once

#include <exception>
#include <string_view>

#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreUtils/ddb_Export.h"

/// Where a refusal is listed: the prefix of the module ("kbc") and its code in the module's table.
struct nex_Origin {
  char const* module = "";  ///< a literal
  int code = -1;            ///< -1: the refusal has no number
};

/// Raises exceptions; every refusal of the library passes here.
struct nex_Exception {
  /// Notes in \p exception where it was raised, and throws it. \p sourceName is kept as a pointer: pass a literal. It
  /// belongs to the interface, as the line does, and need not be a file of this source tree.
  template <class E> [[noreturn]] static void Throw(E exception, char const* sourceName, int line) {
    exception.sourceName_ = sourceName;
    exception.line_ = line;
    throw exception;
  }
};

/// What every refusal of the library is, whatever its class: the one to catch by who makes no difference between them. The classes
/// that are thrown are final, so that no handler of one catches another.
class DDB_API nex_Refusal : public std::exception {
public:
  char const* what() const noexcept override { return text_.c_str(); }
  cow_String const& Text() const noexcept { return text_; }
  /// Empty before the exception is thrown, and the line 0.
  char const* SourceName() const noexcept { return sourceName_; }
  int Line() const noexcept { return line_; }
  /// The prefix of the module whose table lists the refusal, "" when none does.
  char const* Module() const noexcept { return origin_.module; }
  /// Its code there, -1 when it has none.
  int Code() const noexcept { return origin_.code; }
  /// The class that was thrown: "nex_TextException".
  virtual char const* ClassName() const noexcept = 0;

protected:
  explicit nex_Refusal(std::string_view text, nex_Origin origin) : text_(text), origin_(origin) {}
  nex_Refusal(nex_Refusal const&) = default;
  nex_Refusal& operator=(nex_Refusal const&) = default;

private:
  friend struct nex_Exception;

  cow_String text_;  // copying an exception must not throw
  nex_Origin origin_;
  char const* sourceName_ = "";
  int line_ = 0;
};

/// An edit that the model's state does not allow, or an inconsistency inside the library.
class DDB_API nex_TextException final : public nex_Refusal {
public:
  explicit nex_TextException(std::string_view text, nex_Origin origin = {}) : nex_Refusal(text, origin) {}
  char const* ClassName() const noexcept override { return "nex_TextException"; }
};
