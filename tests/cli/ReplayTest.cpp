#include "tests/cli/Program.h"

namespace {

using test::kJournal;
using test::Ran;

class Replay : public test::Program {
protected:
  /// The journal with further lines.
  static std::string With(std::string_view more) { return std::string(kJournal).append(more); }
};

constexpr char const* kDeactivate = "{\"command\": \"deactivate\", \"boundaryCondition\": \"Fix\", \"stepName\": \"Step-2\"}\n";
// of the create step: refused
constexpr char const* kReset = "{\"command\": \"reset\", \"boundaryCondition\": \"Fix\", \"stepName\": \"Step-1\"}\n";

TEST_F(Replay, TracesEveryLineInOneForm) {
  Ran const run = Gattr({"replay", "-", "--trace", "--keep-going"}, With(kDeactivate) + "\n" + kReset);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            R"({"line": 1, "command": "StaticStep", "ok": true, "history": {}}
{"line": 2, "command": "StaticStep", "ok": true, "history": {}}
{"line": 3, "command": "Set", "ok": true, "history": {}}
{"line": 4, "command": "DisplacementBC", "ok": true, "history": {"Fix": [0, 1, 2]}}
{"line": 5, "command": "deactivate", "ok": true, "history": {"Fix": [0, 1, 4]}}
{"line": 7, "command": "reset", "ok": false, "refused": {"module": "kbc", "code": 19, "exception": "nex_TextException", "message": "Cannot reset a boundary condition in the step it was created.", "object": "boundaryCondition \"Fix\"", "step": "Step-1", "member": "", "hint": "It was created there: \"delete\" takes it out of the model."}}
)");
  EXPECT_NE(run.err.find("standard input, line 7: "), std::string::npos);
  EXPECT_NE(run.err.find("[kbc 19]"), std::string::npos);
}

TEST_F(Replay, SaysOfACommandThatItChangesNothing) {
  std::string_view const idle[] = {
      R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Initial"})",
      R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-1", "u1": 0})",
      R"({"command": "setValues", "step": "Step-1", "initialInc": 0.1})",
      R"({"command": "setValues", "region": "Rim"})",
      R"({"command": "rename", "boundaryCondition": "Fix", "newName": "Fix"})",
      R"({"command": "releaseDanglingRegions"})",
      R"({"command": "setModel", "name": "Model-1"})",
  };
  for (std::string_view const line : idle) {
    Ran const run = Gattr({"replay", "-", "--trace"}, With(line));
    EXPECT_EQ(run.status, 0) << line << run.err;
    EXPECT_EQ(run.Line(-1).value("changed", true), false) << line;
    EXPECT_NE(run.err.find("line 5: "), std::string::npos) << line;
    EXPECT_FALSE(run.Line(-2).contains("changed"));
  }
}

TEST_F(Replay, TellsAllHistoriesAfterACommandOnAStep) {
  Ran const run = Gattr({"replay", "-", "--trace"},
                        With("{\"command\": \"StaticStep\", \"name\": \"Between\", \"initialInc\": 0.1, \"previous\": \"Step-1\"}\n"));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.Line(-1)["history"], nlohmann::ordered_json::parse(R"({"Fix": [0, 1, 2, 2]})"));
}

TEST_F(Replay, SaysNothingWhenAllWasDone) {
  Ran const run = Gattr({"replay", "-", "-o", "m.gadb"}, kJournal);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out + run.err, "");
  EXPECT_TRUE(std::filesystem::exists(Path("m.gadb")));
}

TEST_F(Replay, StopsAtTheFirstRefusalAndWritesNothing) {
  for (std::string const model : {"m.gadb", "m.gattr.json"}) {
    ASSERT_EQ(Gattr({"replay", "-", "-o", model}, kJournal).status, 0);
    std::string const before = Read(model);
    Ran const run = Gattr({"replay", "-", "--trace", "--on", model, "-o", model}, std::string(kReset) + kDeactivate);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.Lines().size(), 1U);
    EXPECT_NE(run.err.find("not written"), std::string::npos);
    EXPECT_EQ(Read(model), before) << model;
  }
}

TEST_F(Replay, WritesWhatSucceededWhenToldToGoOn) {
  Write("j.jsonl", With(kReset) + kDeactivate);
  Ran const run = Gattr({"replay", "j.jsonl", "--keep-going", "-o", "m.gadb"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("j.jsonl, line 5: "), std::string::npos);
  EXPECT_NE(run.err.find("5 commands done, 1 refused"), std::string::npos);
  EXPECT_NE(Gattr({"history", "m.gadb", "--format", "json"}).out.find("[0, 1, 4]"), std::string::npos);
}

TEST_F(Replay, GoesOnWithAModelAndReplacesIt) {
  ASSERT_EQ(Gattr({"replay", "-", "-o", "m.gadb"}, kJournal).status, 0);
  ASSERT_EQ(Gattr({"replay", "-", "--on", "m.gadb", "-o", "m.gadb"}, kDeactivate).status, 0);
  ASSERT_EQ(Gattr({"replay", "-", "-o", "whole.gattr.json"}, With(kDeactivate)).status, 0);
  EXPECT_EQ(Gattr({"dump", "m.gadb"}).out, Read("whole.gattr.json"));
}

TEST_F(Replay, IgnoresTheFormOfLineEndsAndBlankLines) {
  std::string journal = "\xef\xbb\xbf";  // a byte order mark
  for (char const c : With(kDeactivate)) { journal += c == '\n' ? "\r\n\r\n" : std::string(1, c); }
  journal.resize(journal.size() - 4);  // the last line without an end
  Ran const run = Gattr({"replay", "-", "--trace"}, journal);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.Line(-1)["line"], 9);
}

}  // namespace
