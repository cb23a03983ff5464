#pragma once

#include <string>
#include <string_view>

#include "command/Session.h"
#include "text/Json.h"

/// Texts as they are shown. Names hold whatever Unicode a user gave them; none of it may steer a terminal, turn the direction
/// of a line, become markup or a formula.
namespace gattr {

/// \p text with nothing in it that acts instead of being seen: control characters, C1 included, line separators, characters
/// that turn the direction and invisible ones as \n, \u001b or \U000e0001, bytes that are no UTF-8 as \xff.
std::string Shown(std::string_view text);

/// The same line by line: line breaks and tabs stay.
std::string ShownLines(std::string_view text);

/// Columns that a shown text takes in a terminal: 0 for combining marks and joiners, 2 for East Asian wide characters and
/// emoji, 1 for the rest.
std::size_t Width(std::string_view shown);

/// A shown text in exactly \p width columns: padded with blanks, or cut and ended with an ellipsis.
std::string Fitted(std::string_view shown, std::size_t width);

enum class Style { Plain, Strong, Faint, New, Kept, Changed, Off, Held };
/// The sequences that turn a style on and off again in a terminal; empty for the plain one.
std::string_view StyleOn(Style style);
std::string_view StyleOff(Style style);
/// \p text in a style when \p color, else as it is.
std::string Styled(std::string_view text, Style style, bool color);

/// \p text as one field of a CSV line: shown, in quotes where it must be, and with an apostrophe before = + - @, which a
/// spreadsheet would take for a formula.
std::string CsvField(std::string_view text);

/// A value as one field of a CSV line: a number as it is, which no spreadsheet takes for a formula; empty for none.
std::string CsvValue(cls_Value const& value);

/// \p text inside HTML, as content or as a quoted attribute value.
std::string HtmlText(std::string_view text);
/// The same as content alone, where quotes stay as they are.
std::string HtmlContent(std::string_view text);

/// JSON that was written already, the same way: what acts is escaped as \u001b; its line breaks stay.
std::string JsonEscaped(std::string_view written);
/// A value on one line, "{"line": 3, "ok": true}": what acts instead of being seen is escaped, other Unicode stays readable.
std::string JsonLine(Json const& value);
/// The same over several indented lines; lists of plain values stay on one.
std::string JsonPage(Json const& value);

}  // namespace gattr
