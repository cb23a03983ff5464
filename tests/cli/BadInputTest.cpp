#include "tests/cli/Program.h"

namespace {

using test::kJournal;
using test::Ran;

/// Each is bad input: exit status 2, nothing on standard output that looks like a result, one line on standard error.
class BadInput : public test::Program {
protected:
  void Expect(Ran const& run, std::string_view part) const {
    EXPECT_EQ(run.status, 2) << run.out << run.err;
    EXPECT_NE(run.err.find(part), std::string::npos) << "expected \"" << part << "\" in: " << run.err;
    EXPECT_TRUE(run.err.starts_with("gattr: ")) << run.err;
  }
};

TEST_F(BadInput, InAJournalIsToldWithItsLineAndLeavesTheModelAlone) {
  struct Row {
    std::string_view line, part;
  };
  std::string const text(100, 'x');
  Row const rows[] = {
      {R"({"command": "undo")", "line 5"},
      {R"({"command": "undo"}})", "line 5"},
      {"nonsense", "line 5"},
      {"[1, 2]", "line 5"},
      {"\"undo\"", "line 5"},
      {"{}", "command"},
      {R"({"command": 3})", "line 5"},
      {"{\"command\": \"\xff\"}", "line 5"},
      {R"({"command": "deactivat", "boundaryCondition": "Fix", "stepName": "Step-2"})", "\"deactivate\""},
      {R"({"command": "deactivate", "boundaryCondition": "Fox", "stepName": "Step-2"})", "\"Fix\""},
      {R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Stp-2"})", "Did you mean \"Step-2\"?"},
      {R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Step-2", "stepname": 1})", "\"stepname\""},
      {R"({"command": "deactivate", "boundaryCondition": "Fix"})", "\"stepName\""},
      {R"({"command": "deactivate", "boundaryCondition": 7, "stepName": "Step-2"})", "boundaryCondition"},
      {R"({"command": "deactivate", "boundaryCondition": "Fix", "boundaryCondition": "Fix", "stepName": "Step-2"})", "twice"},
      {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-2", "u7": 1})", "\"u7\""},
      {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-2", "u1": NaN})", "line 5"},
      {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-2", "u1": 1e999})", "\"u1\""},
      {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-2", "u1": "one"})", "finite number"},
      {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-2", "fixed": "yes"})", "true or false"},
      {R"({"command": "StaticStep", "name": "Step-3", "initialInc": 0.1, "nlgeom": "MAYBE"})", "\"OFF\", \"ON\""},
      {R"({"command": "StaticStep", "name": "Step-3", "initialInc": 0.1, "previous": "Stp-2"})", "Did you mean \"Step-2\"?"},
      {R"({"command": "StaticStep", "name": "Step-3", "initialInc": 0.1, "maxNumInc": 2.5})", "integer"},
      {R"({"command": "StaticStep", "name": 3})", "\"name\""},
      {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Step-1", "region": "Rand"})", "\"Rand\""},
  };
  ASSERT_EQ(Gattr({"replay", "-", "-o", "m.gadb"}, kJournal).status, 0);
  std::string const before = Read("m.gadb");
  for (Row const& row : rows) {
    SCOPED_TRACE(row.line);
    Write("bad.jsonl", std::string(kJournal).append(row.line).append("\n"));
    Ran const run = Gattr({"replay", "bad.jsonl", "-o", "m.gadb"});
    Expect(run, row.part);
    EXPECT_NE(run.err.find("bad.jsonl, line 5"), std::string::npos) << run.err;
    EXPECT_EQ(Read("m.gadb"), before);
  }
}

TEST_F(BadInput, ThatIsNoCommandAtAllIsTold) {
  std::string const deep = R"({"command": "undo", "x": )" + std::string(200'000, '[') + std::string(200'000, ']') + "}";
  std::string const longLine = R"({"command": ")" + std::string(100'000'000, 'x') + "\"}\n";
  struct Row {
    std::string_view journal, part;
  };
  Row const rows[] = {
      {"", "holds no commands"}, {"\n \n", "holds no commands"}, {longLine, "line 1: the line has 100000"}, {deep, "line 1"}};
  for (Row const& row : rows) {
    Write("bad.jsonl", row.journal);
    Expect(Gattr({"replay", "bad.jsonl", "-o", "m.gadb"}), row.part);
    EXPECT_FALSE(std::filesystem::exists(Path("m.gadb")));
  }
}

TEST_F(BadInput, OnTheCommandLineIsToldWithWhatWasExpected) {
  ASSERT_EQ(Gattr({"replay", "-", "-o", "m.gadb"}, kJournal).status, 0);
  Write("text.txt", "text");
  Write("empty.gadb", "");
  Write("other.gadb", "no database, whatever its name says");
  Write("bad.gattr.json", "{\"format\": ");
  Write("j.jsonl", kJournal);
  struct Row {
    std::vector<std::string> arguments;
    std::string_view part;
  };
  Row const rows[] = {
      {{"histry", "m.gadb"}, "Did you mean \"history\"?"},
      {{"history"}, "MODEL"},
      {{"history", "m.gadb", "extra"}, "extra"},
      {{"history", "m.gadb", "--format", "xml"}, "--format"},
      {{"history", "m.gadb", "--color", "pink"}, "--color"},
      {{"history", "m.gadb", "--width", "-3"}, "--width"},
      {{"history", "m.gadb", "--step", "Stp-2"}, "Did you mean \"Step-2\"?"},
      {{"history", "m.gadb", "--attribute", "Fox"}, "\"Fix\""},
      {{"history", "missing.gadb"}, "missing.gadb"},
      {{"history", "text.txt"}, "expected a name that ends in .gadb or .gattr.json"},
      {{"history", "empty.gadb"}, "empty.gadb"},
      {{"history", "other.gadb"}, "other.gadb"},
      {{"history", "bad.gattr.json"}, "bad.gattr.json"},
      {{"history", "."}, "expected a name"},
      {{"steps", "m.gadb", "--may-follow", "Step-0"}, "there is no step \"Step-0\""},
      {{"describe", "DisplacmentBC"}, "Did you mean \"DisplacementBC\"?"},
      {{"codes", "kbd"}, "Did you mean \"kbc\"?"},
      {{"variables", "--step", "Step-1"}, "--step needs a MODEL"},
      {{"variables", "m.gadb"}, "a MODEL goes with --step"},
      {{"variables", "m.gadb", "--step", "Stp-2"}, "Did you mean \"Step-2\"?"},
      {{"variables", "--procedure", "STATIC"}, "there is no procedure \"STATIC\""},
      {{"variables", "--category", "Stress"}, "Did you mean \"Stresses\"?"},
      {{"variables", "--category", "S*"}, "pattern"},
      {{"variables", "--channel", "print"}, "--channel"},
      {{"load", "bad.gattr.json", "-o", "new.gadb"}, "bad.gattr.json"},
      {{"load", "missing.json", "-o", "new.gadb"}, "missing.json"},
      {{"dump", "m.gadb", "-o", "no/such/folder/m.gattr.json"}, "no/such/folder"},
      {{"replay", "missing.jsonl"}, "missing.jsonl"},
      {{"replay", "."}, "directory"},
      {{"replay", "j.jsonl", "-o", "model.txt"}, "expected a name that ends in .gadb or .gattr.json"},
      {{"replay", "j.jsonl", "-o", "no/such/folder/m.gadb"}, "no/such/folder"},
      {{"replay", "j.jsonl", "-o", "other.gadb"}, "other.gadb"},
      {{"replay", "j.jsonl", "--on", "missing.gadb"}, "missing.gadb"},
  };
  for (Row const& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.arguments));
    Ran const run = Gattr(row.arguments);
    Expect(run, row.part);
    EXPECT_EQ(run.out, "");
  }
  EXPECT_FALSE(std::filesystem::exists(Path("new.gadb")));
  EXPECT_EQ(Read("other.gadb"), "no database, whatever its name says");
  EXPECT_EQ(Gattr({}).status, 2);
}

// In the library every byte is tried.
TEST_F(BadInput, InAModelFileIsRefusedWhereverTheDamageIs) {
  ASSERT_EQ(Gattr({"replay", "-", "-o", "m.gadb"}, kJournal).status, 0);
  std::string const good = Read("m.gadb"), table = Gattr({"history", "m.gadb"}).out;
  for (std::size_t size = 1; size < good.size(); size += good.size() / 6) {
    Write("cut.gadb", good.substr(0, size));
    Expect(Gattr({"history", "cut.gadb"}), "cut.gadb");
  }
  for (std::size_t at = 7; at < good.size(); at += good.size() / 12) {
    std::string flipped = good;
    flipped[at] = static_cast<char>(flipped[at] ^ 0x10);
    Write("flipped.gadb", flipped);
    Ran const run = Gattr({"history", "flipped.gadb"});  // a byte that nothing uses may change without harm
    EXPECT_TRUE(run.status == 2 || (run.status == 0 && run.out == table)) << "byte " << at << ": " << run.status << run.out << run.err;
  }
}

}  // namespace
