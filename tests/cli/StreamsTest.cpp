#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/Program.h"

namespace {

using test::kJournal;
using test::Ran;

class Streams : public test::Program {};

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

TEST_F(Streams, ThatAreTerminalsGetNothingThatSteersThem) {
  Write("j.jsonl", R"({"command": "Set", "name": "red \u001b[31m and \u202e turned"})");
  ASSERT_EQ(Shell("$G replay j.jsonl -o m.gadb"), 0);
  int terminal = -1;
  pid_t const child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    execl(GATTR_PROGRAM, "gattr", "dump", Path("m.gadb").c_str(), nullptr);
    _exit(127);
  }
  std::string shown;
  char piece[4096];
  for (ssize_t size = 0; (size = read(terminal, piece, sizeof piece)) > 0;) { shown.append(piece, static_cast<std::size_t>(size)); }
  int status = 0;
  waitpid(child, &status, 0);
  close(terminal);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_NE(shown.find("red \\u001b[31m and \\u202e turned"), std::string::npos) << shown;
  EXPECT_EQ(shown.find("\xE2\x80\xAE"), std::string::npos);
  EXPECT_NE(Gattr({"dump", "m.gadb"}).out.find("\xE2\x80\xAE"), std::string::npos) << "a file gets the text itself";
}

TEST_F(Streams, ThatCannotBeReadAreToldByTheirNames) {
  EXPECT_NE(Gattr({"replay", "/proc/self/mem"}).err.find("/proc/self/mem, line 1: cannot be read: Input/output error"), std::string::npos);
  EXPECT_NE(Gattr({"load", "/proc/self/mem", "-o", "m.gadb"}).err.find("/proc/self/mem: cannot be read: Input/output error"),
            std::string::npos);
}

}  // namespace
