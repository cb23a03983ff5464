#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace gattr {

/// \p text in double quotes, for a message: control characters as \n or \u001b, so that a name can neither break the line
/// nor steer a terminal, and a long one cut after 80 bytes.
std::string Quoted(std::string_view text);

/// The words of a name in small letters: "boundary conditions" of "boundaryConditions".
std::string SplitWords(std::string_view name, char between = ' ');

/// \p text with every line break and run of blanks as one blank.
std::string OneLine(std::string_view text);

/// "1 step", "7 steps".
std::string Counted(std::size_t count, std::string_view one);

/// "a load", "an interaction".
std::string WithArticle(std::string_view noun);

/// "a", "b" and 12 more: at most \p shown of the names, quoted.
std::string QuotedList(std::span<std::string const> names, std::size_t shown = 8);

/// The name that is meant by \p text: one for which it is another word, the nearest by the number of letters to insert, drop, replace
/// or exchange with their neighbour, case apart, the shortest that begins with it, or the one that shares most of its words; never the
/// opposite ("deactivate" for "activate"). Empty when there is none. Linear in the names.
std::string Nearest(std::string_view text, std::span<std::string const> names);

/// "Did you mean "Step-2"?" where a name is near, otherwise "\p known: "Initial", "Step-1".", or "There are none.".
std::string Suggestion(std::string_view text, std::span<std::string const> names, std::string_view known);

/// The shortest text that reads back as \p number, which is finite; it stands in \p digits.
std::string_view Digits(double number, char (&digits)[32]);

/// Whether \p text is well-formed UTF-8: no stray, missing or overlong bytes, no surrogates.
bool IsUtf8(std::string_view text);

/// Whether a name is the pattern, or fits it: "*" stands for any text, "?" for any one byte.
bool Fits(std::string_view pattern, std::string_view name);

}  // namespace gattr
