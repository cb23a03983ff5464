#include "command/Check.h"

#include <gmock/gmock.h>

#include "command/JournalCheck.h"
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
  std::vector<Finding> const findings = Check(session_.Model(), FindingChoice{{"GA017"}, {}});
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
           Row{{on + R"("u1": 0})"}, {"GA016 Odd in S2"}},
           Row{{on + R"("u1": 1})"}, {"GA011 Odd in S2"}},
           Row{{on + R"("u1": 1})", R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 1})"},
               {"GA016 Odd in S2"}},
           Row{{on + R"("u1": 1, "amplitude": "Ramp"})",
                R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 1})"},
               {"GA011 Odd in S2"}},
           Row{{on + R"("u1": 1, "distributionType": "USER_DEFINED"})",
                R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 1})"},
               {"GA011 Odd in S2"}},
           Row{{R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S1", "u2": 2})", on + R"("u1": 0, "u2": 3})"},
               {"GA011 Odd in S2", "GA016 Odd in S2"}},
           Row{{on + R"("fixed": true})"}, {"GA011 Odd in S2"}},
           Row{{on + R"("u2": 0})", edit + R"("u1": 0})"}, {"GA016 Odd in S3"}},
           Row{{on + R"("u1": 0})", R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S2"})"}, {}},
           Row{{on + R"("u1": 0})", R"({"command": "suppress", "boundaryCondition": "Odd"})"}, {}},
           Row{{on + R"("u1": 0})", R"({"command": "DatumCsys", "name": "Local"})",
                R"({"command": "setValues", "boundaryCondition": "Odd", "localCsys": "Local"})"},
               {}},
           Row{{R"({"command": "VelocityBC", "name": "Odd", "createStepName": "S2", "region": "Die", "v1": 1})"}, {"GA011 Odd in S2"}},
           Row{{R"({"command": "XsymmBC", "name": "Odd", "createStepName": "S2", "region": "Die"})"}, {"GA016 Odd in S2"}},
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
               {"GA020 Other in Initial"}},
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
    for (Finding const& finding : Check(session.Model(), FindingChoice{{"GA017"}, {}})) {
      EXPECT_NE(finding.Row().severity, Severity::Error);
      std::string line = finding.Row().id + " " + finding.name + (finding.step.empty() ? "" : " in " + finding.step);
      told.push_back(line + (finding.member.empty() ? "" : ", " + finding.member));
    }
    EXPECT_EQ(told, row.told) << row.lines.front();
  }
}

/// "GA017 amplitude Ramp in S1", for each finding; with the line where there is one.
std::vector<std::string> Lines(std::vector<Finding> const& findings) {
  std::vector<std::string> lines;
  for (Finding const& finding : findings) {
    lines.push_back(finding.Row().id + " " + finding.kind + " " + finding.name + (finding.step.empty() ? "" : " in " + finding.step) +
                    (finding.line == 0 ? "" : ", line " + std::to_string(finding.line)));
  }
  return lines;
}

TEST_F(Checking, WarnsOfModelsThatNothingHoldsOrWhosePartsNobodyUses) {
  struct Row {
    char const* steps;
    std::vector<std::string> lines;
    std::vector<std::string> told;
  };
  std::string const set = R"({"command": "Set", "name": "Rim"})", face = R"({"command": "Surface", "name": "Face"})";
  std::string const fix = R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "Initial", "region": "Rim", "u1": 0})";
  std::string const request = R"({"command": "FieldOutputRequest", "name": "F", "createStepName": "S1", "variables": ["NT"]})";
  std::string const off = R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": )";
  std::string const property = R"({"command": "ContactProperty", "name": "Dry"})";
  std::string const general = R"({"command": "ContactExp", "name": "All", "createStepName": "S1", "useAllstar": true})";
  for (
      Row const& row : {
          // what holds
          Row{"IGGG", {}, {"GA018 step S1 in S1"}},
          Row{"IGPEG", {set, fix}, {}},
          Row{"IGEGG", {set, fix, off + R"("S3"})"}, {"GA018 step S3 in S3"}},
          Row{"IGEG",
              {face, R"({"command": "Pressure", "name": "P", "createStepName": "S1", "region": "Face", "magnitude": 1})"},
              {"GA018 step S1 in S1", "GA018 step S3 in S3"}},
          Row{"IG", {R"({"command": "InertiaRelief", "name": "Free", "createStepName": "S1", "u1": true})"}, {}},
          Row{"IG",
              {face, R"({"command": "ElasticFoundation", "name": "Soil", "createStepName": "Initial", "surface": "Face", "stiffness": 1})"},
              {}},
          Row{"IG",
              {face, property,
               R"({"command": "SelfContactStd", "name": "Fold", "createStepName": "S1", "surface": "Face", "interactionProperty": "Dry"})"},
              {}},
          Row{"IGG", {set, fix, off + R"("S1"})"}, {"GA020 boundaryCondition Fix in Initial", "GA018 step S1 in S1"}},
          // what is in force
          Row{"IHH", {request}, {}},
          Row{"IHH",
              {request, R"({"command": "deactivate", "fieldOutputRequest": "F", "stepName": "S1"})"},
              {"GA020 fieldOutputRequest F in S1"}},
          Row{"IX", {general}, {"GA019 interaction All in S1"}},
          Row{"IX",
              {general, property, R"({"command": "appendInStep", "interaction": "All", "stepName": "S1",
                                             "pairs": [{}], "contactPropertyAssignment": ["Dry"]})"},
              {}},
          // what is used
          Row{"IH",
              {set, face, R"({"command": "Amplitude", "name": "A"})", R"({"command": "Connector", "name": "C"})",
               R"({"command": "AnalyticalField", "name": "B"})", R"({"command": "TimePoint", "name": "T", "points": [[1]]})",
               R"({"command": "DatumCsys", "name": "D"})", R"({"command": "DatumAxis", "name": "E"})", property,
               R"({"command": "StdContactControls", "name": "K"})", R"({"command": "Filter", "name": "L"})",
               R"({"command": "IntegratedOutputSection", "name": "S", "surface": "Face"})"},
              {"GA017 region Rim", "GA017 amplitude A", "GA017 connector C", "GA017 field B", "GA017 timePoint T",
               "GA017 coordinateSystem D", "GA017 axis E", "GA017 interactionProperty Dry", "GA017 contactControls K", "GA017 filter L",
               "GA017 integratedOutputSection S"}},
          Row{"IE", {set, fix, R"({"command": "suppress", "boundaryCondition": "Fix"})"}, {}},
      }) {
    Session session;
    AppendSteps(session, row.steps);
    RunJournal(session, row.lines);
    EXPECT_EQ(Lines(Check(session.Model())), row.told) << row.steps << ::testing::PrintToString(row.lines);
  }
}

TEST_F(Checking, TellsWhatIsChosen) {
  Session session;
  AppendSteps(session, "IG");
  RunJournal(session, {R"({"command": "Set", "name": "Rim"})"});
  auto const told = [&](FindingChoice const& choice) { return Lines(Check(session.Model(), choice)); };
  EXPECT_THAT(told({}), ::testing::ElementsAre("GA018 step S1 in S1", "GA017 region Rim"));
  EXPECT_THAT(told({{"GA018"}, {}}), ::testing::ElementsAre("GA017 region Rim"));
  EXPECT_THAT(told({{}, {"GA018", "GA001"}}), ::testing::ElementsAre("GA018 step S1 in S1"));
  EXPECT_THAT(told({{"GA017", "GA018"}, {}}), ::testing::IsEmpty());
  EXPECT_THAT(RefusalBy([&] { told({{"GA17"}, {}}); })->message, ::testing::HasSubstr("Did you mean \"GA017\"?"));
  EXPECT_THAT(RefusalBy([&] { told({{"GA005"}, {}}); })->message, ::testing::HasSubstr("is an error"));
}

TEST_F(Checking, NamesTheLineOfAJournalThatMadeWhatIsAtFault) {
  std::vector<std::string> const steps = {
      R"({"command": "StaticStep", "name": "A", "initialInc": 0.1})",
      R"({"command": "StaticStep", "name": "B", "initialInc": 0.1})",
      R"({"command": "StaticStep", "name": "C", "initialInc": 0.1})",
      R"({"command": "Set", "name": "Rim"})",
      R"({"command": "XsymmBC", "name": "Hold", "createStepName": "Initial", "region": "Rim"})",
      R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "B", "region": "Rim", "u2": 0})"};
  std::string const set = R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": )";
  std::string const off = R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": )";
  struct Row {
    std::vector<std::string> lines;  // from line 7 on
    std::vector<std::string> told;
  };
  for (Row const& row : {
           Row{{}, {}},
           Row{{set + R"("C", "u1": 1})"}, {"GA011 boundaryCondition Fix in C, line 7"}},
           Row{{set + R"("B", "u1": 1})", set + R"("C", "u2": 2})"}, {"GA011 boundaryCondition Fix in B, line 7"}},
           Row{{R"({"command": "Set", "name": "Top"})", R"({"command": "rename", "region": "Top", "newName": "Lid"})"},
               {"GA017 region Lid, line 7"}},
           Row{{set + R"("C", "u1": 1})", R"({"command": "rename", "step": "C", "newName": "D"})",
                R"({"command": "rename", "boundaryCondition": "Fix", "newName": "Push"})"},
               {"GA011 boundaryCondition Push in D, line 7"}},
           Row{{R"({"command": "Amplitude", "name": "R"})", R"({"command": "delete", "amplitude": "R"})",
                R"({"command": "Amplitude", "name": "R"})"},
               {"GA017 amplitude R, line 9"}},
           Row{{R"({"command": "Amplitude", "name": "R"})", R"({"command": "undo"})"}, {}},
           // what went with a step is not what made it so
           Row{{R"({"command": "Set", "name": "Top"})",
                R"({"command": "DisplacementBC", "name": "Late", "createStepName": "A", "region": "Top", "u1": 0})",
                R"({"command": "setValuesInStep", "boundaryCondition": "Late", "stepName": "B", "u1": 1})",
                R"({"command": "delete", "step": "B"})", R"({"command": "StaticStep", "name": "B", "previous": "A", "initialInc": 0.1})",
                R"({"command": "DisplacementBC", "name": "Aaa", "createStepName": "B", "region": "Top", "u1": 5})"},
               {"GA011 boundaryCondition Late in B, line 8"}},
           // what leaves no trace
           Row{{off + R"("A"})", off + R"("C"})", off + R"("C"})"},
               {"GA021 boundaryCondition Fix in A, line 7", "GA022 boundaryCondition Fix in C, line 9"}},
           Row{{set + R"("B", "u2": 0})", R"({"command": "setValues", "region": "Rim"})"},
               {"GA022 boundaryCondition Fix in B, line 7", "GA022 region Rim, line 8"}},
           Row{{set + R"("B", "u2": 0, "dryRun": true})"}, {}},
           Row{{R"({"command": "setModel", "name": "Model-1"})"}, {"GA022 command setModel, line 7"}},
           Row{{set + R"("Nowhere", "u2": 0})", R"({"command": "setValuse"})"},
               {"GA023 boundaryCondition Fix in Nowhere, line 7", "GA023 command setValuse, line 8"}},
       }) {
    Session session;
    JournalCheck check(session);
    std::size_t line = 0;
    for (auto const* const lines : {&steps, &row.lines}) {
      for (std::string const& text : *lines) {
        cls_Value const command = Line(text);
        check.Note(++line, command, session.Execute(command));
      }
    }
    EXPECT_EQ(Lines(check.Findings()), row.told) << ::testing::PrintToString(row.lines);
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
