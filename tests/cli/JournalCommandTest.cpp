#include "tests/cli/Program.h"

namespace {

using test::kJournal;
using test::Ran;

std::filesystem::path const kExamples = std::filesystem::path(GATTR_SOURCE_DIR) / "examples";

class Journals : public test::Program {
protected:
  /// What `dump` writes of a model.
  std::string Dumped(std::string const& model) const {
    Ran const run = Gattr({"dump", model});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out;
  }
};

TEST_F(Journals, DryRunsWriteNothingAndTellWhatTheRunWouldWrite) {
  ASSERT_EQ(Gattr({"replay", "-", "-o", "m.gadb"}, kJournal).status, 0);
  std::string const before = Dumped("m.gadb"), line = "{\"command\": \"suppress\", \"boundaryCondition\": \"Fix\"}\n";
  EXPECT_EQ(Gattr({"shell", "m.gadb"}, "suppress boundaryCondition=Fix\nsave --dry-run\n").status, 2);
  EXPECT_NE(Gattr({"replay", "-", "--on", "m.gadb", "--dry-run"}, line).out.find("changed"), std::string::npos);
  EXPECT_EQ(Gattr({"replay", "-", "--on", "m.gadb", "--dry-run"}, line + "{\"command\": \"deactivat\"}\n").out, "");
  EXPECT_EQ(Dumped("m.gadb"), before);
}

TEST_F(Journals, OfExamplesMakeThemAgainAndFitTheSchemas) {
  Write("journal.json", Gattr({"schema", "journal"}).out);
  Write("model.json", Gattr({"schema", "model"}).out);
  for (auto const& entry : std::filesystem::directory_iterator(kExamples)) {
    std::string const name = entry.path().stem().string();
    if (entry.path().extension() != ".jsonl") { continue; }
    ASSERT_EQ(Gattr({"replay", entry.path().string(), "-o", name + ".gadb"}).status, 0);
    Ran const written = Gattr({"journal", name + ".gadb", "--results", kExamples.string()});
    EXPECT_EQ(written.status, 0) << name << written.err;
    Write(name + ".jsonl", written.out);
    Ran const replayed = Gattr({"replay", name + ".jsonl", "--results", kExamples.string(), "-o", "again.gadb"});
    EXPECT_EQ(replayed.status, 0) << name << replayed.err;
    Write(name + ".gattr.json", Dumped(name + ".gadb"));
    EXPECT_EQ(Dumped("again.gadb"), Read(name + ".gattr.json")) << name;
    Ran const script = Gattr({"journal", name + ".gadb", "--results", kExamples.string(), "--python"});
    Write(name + ".py", script.out);
    EXPECT_EQ(Shell("/usr/bin/python3 -m py_compile " + name + ".py"), 0) << name;
  }
  std::string const check = (std::filesystem::path(GATTR_SOURCE_DIR) / "tests/cli/validate.py").string();
  EXPECT_EQ(Shell("/usr/bin/python3 " + check + " journal.json model.json . " + kExamples.string() + " >.validated 2>&1"), 0)
      << Read(".validated");
}

TEST_F(Journals, RecordWhatSucceeded) {
  Write("j.jsonl", std::string(kJournal) + R"({"command": "reset", "boundaryCondition": "Fix", "stepName": "Step-1"}
{"command": "suppress", "boundaryCondition": "Fix", "dryRun": true}
)");
  Write("log.jsonl", R"({"command": "setModel", "name": "M"})");  // a line that nobody has ended
  EXPECT_EQ(Gattr({"replay", "j.jsonl", "--keep-going", "--record", "log.jsonl", "-o", "a.gadb"}).status, 1);
  Ran const run = Gattr({"replay", "log.jsonl", "-o", "b.gadb", "--trace"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.Lines().size(), 5U);
  Ran const itself = Gattr({"replay", "log.jsonl", "--record", "log.jsonl"});
  EXPECT_EQ(itself.status, 2);
  EXPECT_NE(itself.err.find("to itself"), std::string::npos);
}

TEST_F(Journals, OneCommandIsDoneInPlace) {
  for (std::string const model : {"m.gadb", "m.gattr.json"}) {
    ASSERT_EQ(Gattr({"replay", "-", "-o", model}, kJournal).status, 0);
    struct Row {
      std::vector<std::string> words;
      int status;
      bool changes;
      char const* told;
    };
    Row const rows[] = {
        {{"setValuesInStep", "boundaryCondition=Fix", "stepName=Step-2", "u1=0.5", "u2=FREED"}, 0, true, ""},
        {{"deactivate", "boundaryCondition=Fix", "stepName=Step-2", "--dry-run"}, 0, false, ""},
        {{"reset", "boundaryCondition=Fix", "stepName=Step-1"}, 1, false, "[kbc 19]"},
        {{"setValues", "step=Step-1", "maxNumInc=7", "matrixStorage=null"}, 2, false, "\"matrixStorage\""},
        {{"setValues", "step=Step-1", "maxNumInc=7", "description=\"12\""}, 0, true, ""},
        {{"setValues", "step=Step-1", "maxNumInc=many"}, 2, false, "Invalid value for \"maxNumInc\": \"many\""},
        {{"Set", "name=12"}, 0, true, ""},
        {{"deactivate", "boundaryCondition=[\"Fix\"]", "stepName=Step-2"}, 0, true, ""},
        {{"setValues", "boundaryCondition=Fix", "region=null"}, 0, true, ""},
        {{"rename", "boundaryCondition=Fix", "newName=Hold"}, 0, true, ""},
        {{"deactivate", "boundaryCondition=Fxi", "stepName=Step-2"}, 2, false, "\"Fxi\""},
        {{"deactvate"}, 2, false, "Did you mean \"deactivate\"?"},
        {{"deactivate", "Fix"}, 2, false, "expected argument=value, not \"Fix\"."},
        {{"suppress", "boundaryCondition=Hold", "boundaryCondition=Hold"}, 2, false, "given twice"},
    };
    for (Row const& row : rows) {
      std::string const before = Dumped(model);
      std::vector<std::string> arguments{"do", model};
      arguments.insert(arguments.end(), row.words.begin(), row.words.end());
      Ran const run = Gattr(arguments);
      std::string const said = row.words.front() + " " + row.words.back();
      EXPECT_EQ(run.status, row.status) << said << run.err;
      EXPECT_NE(run.err.find(row.told), std::string::npos) << said << run.err;
      EXPECT_EQ(Dumped(model) != before, row.changes) << said;
    }
  }
}

TEST_F(Journals, AShellTakesLinesFromAPipe) {
  Ran const run = Gattr({"shell", "m.gadb"}, std::string(kJournal) + R"(# edits
setValuesInStep boundaryCondition=Fix stepName="Step-2" u1=0.5
deactivate boundaryCondition=Fxi stepName=Step-2
undo
redo
history Fix
check
journal
save
suppress boundaryCondition=Fix
)");
  EXPECT_EQ(run.status, 2) << run.err;
  for (char const* told : {"is a new model", "\"Fxi\"", "were not saved"}) { EXPECT_NE(run.err.find(told), std::string::npos) << told; }
  for (char const* told : {"modified", "nothing found", R"({"command":"redo"})"}) {
    EXPECT_NE(run.out.find(told), std::string::npos) << told << run.out;
  }
  Ran const again = Gattr({"shell", "m.gadb"}, "history\nquit\nsuppress boundaryCondition=Fix\n");
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(again.out.find("suppressed"), std::string::npos);
  EXPECT_NE(again.out.find("modified"), std::string::npos);
}

}  // namespace
