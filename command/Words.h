#pragma once

#include <string>
#include <string_view>

#include "framework/Refusal.h"
#include "module/kpr/engine/kprC_StepDependent.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"

namespace gattr {

/// What a status is called, in tables and messages: its text in small letters.
struct StatusWord {
  std::string_view word;     ///< "passed over"; "-" before the creation
  std::string_view meaning;  ///< a sentence part for a legend
  char sign;                 ///< where there is room for one alone

  /// The word, or the meaning where the word is but a sign: before the creation.
  std::string_view Text() const { return word == "-" ? meaning : word; }
};
/// All of them, by number.
inline constexpr std::size_t kStatusCount = 16;
StatusWord const& WordOf(mdl_PropagationStatusEnm status);

/// What a procedure type is called: its label, "INITIAL" for the initial step, the class's name where there is no label.
std::string ProcedureText(unsigned procedureType);

/// A procedure's label in small letters: "static general" of "STATIC_GENERAL".
std::string ProcedureWords(std::string_view label);

/// What is refused on one line, with its number where it has one: "Invalid value. [kbc 36]".
std::string RefusalText(Refusal const& refusal);

/// What a type acts on, in a word or two; empty where nobody has said.
std::string_view ActsOnText(kprC_ActsOn actsOn);

}  // namespace gattr
