#pragma once

#include <exception>
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

}  // namespace gattr
