#include <gmock/gmock.h>

#include <stdexcept>

#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// "changed boundaryCondition Fix in S1, S2" for each object of the events since the last call.
class Heard {
public:
  explicit Heard(Session& session) : subscription_(session.Subscribe([this](ChangeEvent const& event) { Add(event); })) {}
  std::vector<std::string> Take() { return std::exchange(lines_, {}); }
  void End() { subscription_.End(); }

private:
  void Add(ChangeEvent const& event) {
    constexpr char const* kCauses[] = {"", "undo: ", "redo: "};
    for (ObjectChange const& change : event.objects) {
      std::string line = kCauses[static_cast<int>(event.cause)];
      line += std::string(ChangeText(change.change)) + " " + change.kind + " ";
      line += change.before.empty() ? change.name : change.before + " to " + change.name;
      for (std::string const& step : change.steps) { line += (step == change.steps.front() ? " in " : ", ") + step; }
      lines_.push_back(line);
    }
  }

  std::vector<std::string> lines_;
  Subscription subscription_;
};

class Listening : public CommandTest {
protected:
  void SetUp() override {
    AppendSteps(session_, "IGGG");
    RunJournal(session_, {R"({"command": "Set", "name": "Rim"})", R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1",
                              "region": "Rim", "u1": 0})"});
  }
  Outcome Run(std::string_view line) { return session_.Execute(Line(line)); }

  Session session_;
};

TEST_F(Listening, IsToldOfEveryWholeEditAndWhatItChanged) {
  Heard told(session_);
  struct Row {
    char const* command;
    std::vector<std::string> changes;
  };
  Row const rows[] = {
      {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 1})", {"changed boundaryCondition Fix in S2"}},
      {R"({"command": "move", "boundaryCondition": "Fix", "fromStepName": "S2", "toStepName": "S3"})",
       {"changed boundaryCondition Fix in S3, S2"}},
      {R"({"command": "suppress", "boundaryCondition": "Fix"})", {"changed boundaryCondition Fix"}},
      {R"({"command": "resume", "boundaryCondition": "Fix"})", {"changed boundaryCondition Fix"}},
      {R"({"command": "rename", "boundaryCondition": "Fix", "newName": "Clamp"})", {"renamed boundaryCondition Fix to Clamp"}},
      {R"({"command": "rename", "region": "Rim", "newName": "Edge"})", {"changed boundaryCondition Clamp", "renamed region Rim to Edge"}},
      {R"({"command": "rename", "step": "S3", "newName": "Last"})", {"renamed step S3 to Last"}},
      {R"({"command": "StaticStep", "name": "Mid", "previous": "S1", "initialInc": 0.1})", {"created step Mid"}},
      {R"({"command": "setValues", "step": "Mid", "maxNumInc": 7})", {"changed step Mid"}},
      {R"({"command": "delete", "step": "Last"})", {"deleted step Last", "changed boundaryCondition Clamp in Last"}},
      {R"({"command": "setModel", "name": "Press"})", {"changed model Press"}},
      {R"({"command": "delete", "boundaryCondition": "Clamp"})", {"deleted boundaryCondition Clamp"}},
  };
  for (Row const& row : rows) {
    ASSERT_TRUE(Run(row.command).ok) << row.command;
    EXPECT_EQ(told.Take(), row.changes) << row.command;
    session_.Undo();
    EXPECT_EQ(told.Take().size(), row.changes.size()) << row.command;
    session_.Redo();
    for (std::string& change : const_cast<std::vector<std::string>&>(row.changes)) { change.insert(0, "redo: "); }
    EXPECT_EQ(told.Take(), row.changes) << row.command;
  }
  EXPECT_FALSE(Run(R"({"command": "delete", "boundaryCondition": "Clamp"})").ok);
  EXPECT_TRUE(Run(R"({"command": "Set", "name": "Top", "dryRun": true})").ok);
  EXPECT_TRUE(Run(R"({"command": "setModel", "name": "Press"})").ok);
  EXPECT_THAT(told.Take(), IsEmpty()) << "refused, tried only, nothing changed";
  told.End();
  EXPECT_TRUE(Run(R"({"command": "Set", "name": "Top"})").ok);
  EXPECT_THAT(told.Take(), IsEmpty());
}

TEST_F(Listening, MayEditThrowAndEnd) {
  Heard first(session_);
  Subscription once;
  int calls = 0;
  once = session_.Subscribe([&](ChangeEvent const&) {
    once.End();
    ++calls;
    Run(R"({"command": "Set", "name": "Echo"})");
    throw std::runtime_error("enough");
  });
  Heard last(session_);
  EXPECT_THROW(Run(R"({"command": "Set", "name": "Top"})"), std::runtime_error);
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(first.Take(), ElementsAre("created region Top", "created region Echo"));
  EXPECT_THAT(last.Take(), ElementsAre("created region Top", "created region Echo")) << "in order, though another has thrown";
  EXPECT_EQ(session_.UndoLabel(), "Set \"Echo\"") << "what is done stays done";
}

TEST_F(Listening, FollowsNamesAndTheirUndo) {
  auto const name = session_.Follow("boundaryCondition", "Fix");
  EXPECT_EQ(session_.Follow("boundaryCondition", "Fix"), name);
  Run(R"({"command": "rename", "boundaryCondition": "Fix", "newName": "Clamp"})");
  EXPECT_EQ(name->name, "Clamp");
  session_.Undo();
  EXPECT_EQ(name->name, "Fix");
  session_.Begin();
  Run(R"({"command": "rename", "boundaryCondition": "Fix", "newName": "Clamp"})");
  Run(R"({"command": "rename", "boundaryCondition": "Clamp", "newName": "Grip"})");
  EXPECT_EQ(name->name, "Grip");
  session_.Rollback();
  EXPECT_EQ(name->name, "Fix");
  Session moved = std::move(session_);
  EXPECT_FALSE(name->lost);
  moved = Session();
  EXPECT_TRUE(name->lost);
}

class Transactions : public Listening {};

TEST_F(Transactions, AreOneEditOrNone) {
  Heard told(session_);
  ddr_Model const before = session_.Model();
  std::size_t const changes = session_.Changes().Size(), journal = session_.Journal().size();
  char const* const together = R"({"command": "transaction", "commands": [
      {"command": "rename", "boundaryCondition": "Fix", "newName": "Clamp"},
      {"command": "delete", "step": "S3"},
      {"command": "deactivate", "boundaryCondition": "Clamp", "stepName": "S2"}]})";
  ASSERT_TRUE(Run(together).ok);
  EXPECT_THAT(told.Take(), ElementsAre("deleted step S3", "renamed boundaryCondition Fix to Clamp in S2"));
  EXPECT_EQ(session_.Journal().size(), journal + 1);
  ddr_Model const after = session_.Model();
  session_.Undo();
  EXPECT_TRUE(session_.Model().Equals(before));
  EXPECT_EQ(session_.Changes().Size(), changes);
  session_.Redo();
  EXPECT_TRUE(session_.Model().Equals(after));
  session_.Undo();

  Outcome const refused = Run(R"({"command": "transaction", "commands": [{"command": "Set", "name": "Top"},
      {"command": "reset", "boundaryCondition": "Fix", "stepName": "S9"}]})");
  EXPECT_THAT(refused.message, HasSubstr("transaction, command 2, reset boundaryCondition \"Fix\" in step \"S9\""));
  EXPECT_TRUE(session_.Model().Equals(before));
  EXPECT_FALSE(Run(R"({"command": "transaction", "commands": [{"command": "undo"}]})").ok);
  EXPECT_FALSE(Run(R"({"command": "transaction", "commands": [{"command": "Set", "name": "A", "dryRun": true}]})").ok);
  EXPECT_FALSE(Run(R"({"command": "transaction", "commands": {}})").ok);
}

TEST_F(Transactions, GatherCommandsUntilTheyAreCommittedOrRolledBack) {
  Heard told(session_);
  ddr_Model const before = session_.Model();
  std::size_t const changes = session_.Changes().Size();
  for (bool const keep : {false, true}) {
    session_.Begin();
    EXPECT_THROW(session_.Begin(), std::logic_error);
    EXPECT_TRUE(Run(R"({"command": "rename", "boundaryCondition": "Fix", "newName": "Clamp"})").ok);
    EXPECT_FALSE(Run(R"({"command": "Set", "name": "Rim"})").ok) << "and leaves what was done";
    EXPECT_TRUE(Run(R"({"command": "Surface", "name": "Top"})").ok);
    EXPECT_FALSE(session_.Undo());
    EXPECT_THAT(told.Take(), IsEmpty());
    keep ? session_.Commit() : session_.Rollback();
    EXPECT_THROW(session_.Commit(), std::logic_error);
    if (!keep) {
      EXPECT_TRUE(session_.Model().Equals(before));
      EXPECT_EQ(session_.Changes().Size(), changes);
      EXPECT_THAT(told.Take(), IsEmpty());
    }
  }
  EXPECT_THAT(told.Take(), ElementsAre("renamed boundaryCondition Fix to Clamp", "created region Top"));
  Session again;
  for (cls_Value const& command : session_.Journal()) { ASSERT_TRUE(again.Execute(command).ok) << JsonText(command); }
  EXPECT_TRUE(again.Model().Equals(session_.Model()));
  session_.Undo();
  EXPECT_TRUE(session_.Model().Equals(before)) << "taken back together";
}

}  // namespace
}  // namespace gattr
