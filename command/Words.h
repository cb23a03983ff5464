#pragma once

#include <string>
#include <string_view>

#include "platform/CaeUtils/mdl_PropagationStatus.h"

namespace gattr {

/// What a status is called, in tables and messages: its text in small letters.
struct StatusWord {
  std::string_view word;     ///< "passed over"; "-" before the creation
  std::string_view meaning;  ///< a sentence part for a legend
};
/// All of them, by number.
inline constexpr std::size_t kStatusCount = 16;
StatusWord const& WordOf(mdl_PropagationStatusEnm status);

/// What a procedure type is called: its label, "INITIAL" for the initial step, the class's name where there is no label.
std::string ProcedureText(unsigned procedureType);

}  // namespace gattr
