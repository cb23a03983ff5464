// What a page shows is tried in a browser (tests/browser); here is where it goes.
#include "tests/cli/Program.h"

namespace {

class ReportCommand : public test::Program {
protected:
  ReportCommand() {
    Write("a.jsonl", test::kJournal);
    EXPECT_EQ(Shell("$G replay a.jsonl -o a.gadb && mkdir cache"), 0);
  }
};

TEST_F(ReportCommand, WritesBesideTheModelAndReplacesAReportAlone) {
  for (int round = 0; round < 2; ++round) { EXPECT_EQ(Gattr({"report", "a.gadb"}).out, "a.html\n"); }
  EXPECT_EQ(Gattr({"report", "a.gadb", "-o", "-"}).out, Read("a.html"));
  Write("a.html", "mine");
  test::Ran const refused = Gattr({"report", "a.gadb"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "gattr: \"a.html\" is there and is no report of gattr; -o a.html replaces it\n");
  EXPECT_EQ(Read("a.html"), "mine");
  EXPECT_EQ(Gattr({"report", "a.gadb", "-o", "a.html"}).status, 0);
  EXPECT_NE(Read("a.html"), "mine");
}

TEST_F(ReportCommand, LeavesTheFileThatCannotBeWritten) {
  EXPECT_EQ(Gattr({"report", "a.gadb", "-o", "none/a.html"}).status, 2);
  EXPECT_EQ(Shell("$G report a.gadb -o - > /dev/full 2> err"), 2);
}

TEST_F(ReportCommand, ViewStartsTheFirstBrowserThatThereIs) {
  Write("show", "#!/bin/sh\necho \"$1 $2\" > shown\n");
  ASSERT_EQ(Shell("chmod +x show"), 0);
  test::Ran const viewed = Gattr({"view", "a.gadb"}, "", "XDG_CACHE_HOME=$PWD/cache BROWSER='none-of-that:./show --new %s'");
  EXPECT_EQ(viewed.status, 0) << viewed.err;
  ASSERT_TRUE(viewed.out.ends_with(".html\n"));
  EXPECT_EQ(Read("shown"), "--new " + viewed.out);
  EXPECT_EQ(test::ReadFile(viewed.out.substr(0, viewed.out.size() - 1)).substr(0, 15), "<!DOCTYPE html>");

  test::Ran const none = Gattr({"view", "a.gadb"}, "", "XDG_CACHE_HOME=$PWD/cache BROWSER=none-of-that");
  EXPECT_EQ(none.status, 2);
  EXPECT_EQ(none.err, "gattr: no browser could be started: set BROWSER to one, or open \"" + viewed.out.substr(0, viewed.out.size() - 1) +
                          "\" yourself\n");
}

}  // namespace
