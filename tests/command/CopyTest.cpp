#include <gmock/gmock.h>

#include <sstream>

#include "command/Check.h"
#include "store/TextStore.h"
#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

std::string TextOf(ddr_Model const& model) {
  std::ostringstream out;
  WriteText(model, out);
  return out.str();
}
ddr_Model ModelOf(std::string const& text) {
  std::istringstream in(text);
  return ReadText(in, "text");
}

/// Runs a command that changes the model, takes it back and does it again.
void ExpectUndone(Session& session, std::string_view line) {
  std::string const before = TextOf(session.Model());
  Outcome const outcome = session.Execute(Line(line));
  ASSERT_TRUE(outcome.ok) << line << outcome.message;
  std::string const after = TextOf(session.Model());
  EXPECT_NE(after, before) << line;
  EXPECT_EQ(TextOf(ModelOf(after)), after);
  session.Undo();
  EXPECT_EQ(TextOf(session.Model()), before) << line;
  session.Redo();
  EXPECT_EQ(TextOf(session.Model()), after) << line;
}

class Copying : public CommandTest {
protected:
  Copying() {
    AppendSteps(session_, "IGGPG");
    RunJournal(session_, {R"({"command": "Set", "name": "Die"})",
                          R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "u1": 0, "u2": 0, "region": "Die"})",
                          R"({"command": "EncastreBC", "name": "Base", "createStepName": "Initial", "region": "Die"})",
                          R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 0.5, "u2": "FREED"})",
                          R"({"command": "deactivate", "boundaryCondition": "Base", "stepName": "S2"})",
                          R"({"command": "ConcentratedForce", "name": "Pull", "createStepName": "S3", "cf1": 7, "region": "Die"})"});
  }
  std::string Load(std::string_view name) const {
    auto const* item = session_.Model().ConstGet<kprC_StepAwareRepository>("loads").ConstItem(name);
    return item == nullptr ? "none"
                           : std::string(item->CreateStepName().View()) + " " +
                                 JsonText(item->StateAt(item->Steps().Find(item->CreateStepName()))->Member("cf1"));
  }
  Session session_;
};

TEST_F(Copying, GivesAnAttributeASecondOneWithItsHistory) {
  ExpectUndone(session_, R"({"command": "copy", "boundaryCondition": "Fix", "newName": "Fix-2"})");
  ExpectUndone(session_, R"({"command": "BoundaryCondition", "name": "Fix-3", "boundaryCondition": "Fix-2"})");
  ExpectUndone(session_, R"({"command": "Load", "name": "Push", "load": "Pull"})");
  ExpectUndone(session_, R"({"command": "copy", "region": "Die", "newName": "Stamp"})");
  EXPECT_EQ(HistoryOf(session_, "Fix-3"), HistoryOf(session_, "Fix"));
  RunJournal(session_, {R"({"command": "setValues", "boundaryCondition": "Fix-3", "u1": 3})"});
  EXPECT_EQ(BoundaryConditions(session_).ConstItem("Fix")->StateAt(1)->Member("u1"), cls_Value(0.0)) << "each is its own";
  for (auto const& [line, told] : std::vector<std::pair<std::string, std::string>>{
           {R"({"command": "copy", "boundaryCondition": "Fix", "newName": "Base"})", "[kbc 5]"},
           {R"({"command": "Load", "name": "X", "boundaryCondition": "Fix"})", "no command on a boundaryCondition"},
           {R"({"command": "Step", "name": "X", "step": "Initial"})", "one initial step"},
           {R"({"command": "copy", "step": "S1", "newName": "S2"})", "There is a step \"S2\" already."},
           {R"({"command": "copy", "region": "Die", "newName": "Stamp"})", "There is a region \"Stamp\" already."}}) {
    EXPECT_THAT(session_.Execute(Line(line)).message, ::testing::HasSubstr(told));
  }
}

TEST_F(Copying, GivesAStepASecondOneInWhichTheSameIsSaid) {
  ExpectUndone(session_, R"({"command": "copy", "step": "S2", "newName": "Next"})");
  EXPECT_EQ(HistoryOf(session_, "Fix"), "0 1 3 2 9 2") << "what is so there already is not said again";
  ExpectUndone(session_, R"({"command": "delete", "step": "Next"})");
  RunJournal(session_, {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S4", "u1": 2, "u2": 1})"});
  ExpectUndone(session_, R"({"command": "Step", "name": "Last", "step": "S2", "previous": "S4"})");
  EXPECT_EQ(HistoryOf(session_, "Fix"), "0 1 3 9 3 3");
  kprC_StepDependent const& fix = *BoundaryConditions(session_).ConstItem("Fix");
  EXPECT_EQ(fix.StateAt(5)->Member("u1"), cls_Value(0.5));
  EXPECT_EQ(fix.StateAt(5)->Member("u2"), cls_Value("FREED"));
  EXPECT_EQ(HistoryOf(session_, "Base"), "1 9 4 5 5 5");
  ExpectUndone(session_, R"({"command": "copy", "step": "S3", "newName": "Again"})");
  EXPECT_EQ(Load("Pull"), "S3 7.0");
  EXPECT_EQ(Load("Pull-Again"), "Again 7.0") << "what is not carried is there twice";
  for (Finding const& finding : Check(session_.Model())) { EXPECT_NE(finding.Row().severity, Severity::Error) << finding.refusal.message; }
}

TEST_F(Copying, OfAStepIsRefusedWholeWhereAnAttributeRefuses) {
  RunJournal(session_, {R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S4"})"});
  std::string const before = TextOf(session_.Model());
  Outcome const outcome = session_.Execute(Line(R"({"command": "copy", "step": "S2", "newName": "Last", "previous": "S4"})"));
  EXPECT_THAT(outcome.message, ::testing::HasSubstr("That is what boundaryCondition \"Fix\" refuses."));
  EXPECT_EQ(TextOf(session_.Model()), before);
}

TEST_F(Copying, NamesSeveralObjectsAndStepsPairByPairAsOneEdit) {
  std::size_t const before = session_.Journal().size();
  ExpectUndone(session_, R"({"command": "setValuesInStep", "stepName": ["S4", "S2"], "boundaryCondition": ["Fix"], "u1": 0.25})");
  EXPECT_EQ(HistoryOf(session_, "Fix"), "0 1 3 9 3");
  EXPECT_EQ(session_.Journal().size(), before + 3) << "with undo and redo";
  ExpectUndone(session_, R"({"command": "deactivate", "boundaryCondition": ["Fix", "Base"], "stepName": "S4"})");
  EXPECT_EQ(session_.UndoLabel(), "deactivate boundaryCondition \"Fix\" and 1 more");
  ExpectUndone(session_, R"({"command": "delete", "boundaryCondition": ["Base", "Fix"]})");
  session_.Undo();
  ExpectUndone(session_, R"({"command": "delete", "step": ["S4", "S3"]})");
  std::string const text = TextOf(session_.Model());
  for (auto const& [line, told] : std::vector<std::pair<std::string, std::string>>{
           {R"({"command": "deactivate", "boundaryCondition": ["Fix", "Fxi"], "stepName": "S2"})", "deactivate boundaryCondition \"Fxi\""},
           {R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": ["S2", "S9"]})", "in step \"S9\": "},
           {R"({"command": "suppress", "boundaryCondition": []})", "A list of names is empty."},
           {R"({"command": "suppress", "boundaryCondition": ["Fix", 3]})", "\"boundaryCondition\" is a text, not 3."},
           {R"({"command": "PinnedBC", "name": ["P", "Q"], "createStepName": "S1"})", "\"name\" is a text, not a list."}}) {
    EXPECT_THAT(session_.Execute(Line(line)).message, ::testing::HasSubstr(told)) << line;
    EXPECT_EQ(TextOf(session_.Model()), text) << line;
  }
}

class LoadCases : public Copying {
protected:
  LoadCases() {
    RunJournal(session_, {R"({"command": "LoadCase", "name": "Pulled", "stepName": "S3", "attributes": [
                            {"kind": "load", "name": "Pull", "factor": 1.5}, {"kind": "boundaryCondition", "name": "Fix"}]})"});
  }
};

TEST_F(LoadCases, FollowWhatTheyNameAndCanBeEdited) {
  ExpectUndone(session_, R"({"command": "rename", "load": "Pull", "newName": "Tug"})");
  ExpectUndone(session_, R"({"command": "rename", "step": "S3", "newName": "Lift"})");
  ExpectUndone(session_, R"({"command": "copy", "loadCase": "Pulled", "newName": "Other"})");
  ExpectUndone(session_, R"({"command": "setValues", "loadCase": "Other", "attributes": [{"kind": "load", "name": "Tug", "factor": -1}]})");
  std::string const text = TextOf(session_.Model());
  EXPECT_EQ(TextOf(ModelOf(text)), text);
  EXPECT_THAT(text, ::testing::HasSubstr("Tug"));
  EXPECT_THAT(session_.Execute(Line(R"({"command": "delete", "load": "Tug"})")).message, ::testing::HasSubstr("in use by loadCase"));
  EXPECT_THAT(session_.Execute(Line(R"({"command": "delete", "step": "Lift"})")).message, ::testing::HasSubstr("in use by loadCase"));
  ExpectUndone(session_, R"({"command": "delete", "loadCase": "Other"})");
  ExpectUndone(session_, R"({"command": "delete", "loadCase": "Pulled"})");
  ExpectUndone(session_, R"({"command": "delete", "step": "Lift"})");
}

TEST_F(LoadCases, RefuseWhatTheyCannotHoldAndAreCheckedForIt) {
  RunJournal(session_, {R"({"command": "SubmodelBC", "name": "Driven", "createStepName": "S3", "globalStep": 1, "region": "Die"})",
                        R"({"command": "SurfaceCharge", "name": "Charge", "createStepName": "S3", "magnitude": 1})",
                        R"({"command": "ConnectorForce", "name": "Hinge", "createStepName": "S3", "f1": 1})"});
  auto const with = [&](std::string_view kind, std::string_view name, std::string_view step = "S3") {
    Json const command = {{"command", "LoadCase"}, {"name", "X"}, {"stepName", step}, {"attributes", {{{"kind", kind}, {"name", name}}}}};
    return session_.Execute(CommandOf(command)).message;
  };
  using ::testing::HasSubstr;
  EXPECT_THAT(with("boundaryCondition", "Base"), HasSubstr("[kbc 48]"));
  EXPECT_THAT(with("boundaryCondition", "Fixx"), HasSubstr("[kbc 48] There is no boundaryCondition \"Fixx\". Did you mean \"Fix\"?"));
  EXPECT_THAT(with("boundaryCondition", "Driven"), HasSubstr("[kbc 50]"));
  EXPECT_THAT(with("load", "Charge"), HasSubstr("[klo 54]"));
  EXPECT_THAT(with("load", "Hinge"), HasSubstr("[klo 55]"));
  EXPECT_THAT(with("loud", "Pull"), HasSubstr("Did you mean \"load\"?"));
  EXPECT_THAT(with("load", "Pull", "S2"), HasSubstr("STATIC_GENERAL takes no load cases"));
  EXPECT_THAT(with("load", "Pull", "S9"), HasSubstr("[kpr 81]"));
  RunJournal(session_,
             {R"({"command": "suppress", "load": "Pull"})", R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S3"})"});
  std::vector<std::string> told;
  for (Finding const& finding : Check(session_.Model())) {
    if (finding.found == FindingKind::LoadCase) {
      told.push_back(finding.name + " " + finding.refusal.module + std::to_string(finding.refusal.code));
    }
  }
  EXPECT_THAT(told, ::testing::ElementsAre("Pulled klo53", "Pulled kbc48"));
}

}  // namespace
}  // namespace gattr
