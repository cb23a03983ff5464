#pragma once

#include <exception>
#include <new>
#include <optional>
#include <string>

#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// A refusal as a value.
struct Refusal {
  std::string module;  ///< prefix of the module whose table lists it; empty when none does
  int code = -1;       ///< its number there; -1 when it has none
  std::string
      exception;        ///< its class: "nex_TextException", "omu_ValueErrorException", "omu_KeyErrorException"; empty of what is no refusal
  std::string message;  ///< the exact text of the table
};

/// What an exception says. One that is no refusal gives its text alone.
DDB_API Refusal RefusalOf(std::exception const& error);

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
