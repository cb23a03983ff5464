#include "command/Check.h"

#include <gmock/gmock.h>

#include "framework/ddr_ModelMembers.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using BcRepository = kprC_PropagatingContainer<kbcC_BC>;

/// "boundaryCondition Fix in S2: kbc 45", without warnings.
std::vector<std::string> Told(ddr_Model const& model) {
  std::vector<std::string> told;
  for (Finding const& finding : Check(model)) {
    if (finding.Row().severity == Severity::Warning) { continue; }
    std::string line = finding.kind + " " + finding.name + (finding.step.empty() ? "" : " in " + finding.step) + ": ";
    line += finding.refusal.code < 0 ? finding.refusal.message : finding.refusal.module + " " + std::to_string(finding.refusal.code);
    told.push_back(line + (finding.suppressed ? " (suppressed)" : ""));
  }
  return told;
}

class Checking : public CommandTest {
protected:
  Checking() {
    AppendSteps(session_, "IGGG");
    RunJournal(session_, {R"({"command": "Set", "name": "Die"})", R"({"command": "Amplitude", "name": "Ramp"})",
                          R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "u1": 0, "region": "Die"})"});
  }
  Session session_;
};

TEST_F(Checking, NotesRegionsThatADeletedStepHasLeftUntilTheyAreReleased) {
  RunJournal(session_, {R"({"command": "Set", "name": "Punch"})",
                        R"({"command": "DisplacementBC", "name": "Push", "createStepName": "S3", "u1": 1, "region": "Punch"})",
                        R"({"command": "delete", "step": "S3"})"});
  std::vector<Finding> const findings = Check(session_.Model());
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].kind + " " + findings[0].name, "set Punch");
  EXPECT_EQ(findings[0].Row().severity, Severity::Note) << "it is in nobody's way";
  RunJournal(session_, {R"({"command": "releaseDanglingRegions"})"});
  EXPECT_THAT(Told(session_.Model()), ::testing::IsEmpty());
  RunJournal(session_, {R"({"command": "undo"})"});
  EXPECT_EQ(Told(session_.Model()).size(), 1U);
}

TEST_F(Checking, FindsAnAttributeWhoseCreationWasRemovedUntilValuesCreateItAnew) {
  RunJournal(session_, {R"({"command": "remove", "boundaryCondition": "Fix", "stepName": "S1"})"});
  EXPECT_THAT(Told(session_.Model()), ::testing::ElementsAre(::testing::StartsWith("boundaryCondition Fix: No step creates it")));
  RunJournal(session_, {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 0})"});
  EXPECT_EQ(HistoryOf(session_, "Fix"), "0 0 1 2");
  EXPECT_THAT(Told(session_.Model()), ::testing::IsEmpty());
}

TEST_F(Checking, FindsNothingInWhatCommandsMake) {
  RunJournal(
      session_,
      {R"({"command": "StaticLinearPerturbationStep", "name": "S4"})", R"({"command": "FrequencyStep", "name": "S5", "numEigen": 10})",
       R"({"command": "ModalDynamicsStep", "name": "S6"})", R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S4"})",
       R"({"command": "DisplacementBC", "name": "Push", "createStepName": "S2", "u2": 1, "amplitude": "Ramp", "region": "Die"})"});
  EXPECT_THAT(Told(session_.Model()), ::testing::IsEmpty());
}

TEST_F(Checking, WarnsOfWhatIsAllowedAndHardlyMeant) {
  RunJournal(session_, {R"({"command": "Surface", "name": "Face"})"});
  struct Row {
    std::vector<std::string> lines;
    std::vector<std::string> told;  // "GA009 Odd in S1, member", each line
  };
  std::string const on = R"({"command": "DisplacementBC", "name": "Odd", "createStepName": "S2", "region": "Die", )";
  std::string const edit = R"({"command": "setValuesInStep", "boundaryCondition": "Odd", "stepName": "S3", )";
  std::string const mesh = R"({"command": "VelocityAdaptiveMeshConstraint", "name": "Odd", "createStepName": "S2", "region": "Die", )";
  for (Row const& row : {
           Row{{on + R"("u2": 0})"}, {}},
           Row{{on + R"("u1": 0})"}, {"GA011 Odd in S2"}},
           Row{{on + R"("fixed": true})"}, {"GA011 Odd in S2"}},
           Row{{on + R"("u2": 0})", edit + R"("u1": 0})"}, {"GA011 Odd in S3"}},
           Row{{on + R"("u1": 0})", R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S2"})"}, {}},
           Row{{on + R"("u1": 0})", R"({"command": "suppress", "boundaryCondition": "Odd"})"}, {}},
           Row{{on + R"("u1": 0})", R"({"command": "DatumCsys", "name": "Local"})",
                R"({"command": "setValues", "boundaryCondition": "Odd", "localCsys": "Local"})"},
               {}},
           Row{{R"({"command": "VelocityBC", "name": "Odd", "createStepName": "S2", "region": "Die", "v1": 1})"}, {"GA011 Odd in S2"}},
           Row{{R"({"command": "XsymmBC", "name": "Odd", "createStepName": "S2", "region": "Die"})"}, {"GA011 Odd in S2"}},
           Row{{R"({"command": "YsymmBC", "name": "Odd", "createStepName": "S2", "region": "Die"})"}, {}},
           Row{{on + R"("u2": "UNSET"})"}, {"GA010 Odd in S2"}},
           Row{{on + R"("u2": "UNSET"})", edit + R"("u2": 1})"}, {}},
           Row{{R"({"command": "YsymmBC", "name": "Odd", "createStepName": "S2", "region": "Face"})"}, {"GA009 Odd, region"}},
           Row{{R"({"command": "YsymmBC", "name": "Odd", "createStepName": "S2"})"}, {"GA008 Odd, region"}},
           Row{{R"({"command": "ConnVelocityBC", "name": "Odd", "createStepName": "S2", "v1": 1})"}, {"GA008 Odd, connectors"}},
           Row{{R"({"command": "Pressure", "name": "Odd", "createStepName": "S2", "region": "Die", "magnitude": 1})"},
               {"GA009 Odd, region"}},
           Row{{R"({"command": "Gravity", "name": "Odd", "createStepName": "S2", "comp2": -9.8})"}, {}},
           Row{{R"({"command": "FluidCavityPressureBC", "name": "Odd", "createStepName": "S2", "region": "Face", "magnitude": 1})",
                R"({"command": "PorePressureBC", "name": "Other", "createStepName": "Initial", "region": "Face", "magnitude": 0})"},
               {}},
           Row{{mesh + R"("motionType": "FOLLOW"})"}, {}},
           Row{{mesh + R"("motionType": "USER_DEFINED"})"}, {}},
           Row{{mesh + R"("motionType": "INDEPENDENT"})"}, {"GA010 Odd in S2"}},
           Row{{R"({"command": "Temperature", "name": "Odd", "createStepName": "S2", "distributionType": "FROM_FILE"})"},
               {"GA015 Odd in S2, fileName"}},
           Row{{R"({"command": "InitialState", "name": "Odd", "createStepName": "Initial", "fileName": "job.odb"})"},
               {"GA015 Odd in Initial, instances"}},
       }) {
    Session session(session_.Model());
    RunJournal(session, row.lines);
    std::vector<std::string> told;
    for (Finding const& finding : Check(session.Model())) {
      EXPECT_EQ(finding.Row().severity, Severity::Warning);
      std::string line = finding.Row().id + " " + finding.name + (finding.step.empty() ? "" : " in " + finding.step);
      told.push_back(line + (finding.member.empty() ? "" : ", " + finding.member));
    }
    EXPECT_EQ(told, row.told) << row.lines.front();
  }
}

TEST_F(Checking, NamesTheFirstStepInWhichAnAttributeIsNotValid) {
  ddr_Model model = session_.Model();
  kbcC_DisplacementBC condition;
  kbcC_DisplacementBCState state;
  state.u1 = 1.0;
  state.fixed = true;
  condition.Insert(cow_String("S2"), state);
  model.Get<BcRepository>(ddr_Model::bcCmd()).ForcedInsert(cow_String("Odd"), condition);
  EXPECT_THAT(Told(model), ::testing::ElementsAre("boundaryCondition Odd in S2: kbc 16"));
}

TEST_F(Checking, LooksAtSuppressedAttributesAsIfTheyWereResumed) {
  RunJournal(session_, {R"({"command": "suppress", "boundaryCondition": "Fix"})",
                        R"({"command": "replace", "step": "S3", "procedure": "StaticLinearPerturbationStep"})"});
  EXPECT_THAT(Told(session_.Model()), ::testing::IsEmpty());
  ddr_Model model = session_.Model();
  kbcC_DisplacementBC condition;
  condition.Suppress();
  kbcC_DisplacementBCState state;
  state.u1 = 2.0;
  condition.Insert(cow_String("Initial"), state);
  model.Get<BcRepository>(ddr_Model::bcCmd()).ForcedInsert(cow_String("Odd"), condition);
  EXPECT_THAT(Told(model), ::testing::ElementsAre("boundaryCondition Odd in Initial: kbc 6 (suppressed)"));
}

TEST_F(Checking, FindsWhatTheModelDoesNotHave) {
  RunJournal(session_, {R"({"command": "AnalyticalField", "name": "Bow"})",
                        R"({"command": "setValues", "boundaryCondition": "Fix", "amplitude": "Ramp", "distributionType": "FIELD",
                            "fieldName": "Bow"})"});
  ddr_Model model = session_.Model();
  model.Get<ddr_RegionMap>(ddr_Model::regionsCmd()).Remove(cow_String("Die"));
  model.Get<ddr_AmplitudeMap>(ddr_Model::amplitudesCmd()).Remove(cow_String("Ramp"));
  model.SetExtension(ddr_Model::fieldsCmd(), mdl_ExtensionSubject::Registered().find(ddr_Model::fieldsCmd().View())->second);
  EXPECT_THAT(Told(model), ::testing::ElementsAre("boundaryCondition Fix: There is no region \"Die\".", "boundaryCondition Fix: kbc 35",
                                                  "boundaryCondition Fix: kbc 60"));
  EXPECT_EQ(Check(model)[1].detail, "There is no amplitude \"Ramp\".");
}

TEST_F(Checking, FindsStepsThatMayNotFollowAndParametersThatAreNotValid) {
  ddr_Model model = session_.Model();
  auto& steps = model.Get<kprC_StepContainer>(ddr_Model::stepsCmd());
  steps.Insert("S2", cow_String("Cool"), kprC_ConstructStep("AnnealStep"));
  auto step = cow_Handle<kprC_StaticStep>::Make();
  steps.Replace("S3", step);
  EXPECT_THAT(Told(model), ::testing::IsSupersetOf({"step Cool in Cool: kpr 50", "step S3 in S3: kpr 71"}));
}

TEST_F(Checking, FindsAHistoryThatIsNotWhatTheModelsStepsGive) {
  ddr_Model model = session_.Model();
  model.Get<kprC_StepContainer>(ddr_Model::stepsCmd()).Replace("S2", kprC_ConstructStep("StaticLinearPerturbationStep"));
  EXPECT_THAT(Told(model), ::testing::ElementsAre("boundaryCondition Fix in S2: The status is 2 where the steps give 9."));
  model.Get<kprC_StepContainer>(ddr_Model::stepsCmd()).Remove("S3");
  EXPECT_THAT(Told(model), ::testing::ElementsAre("boundaryCondition Fix: The history is not of the model's steps."));
}

}  // namespace
}  // namespace gattr
