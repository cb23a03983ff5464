#pragma once

#include <exception>
#include <new>
#include <optional>
#include <string>

namespace gattr {

/// A refusal of the library or of the editing layer.
struct Refusal {
  std::string module;     ///< prefix of the module whose table lists it; empty when none does
  int code = -1;          ///< its number there; -1 when it has none
  std::string exception;  ///< "nex_TextException", "omu_ValueErrorException", "omu_KeyErrorException"
  std::string message;    ///< the exact text of the table
};

/// What an exception says. One that is no refusal gives its text alone.
Refusal RefusalOf(std::exception const& error);

/// What \p run refuses; nothing when it does not.
template <class Run> std::optional<Refusal> RefusalBy(Run&& run) {
  try {
    run();
  } catch (std::bad_alloc const&) { throw; } catch (std::exception const& error) {
    return RefusalOf(error);
  }
  return std::nullopt;
}

}  // namespace gattr
