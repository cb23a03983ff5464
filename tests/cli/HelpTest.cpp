#include <gmock/gmock.h>

#include "tests/cli/Program.h"

namespace {

using test::kJournal;
using test::Ran;

class Help : public test::Program {
protected:
  void SetUp() override {
    ASSERT_EQ(Gattr({"replay", "-", "-o", "a.gadb"},
                    std::string(kJournal) + R"({"command": "rename", "boundaryCondition": "Fix", "newName": "Fixed rim"})" + "\n")
                  .status,
              0);
  }
};

TEST_F(Help, CompletesInBashWhatALineHasBegun) {
  // the words as bash parts them, at = too
  struct Row {
    std::string line, words, found;
  };
  Row const rows[] = {
      {"gattr histo", "gattr histo", "[history]"},
      {"gattr history a.g", "gattr history a.g", "[a.gadb]"},
      {"gattr history a.gadb --at", "gattr history a.gadb --at", "[--attribute]"},
      {"gattr history a.gadb --attribute F", "gattr history a.gadb --attribute F", R"([Fixed\ rim])"},
      {"gattr history a.gadb --step Step-2 --step ", "gattr history a.gadb --step Step-2 --step ''", "[Initial][Step-1][Step-2]"},
      {"gattr history --format c", "gattr history --format c", "[csv]"},
      {"gattr do a.gadb deactivate step", "gattr do a.gadb deactivate step", "[stepName=]"},
      {"gattr do a.gadb deactivate stepName=Step-", "gattr do a.gadb deactivate stepName = Step-", "[Step-1][Step-2]"},
      {"gattr help hist", "gattr help hist", "[history]"},
      {"gattr history none.gadb --attribute F", "gattr history none.gadb --attribute F", "[]"},
      {"gattr nothing x", "gattr nothing x", "[]"},
  };
  ASSERT_EQ(Shell("\"$G\" completion bash >completion.bash"), 0);
  for (Row const& row : rows) {
    Write("line", row.line);
    Write("try.bash", R"(gattr() { "$G" "$@"; }
source completion.bash
COMP_LINE=$(<line); COMP_POINT=${#COMP_LINE}; COMP_WORDS=()" +
                          row.words + R"(); COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_gattr
printf '[%s]' "${COMPREPLY[@]}")");
    EXPECT_EQ(Shell("export G; bash try.bash >found"), 0);
    EXPECT_EQ(Read("found"), row.found) << row.line;
  }
}

TEST_F(Help, SaysTheSameByTopicByFlagAndOnAManualPage) {
  ASSERT_EQ(Shell("mkdir man && \"$G\" help --man man"), 0);
  std::string const all = Gattr({"help"}).out;
  EXPECT_EQ(all, Gattr({"--help"}).out);
  std::size_t pages = 0;
  for (auto const& entry : std::filesystem::directory_iterator(Path("man"))) {
    ++pages;
    std::string const name = entry.path().stem().string(), page = test::ReadFile(entry.path());
    EXPECT_GT(page.find("\n\n"), page.find(".SH NOTES")) << name << ": an empty line would break a list";
    if (name == "gattr") { continue; }
    std::string const topic = name.substr(name.find('-') + 1);
    Ran const help = Gattr({"help", topic});
    EXPECT_EQ(help.out, Gattr({topic, "--help"}).out);
    EXPECT_THAT(all, ::testing::HasSubstr("  " + topic)) << "the list has it";
    std::string plain;
    for (char const c : page) {
      if (c != '\\') { plain += c; }
    }
    for (std::size_t flag = help.out.find("  --"); flag != std::string::npos; flag = help.out.find("  --", flag + 1)) {
      std::string const option = help.out.substr(flag + 2, help.out.find_first_of(" \n", flag + 2) - flag - 2);
      EXPECT_THAT(plain, ::testing::HasSubstr(option)) << name;
    }
  }
  EXPECT_GT(pages, 10U);
  EXPECT_EQ(Gattr({"help", "move"}).out, Gattr({"describe", "move"}).out);
  Ran const unknown = Gattr({"help", "histroy"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, ::testing::HasSubstr("Did you mean \"history\"?"));
}

}  // namespace
