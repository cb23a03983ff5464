#include "report/Pages.h"
#include "tests/support/Library.h"
#include "tests/support/Page.h"

// The pages of the documentation show what the library says of itself. Texts, numbers, defaults, admission and categories are
// guarded here, by the pages, and in no other test.

namespace {

class Pages : public test::WithLibrary, public testing::WithParamInterface<char const*> {};

TEST_P(Pages, ShowWhatTheLibrarySaysOfItself) {
  bool found = false;
  for (gattr::PagePart const& part : gattr::PageParts()) {
    if (part.page != GetParam()) { continue; }
    found = true;
    test::ExpectOnPage(part.page, part.part, part.text);
  }
  EXPECT_TRUE(found);
}

INSTANTIATE_TEST_SUITE_P(All, Pages,
                         testing::Values("docs/refusals.md", "docs/reference.md", "docs/steps.md", "docs/histories.md", "docs/check.md",
                                         "docs/boundary-conditions.md", "docs/loads.md", "docs/interactions.md", "docs/output.md",
                                         "docs/fields.md", "docs/mesh-constraints.md"));

}  // namespace
