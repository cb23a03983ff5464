#include <gmock/gmock.h>

#include "tests/cli/Program.h"
#include "tests/support/Page.h"

namespace {

using test::Ran;
using ::testing::HasSubstr;

/// Models of several people, and git with a home of its own.
class Versions : public test::Program {
protected:
  void SetUp() override {
    std::filesystem::create_directory(Path("bin"));
    std::filesystem::create_directory(Path("home"));
    std::filesystem::create_symlink(GATTR_PROGRAM, Path("bin/gattr"));
    std::filesystem::copy(std::filesystem::path(GATTR_SOURCE_DIR) / "examples/forming.jsonl", Path("forming.jsonl"));
    Run("gattr replay forming.jsonl -o monday.gadb; cp monday.gadb mine.gadb; cp monday.gadb hers.gadb");
  }
  /// What lines of a shell print, to either stream.
  std::string Run(std::string const& lines) const {
    Write("lines.sh",
          "export HOME=\"$PWD/home\" GIT_CONFIG_NOSYSTEM=1 PATH=\"$PWD/bin:$PATH\"\nunset GIT_DIR GIT_WORK_TREE\n" + lines + "\n");
    static_cast<void>(Shell("sh lines.sh >printed 2>&1"));
    return Read("printed");
  }
  /// The same behind each line, as a page shows it. \p before is run first.
  std::string Transcript(std::string const& before, std::vector<std::string> const& lines) const {
    std::string script = "{ :\n" + before + "\n} >/dev/null 2>&1\n";
    for (std::string const& line : lines) { script += "cat <<'END'\n$ " + line + "\nEND\n" + line + "\n"; }
    return "```\n" + Run(script) + "```\n";
  }
};

TEST_F(Versions, AreComparedAndMergedAsTheirPageShows) {
  std::string const edits =
      "gattr do mine.gadb setValuesInStep boundaryCondition=Punch stepName=Draw-1 u2=-13\n"
      "gattr do mine.gadb deactivate boundaryCondition=Holder stepName=Retract\n"
      "gattr do mine.gadb rename step=Dwell newName=Hold\n"
      "gattr do mine.gadb Set name=Clamp\n"
      "gattr do mine.gadb EncastreBC name=Grip createStepName=Close region=Clamp\n"
      "gattr do mine.gadb delete boundaryCondition=Locator\n";
  test::ExpectOnPage("docs/diff.md", "diff", Transcript(edits, {"gattr diff monday.gadb mine.gadb"}));
  test::ExpectOnPage("docs/diff.md", "merge",
                     Transcript("", {"gattr do hers.gadb setValuesInStep boundaryCondition=Punch stepName=Draw-1 amplitude=UNSET u3=0.5",
                                     "gattr do hers.gadb setValuesInStep boundaryCondition=Rim stepName=Dwell u2=0.1",
                                     "gattr merge monday.gadb mine.gadb hers.gadb -o both.gadb", "gattr diff mine.gadb both.gadb"}));
  test::ExpectOnPage("docs/diff.md", "conflict",
                     Transcript("gattr do hers.gadb setValuesInStep boundaryCondition=Punch stepName=Draw-1 u2=-14; gattr do hers.gadb "
                                "setValuesInStep boundaryCondition=Locator stepName=Release u1=0",
                                {"gattr merge monday.gadb mine.gadb hers.gadb; echo status $?"}));
}

TEST_F(Versions, AnswerByStatusInEveryFormat) {
  EXPECT_EQ(Gattr({"diff", "monday.gadb", "forming.jsonl"}).out, "no difference\n");
  Run("gattr do mine.gadb setValuesInStep boundaryCondition=Punch stepName=Draw-1 u2=-13");
  for (char const* format : {"text", "json", "html"}) {
    Ran const same = Gattr({"diff", "--format", format, "monday.gadb", "hers.gadb"}),
              other = Gattr({"diff", "--format", format, "monday.gadb", "mine.gadb"});
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(other.status, 1);
    EXPECT_THAT(other.out, ::testing::AllOf(HasSubstr("Punch"), HasSubstr("-13")));
  }
  auto const json = nlohmann::json::parse(Gattr({"diff", "--format", "json", "monday.gadb", "mine.gadb"}).out);
  EXPECT_EQ(json[0]["steps"][0]["members"][0]["now"], -13.0);
  for (std::vector<std::string> const& wrong : std::vector<std::vector<std::string>>{{"diff", "monday.gadb"},
                                                                                     {"diff", "monday.gadb", "none.gadb"},
                                                                                     {"diff", "a", "b", "c"},
                                                                                     {"merge", "monday.gadb", "mine.gadb", "none"}}) {
    EXPECT_EQ(Gattr(wrong).status, 2) << wrong[0];
  }
  // a conflict leaves ours as it is to the byte, by whatever name
  Run("gattr do hers.gadb setValuesInStep boundaryCondition=Punch stepName=Draw-1 u2=-14; cp mine.gadb .aside");
  std::string const before = Read(".aside");
  Ran const merged = Gattr({"merge", "--format", "json", "monday.gadb", ".aside", "hers.gadb"});
  EXPECT_EQ(merged.status, 1);
  EXPECT_EQ(nlohmann::json::parse(merged.out)["conflicts"][0]["theirs"], -14.0);
  EXPECT_EQ(Read(".aside"), before);
  Ran const found = Gattr({"merge", "hers.gadb", "hers.gadb", "mine.gadb", "-o", "out.gattr.json"});
  EXPECT_EQ(found.status, 0) << found.err;
  EXPECT_EQ(Gattr({"diff", "out.gattr.json", "mine.gadb"}).status, 0);
}

TEST_F(Versions, AreComparedAndMergedByGit) {
  if (Shell("git --version >/dev/null 2>&1") != 0) { GTEST_SKIP() << "there is no git"; }
  std::string const
      in = "cd repository\n",
      both = "for model in forming.gadb forming.gattr.json; do gattr do $model setValuesInStep boundaryCondition=Punch stepName=Draw-1 ";
  Run("git init -q -b main repository; cd repository; git config user.name A; git config user.email a@example.org");
  std::string const config = Read("repository/.git/config");
  test::ExpectOnPage("docs/diff.md", "git", Transcript("", {"cd repository", "gattr git-setup"}));
  EXPECT_EQ(Run(in + "gattr git-setup").find("set "), std::string::npos) << "nothing is set twice";
  Run(in +
      "cp ../monday.gadb forming.gadb; gattr dump forming.gadb -o forming.gattr.json; git add -A; git commit -qm base; git branch other; "
      "git branch third\n" +
      both + "u2=-13; done; git commit -qam ours; git checkout -q other\n" + both + "u1=1; done");
  EXPECT_THAT(Run(in + "git diff"), ::testing::AllOf(HasSubstr("gattr diff forming.gadb\n"), HasSubstr("gattr diff forming.gattr.json\n"),
                                                     HasSubstr("u1 nothing -> 1\n")));
  EXPECT_THAT(Run(in + "git commit -qam theirs; git log -p -1 forming.gadb"), HasSubstr("\"u1\":\n+      1\n")) << "the text";
  EXPECT_THAT(Run(in + "git merge -q main -m both; echo $?"), HasSubstr("0\n"));
  for (char const* model : {"repository/forming.gadb", "repository/forming.gattr.json"}) {
    EXPECT_THAT(Gattr({"history", model, "--changes", "--attribute", "Punch"}).out, HasSubstr("u1 1.0, u2 -13")) << model;
  }
  Run(in + "git checkout -q third\n" + both + "u2=-14; done; git commit -qam third");
  std::string const text = Read("repository/forming.gattr.json");
  std::string const told = Run(in + "git merge main; echo status $?; git status --short");
  EXPECT_THAT(told, ::testing::AllOf(HasSubstr("status 1\n"), HasSubstr("UU forming.gadb\n"), HasSubstr("UU forming.gattr.json\n"),
                                     HasSubstr("forming.gadb: 1 conflict, nothing is written")));
  EXPECT_EQ(Read("repository/forming.gattr.json"), text);
  EXPECT_THAT(Gattr({"history", "repository/forming.gadb", "--changes"}).out, HasSubstr("u2 -14"));
  Run(in + "git show :3:forming.gadb >../theirs.gadb");
  EXPECT_THAT(Gattr({"history", "theirs.gadb", "--changes"}).out, HasSubstr("u2 -13"));
  Run(in + "git merge --abort; git checkout -q main");

  EXPECT_THAT(Run(in + "gattr git-setup --undo; git config user.name"), HasSubstr("A\n"));
  EXPECT_FALSE(std::filesystem::exists(Path("repository/.gitattributes")));
  EXPECT_EQ(Read("repository/.git/config"), config);
  Run(in + "git rm -q --cached .gitattributes; printf '*.png binary' >.gitattributes; git config merge.gattr.driver mine");
  std::string const others = Read("repository/.git/config");
  EXPECT_THAT(Run(in + "gattr git-setup; echo status $?"),
              ::testing::AllOf(HasSubstr("merge.gattr.driver = mine"), HasSubstr("status 1\n")));
  Run(in + "gattr git-setup --undo");
  EXPECT_EQ(Read("repository/.gitattributes"), "*.png binary");
  EXPECT_EQ(Read("repository/.git/config"), others);
  EXPECT_EQ(Shell("cd / && \"$G\" git-setup >/dev/null 2>&1"), 2) << "outside a repository";
}

}  // namespace
