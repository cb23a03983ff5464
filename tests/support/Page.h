#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace test {

/// The text of a page of the documentation, by its path from the project's root.
inline std::string PageText(std::string const& page) {
  std::ifstream in(GATTR_SOURCE_DIR "/" + page);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Compares what stands on a page between the lines "<!-- PART: begin -->" and "<!-- PART: end -->" with \p text. With
/// GATTR_WRITE_DOCS=1 in the environment it writes the text there instead.
inline void ExpectOnPage(std::string const& page, std::string const& part, std::string const& text) {
  std::string whole = PageText(page);
  std::string const begin = "<!-- " + part + ": begin -->\n";
  std::size_t const marker = whole.find(begin), end = whole.find("<!-- " + part + ": end -->\n");
  ASSERT_TRUE(marker != std::string::npos && end != std::string::npos && marker < end) << page << " has no place for: " << part;
  std::size_t const at = marker + begin.size();
  if (std::getenv("GATTR_WRITE_DOCS") == nullptr) {
    EXPECT_EQ(whole.substr(at, end - at), text) << "GATTR_WRITE_DOCS=1 writes it";
  } else {
    std::ofstream(GATTR_SOURCE_DIR "/" + page) << whole.replace(at, end - at, text);
  }
}

}  // namespace test
