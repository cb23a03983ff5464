#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/Program.h"

namespace {

using test::kJournal;
using test::Ran;

class Streams : public test::Program {
protected:
  /// What the program shows on a terminal of ten lines, and its exit status. \p typed are lines, each typed when it prompts.
  std::pair<std::string, int> OnTerminal(std::vector<std::string> arguments, std::string const& pager,
                                         std::vector<std::string> const& typed = {}) const {
    arguments.insert(arguments.begin(), "gattr");
    winsize const size{.ws_row = 10, .ws_col = 80, .ws_xpixel = 0, .ws_ypixel = 0};
    int terminal = -1;
    pid_t const child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
      std::vector<char*> words;
      for (std::string& argument : arguments) { words.push_back(argument.data()); }
      words.push_back(nullptr);
      setenv("TERM", "xterm", 1);
      setenv("PAGER", pager.c_str(), 1);
      setenv("XDG_STATE_HOME", Path("state").c_str(), 1);
      execv(GATTR_PROGRAM, words.data());
      _exit(127);
    }
    std::string shown;
    char piece[4096];
    auto line = typed.begin();
    for (ssize_t got = 0; (got = read(terminal, piece, sizeof piece)) > 0;) {
      shown.append(piece, static_cast<std::size_t>(got));
      if (line != typed.end() && shown.ends_with("> ")) {
        EXPECT_EQ(write(terminal, line->data(), line->size()), static_cast<ssize_t>(line->size()));
        ++line;
      }
    }
    EXPECT_EQ(line, typed.end()) << shown;
    int status = 0;
    waitpid(child, &status, 0);
    close(terminal);
    return {shown, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
  }
};

TEST_F(Streams, ThatCannotBeWrittenGiveTheStatusOfBadUse) {
  Write("j.jsonl", kJournal);
  Write("refused.jsonl", std::string(kJournal) + "{\"command\": \"reset\", \"boundaryCondition\": \"Fix\", \"stepName\": \"Step-1\"}\n");
  ASSERT_EQ(Shell("$G replay j.jsonl -o m.gadb"), 0);
  for (char const* line : {"$G steps missing.gadb 2>&-", "$G steps missing.gadb 2>/dev/full", "$G 2>&-",
                           "$G replay refused.jsonl 2>/dev/full", "$G dump m.gadb >&- 2>err", "$G dump m.gadb >/dev/full 2>err",
                           "$G dump m.gadb >&- 2>&-", "$G steps m.gadb >/dev/full 2>err", "$G describe >&- 2>err"}) {
    EXPECT_EQ(Shell(line), 2) << line;
  }
  EXPECT_EQ(Read("err"), "gattr: cannot write to standard output\n");
  EXPECT_EQ(Shell("$G replay j.jsonl -o closed.gadb <&- >&- 2>&-"), 0) << "nothing was to be written to them";
  EXPECT_EQ(Shell("$G replay j.jsonl -o closed.gattr.json <&- >&- 2>&-"), 0);
  EXPECT_EQ(Read("closed.gattr.json"), Gattr({"dump", "closed.gadb"}).out);
}

TEST_F(Streams, MayBePipesOnBothSides) {
  Write("j.jsonl", kJournal);
  ASSERT_EQ(Shell("$G replay j.jsonl -o m.gadb"), 0);
  EXPECT_EQ(Shell("mkfifo pipe && ($G dump m.gadb -o pipe & $G load pipe -o again.gadb && wait) && test -p pipe"), 0);
  EXPECT_EQ(Gattr({"dump", "again.gadb"}).out, Gattr({"dump", "m.gadb"}).out);
  EXPECT_EQ(Shell("cat j.jsonl | $G replay /dev/stdin -o piped.gattr.json"), 0);
  EXPECT_EQ(Read("piped.gattr.json"), Gattr({"dump", "m.gadb"}).out);
  EXPECT_EQ(Shell("printf '{\"command\": \"StaticStep\", \"name\": \"S\", \"initialInc\": 1}\\n{\"command\": \"und\\\\u006f\"}\\n' >u && "
                  "$G replay u -o u.gattr.json && ! grep -q StaticStep u.gattr.json"),
            0)
      << "an undo is found however it is spelled";
}

TEST_F(Streams, ThatAreTerminalsCompleteWhatIsTypedAndRememberIt) {
  Write("j.jsonl", kJournal);
  ASSERT_EQ(Shell("$G replay j.jsonl -o m.gadb && mkdir state"), 0);
  auto const [shown, status] = OnTerminal({"shell", Path("m.gadb")}, "",
                                          {"rename boundaryC\tFi\tnewName=\"Left fix\"\n", "deact\tboundaryC\tLe\tstepN\tStep-2\n",
                                           "suppress boundaryC\t\"Left f\t\n", "save\n", "quit\n"});
  EXPECT_EQ(status, 0) << shown;
  EXPECT_NE(Gattr({"dump", "m.gadb"}).out.find("\"suppress"), std::string::npos) << shown;
  EXPECT_NE(Gattr({"dump", "m.gadb"}).out.find("\"off\":"), std::string::npos) << shown;
  EXPECT_NE(Read("state/gattr/history").find("deactivate"), std::string::npos);
}

TEST_F(Streams, ThatAreTerminalsGetNothingThatSteersThem) {
  Write("j.jsonl", R"({"command": "Set", "name": "red \u001b[31m and \u202e turned"})");
  ASSERT_EQ(Shell("$G replay j.jsonl -o m.gadb"), 0);
  auto const [shown, status] = OnTerminal({"dump", Path("m.gadb")}, "");
  EXPECT_EQ(status, 0);
  EXPECT_NE(shown.find("red \\u001b[31m and \\u202e turned"), std::string::npos) << shown;
  EXPECT_EQ(shown.find("\xE2\x80\xAE"), std::string::npos);
  EXPECT_NE(Gattr({"dump", "m.gadb"}).out.find("\xE2\x80\xAE"), std::string::npos) << "a file gets the text itself";
}

TEST_F(Streams, ThatAreTerminalsShowWhatIsLongerPageByPage) {
  std::string journal(kJournal);
  for (int i = 0; i < 20; ++i) {
    journal += R"({"command": "copy", "boundaryCondition": "Fix", "newName": "Fix-)" + std::to_string(i) + "\"}\n";
  }
  Write("short.jsonl", kJournal);
  Write("long.jsonl", journal);
  ASSERT_EQ(Shell("$G replay short.jsonl -o short.gadb && $G replay long.jsonl -o long.gadb"), 0);
  struct Row {
    char const *model, *pager;
    bool paged, whole;  ///< whether the pager has it; whether all of it is shown
  };
  for (Row const& row : {Row{"short.gadb", "sed 's/^/| /'", false, true}, Row{"long.gadb", "sed 's/^/| /'", true, true},
                         Row{"long.gadb", "head -n 3 | sed 's/^/| /'", true, false}, Row{"long.gadb", "no-such-pager", false, true},
                         Row{"long.gadb", "", false, true}, Row{"long.gadb", "cat >/dev/null; exit 1", false, false}}) {
    SCOPED_TRACE(std::string(row.model) + ": " + row.pager);
    auto const [shown, status] = OnTerminal({"history", Path(row.model)}, row.pager);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(shown.find("| ") == 0, row.paged) << shown;
    EXPECT_EQ(shown.find("Fix-9") != std::string::npos || std::string_view(row.model) == "short.gadb", row.whole) << shown;
  }
}

TEST_F(Streams, ThatCannotBeReadAreToldByTheirNames) {
  EXPECT_NE(Gattr({"replay", "/proc/self/mem"}).err.find("/proc/self/mem, line 1: cannot be read: Input/output error"), std::string::npos);
  EXPECT_NE(Gattr({"load", "/proc/self/mem", "-o", "m.gadb"}).err.find("/proc/self/mem: cannot be read: Input/output error"),
            std::string::npos);
}

}  // namespace
