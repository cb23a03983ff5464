#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace gattr {

/// What the library says of itself, as parts of the pages in docs/: made here, and nowhere written by hand.
struct PagePart {
  std::string page;  ///< path from the project's root
  std::string part;  ///< it stands between the lines "<!-- PART: begin -->" and "<!-- PART: end -->"
  std::string text;  ///< Markdown
};

/// All of them: the refusals of all modules; every persistent class with its members, and every command with its arguments; the
/// types of each family with the steps that take them; which procedure may follow which. The library must have been started.
std::vector<PagePart> PageParts();

}  // namespace gattr
