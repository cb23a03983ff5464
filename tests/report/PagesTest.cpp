#include "report/Pages.h"
#include "tests/support/Library.h"
#include "tests/support/Page.h"

// The pages of the documentation show what the library says of itself. Texts, numbers, defaults, admission and categories are
// guarded here, by the pages, and in no other test.

namespace {

class Pages : public test::WithLibrary {};

TEST_F(Pages, ShowWhatTheLibrarySaysOfItself) {
  for (gattr::PagePart const& part : gattr::PageParts()) { test::ExpectOnPage(part.page, part.part, part.text); }
}

}  // namespace
