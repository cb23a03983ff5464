#include <gmock/gmock.h>

#include "module/kpr/model/kprC_ModelSteps.h"
#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using ::testing::HasSubstr;

/// Three static steps, and attributes that say something in the second: what a geostatic step takes, and what it does not.
class ReplaceStep : public CommandTest {
protected:
  ReplaceStep() {
    AppendSteps(session_, "IGGG");
    RunJournal(session_, {R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "u1": 0})",
                          R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 1})",
                          R"({"command": "CoriolisForce", "name": "Spin", "createStepName": "S1", "magnitude": 1})",
                          R"({"command": "setValuesInStep", "load": "Spin", "stepName": "S2", "magnitude": 2})",
                          R"({"command": "ConcentratedForce", "name": "Pull", "createStepName": "S2", "cf1": 1})",
                          R"({"command": "CoriolisForce", "name": "Twist", "createStepName": "S2", "magnitude": 1})"});
    session_.SetTrace(true);
  }
  Outcome Replace(char const* arguments, char const* step = "S2", char const* procedure = "GeostaticStep") {
    Json command = {{"command", "replace"}, {"step", step}, {"procedure", procedure}};
    command.update(Json::parse(arguments));
    return session_.Execute(CommandOf(command));
  }

  Session session_;
};

using Histories = std::vector<NamedHistory>;

TEST_F(ReplaceStep, DoesAsThePolicySaysOrNothing) {
  struct Row {
    char const *arguments, *refused;
    Histories kept = {};
  };
  Row const rows[] = {
      {"{}", R"(is created there: "maintainAttributes": true keeps)"},
      {R"({"replacementPolicy": "DO_NOT_REPLACE"})", R"(boundaryCondition "Fix" says something in the step that would be lost)"},
      {R"({"replacementPolicy": "DELETE"})", R"("Fix" says something)"},
      {R"({"replacementPolicy": "SUBSTITUTE_DELETE"})", "", {{"Fix", {0, 1, 2, 2}}, {"Spin", {0, 1, 6, 2}}}},
      {R"({"maintainAttributes": true})", R"([klo 15] load "Twist" is created there: "replacementPolicy": "DELETE" deletes it.)"},
      {R"({"maintainAttributes": true, "replacementPolicy": "DO_NOT_REPLACE"})",
       R"(load "Spin" says something in the step that the new procedure does not take. "replacementPolicy": "SUBSTITUTE")"},
      {R"({"maintainAttributes": true, "replacementPolicy": "DELETE"})", R"(load "Spin" says something)"},
      {R"({"maintainAttributes": true, "replacementPolicy": "SUBSTITUTE_DELETE"})",
       "",
       {{"Fix", {0, 1, 3, 2}}, {"Pull", {0, 0, 1, 2}}, {"Spin", {0, 1, 6, 2}}}},
      {R"({"maintainAttributes": 1})", R"("maintainAttributes" is true or false, not 1)"},
      {R"({"replacementPolicy": "SUBSTITUT"})", R"(Did you mean "SUBSTITUTE"?)"},
  };
  ddr_Model const before = session_.Model();
  for (Row const& row : rows) {
    Outcome const outcome = Replace(row.arguments);
    EXPECT_THAT(outcome.message, HasSubstr(row.refused)) << row.arguments;
    EXPECT_EQ(outcome.ok, !row.kept.empty()) << row.arguments << outcome.message;
    if (outcome.ok) {
      EXPECT_EQ(outcome.history, row.kept) << row.arguments;
      EXPECT_TRUE(session_.Undo());
    }
    EXPECT_TRUE(session_.Model().Equals(before)) << row.arguments;
  }
}

TEST_F(ReplaceStep, LetsNoChangeGoInSilenceThatAPerturbationStepDrops) {
  RunJournal(session_, {R"({"command": "setValuesInStep", "load": "Pull", "stepName": "S3", "cf1": 5})"});
  EXPECT_THAT(Replace(R"({"maintainAttributes": true, "replacementPolicy": "DELETE"})", "S3", "StaticLinearPerturbationStep").message,
              HasSubstr("load \"Pull\" says something"));
  EXPECT_TRUE(Replace(R"({"maintainAttributes": true})", "S3", "StaticLinearPerturbationStep").ok);
}

TEST_F(ReplaceStep, KeepsTheParametersThatBothProceduresHave) {
  RunJournal(session_, {R"({"command": "setValues", "step": "S3", "timePeriod": 2, "maxNumInc": 7, "description": "hold", "noStop": true})",
                        R"({"command": "replace", "step": "S3", "procedure": "ViscoStep", "cetol": 1e-3, "maxNumInc": 8})"});
  kprC_Step const& step = kprC_Steps(session_.Model()).Step(3);
  EXPECT_EQ(step.Member("timePeriod"), cls_Value(2.0));
  EXPECT_EQ(step.Member("initialInc"), cls_Value(0.1));
  EXPECT_EQ(step.Member("description"), cls_Value("hold"));
  EXPECT_EQ(step.Member("maxNumInc"), cls_Value(8)) << "what the command gives comes first";
}

}  // namespace
}  // namespace gattr
