#pragma once

namespace gattr {

// The script and the style of a report's page (report/html), which the build makes texts of the library, and their SHA-256 in
// hexadecimal digits.
extern char const kPageScript[];
extern char const kPageScriptHash[];
extern char const kPageStyle[];
extern char const kPageStyleHash[];

}  // namespace gattr
