#include <gmock/gmock.h>

#include "command/Check.h"
#include "framework/ddr_ModelMembers.h"
#include "module/kbc/kbcC_ConnectorBC.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using ::testing::HasSubstr;

/// Connectors, and a condition "Drive" that sets u1 of the connector "Hinge" in S1.
Session Hinged(std::string const& components) {
  Session session;
  AppendSteps(session, "IGG");
  RunJournal(session, {R"({"command": "Connector", "name": "Hinge", "description": "of the door", "components": )" + components + "}",
                       R"({"command": "Connector", "name": "Weld"})"});
  kbcC_ConnDisplacementBC drive;
  drive.SetMember("connectors", cls_Value(cls_Value::List{"Hinge"}));
  kbcC_ConnDisplacementBCState state;
  state.u1 = 0.5;
  drive.Insert("S1", state);
  ddr_Model model = session.Model();
  model.Get<kprC_StepAwareRepository>(ddr_Model::bcCmd()).InsertItem("Drive", drive);
  return Session(model);
}

class InModel : public CommandTest {
protected:
  /// Runs a command, which is to be refused with that text in its message and to change nothing.
  void ExpectRefused(std::string_view command, std::string_view message) {
    ddr_Model const before = session_.Model();
    Outcome const outcome = session_.Execute(Line(command));
    EXPECT_FALSE(outcome.ok) << command;
    EXPECT_THAT(outcome.message, HasSubstr(message));
    EXPECT_TRUE(session_.Model().Equals(before)) << command;
  }
  /// Runs a command, which is to succeed and to be undone whole.
  void ExpectUndone(std::string_view command) {
    ddr_Model const before = session_.Model();
    Outcome const outcome = session_.Execute(Line(command));
    EXPECT_TRUE(outcome.ok) << outcome.message;
    EXPECT_FALSE(session_.Model().Equals(before)) << command;
    EXPECT_TRUE(session_.Undo());
    EXPECT_TRUE(session_.Model().Equals(before)) << command;
    session_.Redo();
  }
  Session session_ = Hinged("[1, 4]");
};

TEST_F(InModel, AFieldIsAskedOfTheSpaceBeforeItsRegionAndItsValue) {
  auto const warm = [](std::string const& rest) {
    return R"({"command": "Temperature", "name": "Warm", "createStepName": "S1", "crossSectionDistribution": "GRADIENTS_THROUGH_BEAM_CS")" +
           rest + "}";
  };
  std::string const edit = R"({"command": "setValues", "predefinedField": "Warm", )";
  RunJournal(session_, {R"({"command": "Set", "name": "Bar"})"});
  ExpectRefused(warm(R"(, "magnitudes": [0, 1])"), "[kpf 35]");
  ExpectRefused(warm(R"(, "magnitudes": [0, 1, 1])"), "[kpf 77]");
  ExpectRefused(warm(R"(, "magnitudes": [0, 1, 1], "region": "Bar")"), "[kpf 28]");
  RunJournal(session_, {warm(R"(, "magnitudes": [20, 1, 1], "region": "Bar")")});
  ExpectRefused(edit + R"("magnitudes": [0, 1]})", "[kpf 35]");
  ExpectRefused(edit + R"("magnitude": 0})", "[kpf 28]");
  ExpectRefused(R"({"command": "setModelSpace", "space": "AXISYMMETRIC"})", "[kpf 37] That is what predefinedField");
  RunJournal(session_, {R"({"command": "delete", "predefinedField": "Warm"})", R"({"command": "setModelSpace", "space": "TWO_D_PLANAR"})"});
  ExpectRefused(warm(R"(, "magnitudes": 20)"), "[kpf 36]");
  ExpectRefused(R"({"command": "Velocity", "name": "V", "createStepName": "Initial", "omega": 1, "axisBegin": [0]})", "[kpf 71]");
  ExpectRefused(R"({"command": "StressTensor", "name": "S", "createStepName": "Initial", "sectionType": "SOLID", "stressTensor": [1]})",
                "[kpf 61]");
}

TEST_F(InModel, TheFirstMagnitudeIsOneOfAll) {
  std::string const warm =
      R"({"command": "Temperature", "name": "Warm", "createStepName": "S1", "region": "Bar", "crossSectionDistribution": "POINTS_THROUGH_SECTION", )";
  RunJournal(session_, {R"({"command": "Set", "name": "Bar"})"});
  ExpectRefused(warm + R"("magnitudes": [20, 30], "magnitude": 30})", "\"magnitudes\" and \"magnitude\" are two names");
  ExpectRefused(warm + R"("magnitude": 30, "temperature": [20, 30]})", "\"magnitude\" and \"temperature\" are two names");
  ExpectRefused(warm + R"("magnitude": [20]})", "a finite number");
  RunJournal(session_, {warm + R"("magnitudes": [20, 30], "temperature": [20.0, 30], "magnitude": 20})",
                        R"({"command": "setValuesInStep", "predefinedField": "Warm", "stepName": "S2", "magnitude": 25})"});
  auto const& fields = session_.Model().ConstGet<kprC_StepAwareRepository>("predefinedFields");
  cls_Object const& state = *fields.ConstItem("Warm")->StateAt(2);
  EXPECT_EQ(state.Member("magnitudes"), cls_Value(cls_Value::List{25.0, 30.0}));
  EXPECT_EQ(state.Member("magnitude"), cls_Value(25.0));
  ExpectUndone(R"({"command": "setValuesInStep", "predefinedField": "Warm", "stepName": "S2", "temperature": 40})");
}

TEST_F(InModel, AnAttributeThatRefusesAnEditOfTheStepsIsNamed) {
  session_ = Session();
  AppendSteps(session_, "IG");
  RunJournal(session_, {R"({"command": "Set", "name": "Bar"})",
                        R"({"command": "Temperature", "name": "Warm", "createStepName": "S1", "region": "Bar", "magnitude": 20})",
                        R"({"command": "VelocityAdaptiveMeshConstraint", "name": "Mesh", "createStepName": "S1", "region": "Bar",
                            "motionType": "USER_DEFINED"})"});
  ExpectRefused(R"({"command": "setValues", "step": "S1", "adiabatic": true})", "[kpf 67] That is what predefinedField \"Warm\" refuses.");
  ExpectRefused(R"({"command": "replace", "step": "S1", "procedure": "ExplicitDynamicsStep", "maintainAttributes": true})",
                "[kpr 242] That is what adaptiveMeshConstraint \"Mesh\" refuses.");
  ExpectRefused(R"({"command": "replace", "step": "S1", "procedure": "HeatTransferStep", "deltmx": 1, "maintainAttributes": true})",
                "[kpf 78] predefinedField \"Warm\" is created there: \"replacementPolicy\"");
}

TEST_F(InModel, AnAttributeUsesWhatItsConnectorOffers) {
  ExpectRefused(R"({"command": "setValuesInStep", "boundaryCondition": "Drive", "stepName": "S2", "u2": 1})", "u2");
  ExpectRefused(R"({"command": "setValues", "boundaryCondition": "Drive", "ur2": 1})", "ur2");
  ExpectRefused(R"({"command": "setValues", "connector": "Hinge", "components": [4, 5]})",
                "u1). That is what boundaryCondition \"Drive\" refuses.");
  ExpectUndone(R"({"command": "setValues", "connector": "Hinge", "components": [1, 2]})");
  ExpectUndone(R"({"command": "setValuesInStep", "boundaryCondition": "Drive", "stepName": "S2", "u2": 1})");
}

TEST_F(InModel, WhatIsInUseIsNotDeletedAndTakesItsUsersToAnotherName) {
  ExpectRefused(R"({"command": "delete", "connector": "Hinge"})", "in use by boundaryCondition \"Drive\"");
  ExpectRefused(R"({"command": "rename", "connector": "Hinge", "newName": "Weld"})", "There is a connector \"Weld\" already.");
  ExpectUndone(R"({"command": "rename", "connector": "Hinge", "newName": "Pin"})");
  ExpectRefused(R"({"command": "delete", "connector": "Pin"})", "in use by boundaryCondition \"Drive\"");
  ExpectUndone(R"({"command": "delete", "connector": "Weld"})");
  EXPECT_TRUE(ErrorsOf(session_.Model()).empty());
}

TEST_F(InModel, NamesAreFollowedInEveryStepThatSaysThem) {
  RunJournal(session_, {R"({"command": "Amplitude", "name": "Ramp"})", R"({"command": "Amplitude", "name": "Hold"})",
                        R"({"command": "DatumCsys", "name": "Tilted"})", R"({"command": "DatumAxis", "name": "Shank"})",
                        R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "Initial", "localCsys": "Tilted"})",
                        R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S1", "u1": 1, "amplitude": "Ramp"})",
                        R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 2, "amplitude": "Hold"})",
                        R"({"command": "BoltLoad", "name": "Bolt", "createStepName": "S1", "magnitude": 1, "dtmReference": "Shank"})"});
  auto const member = [this](char const* kind, char const* name, std::size_t step, char const* of) {
    auto const& item = *session_.Model().ConstGet<kprC_StepAwareRepository>(kind).ConstItem(name);
    return item.StateAt(step)->Member(of).As<std::string>() != nullptr ? *item.StateAt(step)->Member(of).As<std::string>() : "";
  };
  ExpectUndone(R"({"command": "rename", "amplitude": "Ramp", "newName": "Slow"})");
  EXPECT_EQ(member("boundaryConditions", "Fix", 1, "amplitude"), "Slow");
  EXPECT_EQ(member("boundaryConditions", "Fix", 2, "amplitude"), "Hold");
  ExpectUndone(R"({"command": "rename", "coordinateSystem": "Tilted", "newName": "Level"})");
  ExpectUndone(R"({"command": "rename", "axis": "Shank", "newName": "Axle"})");
  EXPECT_EQ(member("loads", "Bolt", 2, "dtmReference"), "Axle");
  for (Finding const& finding : Check(session_.Model())) { EXPECT_EQ(finding.Row().severity, Severity::Warning) << finding.name; }
  ExpectRefused(R"({"command": "delete", "coordinateSystem": "Level"})", "in use by boundaryCondition \"Fix\"");
  ExpectRefused(R"({"command": "setValues", "boundaryCondition": "Fix", "localCsys": "Levle"})",
                "There is no coordinateSystem \"Levle\". Did you mean \"Level\"?");
  ExpectUndone(R"j({"command": "setValues", "boundaryCondition": "Fix", "localCsys": "(Global)"})j");
  ExpectUndone(R"({"command": "delete", "coordinateSystem": "Level"})");
}

TEST_F(InModel, ASuppressedAttributeIsAskedWhenItIsResumed) {
  RunJournal(session_, {R"({"command": "suppress", "boundaryCondition": "Drive"})"});
  ExpectUndone(R"({"command": "setValues", "connector": "Hinge", "components": [4]})");
  ExpectRefused(R"({"command": "resume", "boundaryCondition": "Drive"})", "u1");
  std::vector<Finding> const findings = ErrorsOf(session_.Model());
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_TRUE(findings[0].suppressed);
  EXPECT_THAT(findings[0].refusal.message, HasSubstr("u1"));
}

TEST_F(InModel, TheSpaceIsAskedOfEveryAttributeAndStepsOfNone) {
  RunJournal(session_, {R"({"command": "ConcentratedForce", "name": "Push", "createStepName": "S1", "cf3": 1})"});
  ExpectRefused(R"({"command": "setModelSpace", "space": "TWO_D_PLANAR"})", "[klo 11] That is what load \"Push\" refuses.");
  RunJournal(session_, {R"({"command": "setValues", "load": "Push", "cf1": 1, "cf3": "UNSET"})"});
  ExpectUndone(R"({"command": "setModelSpace", "space": "AXISYMMETRIC"})");
  EXPECT_EQ(session_.Model().Space(), ddr_Model::AXISYMMETRIC);
  session_ = Hinged("[4]");  // with a condition that does not go with the model
  ExpectRefused(R"({"command": "setModelSpace", "space": "TWO_D_PLANAR"})", "u1). That is what boundaryCondition \"Drive\" refuses.");
  ExpectUndone(R"({"command": "StaticStep", "name": "S3", "initialInc": 0.1})");
  ExpectUndone(R"({"command": "delete", "step": "S2"})");
}

TEST_F(InModel, ALoadRefusesASpaceThatItDoesNotGoWith) {
  RunJournal(session_, {R"({"command": "Gravity", "name": "Weight", "createStepName": "S1", "comp1": -9.81})"});
  ExpectRefused(R"({"command": "setModelSpace", "space": "AXISYMMETRIC"})", "[klo 47] That is what load \"Weight\" refuses.");
  ExpectUndone(R"({"command": "setModelSpace", "space": "TWO_D_PLANAR"})");
  RunJournal(session_, {R"({"command": "suppress", "load": "Weight"})", R"({"command": "setModelSpace", "space": "AXISYMMETRIC"})"});
  ExpectRefused(R"({"command": "resume", "load": "Weight"})", "[klo 47]");
}

TEST_F(InModel, ChecksTellOfAConnectorThatTheModelDoesNotHave) {
  ddr_Model model = session_.Model();
  model.Get<ddr_ConnectorMap>(ddr_Model::connectorsCmd()).Remove("Hinge");
  std::vector<Finding> const findings = ErrorsOf(model);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].refusal.message, "There is no connector \"Hinge\".");
}

TEST_F(InModel, ARegionThatAStepNamesTakesItToAnotherName) {
  session_ = Session();
  RunJournal(session_, {R"({"command": "Set", "name": "Fillet"})", R"({"command": "ExplicitDynamicsStep", "name": "Roll"})",
                        R"({"command": "setValues", "step": "Roll", "massScaling": [{"dt": 1e-6}, {"dt": 1e-7, "region": "Fillet"}]})"});
  ExpectRefused(R"({"command": "delete", "region": "Fillet"})", "in use by step \"Roll\"");
  ExpectRefused(R"({"command": "setValues", "step": "Roll", "massScaling": [{"dt": 1, "region": "Filet"}]})",
                "There is no region \"Filet\". Did you mean \"Fillet\"?");
  ExpectUndone(R"({"command": "rename", "region": "Fillet", "newName": "Edge"})");
  ExpectUndone(R"({"command": "rename", "region": "Edge", "newName": "Fillet"})");
  EXPECT_TRUE(ErrorsOf(session_.Model()).empty());
  ddr_Model model = session_.Model();
  model.Get<ddr_RegionMap>(ddr_Model::regionsCmd()).Remove("Fillet");
  std::vector<Finding> const findings = ErrorsOf(model);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].step, "Roll");
  EXPECT_EQ(findings[0].refusal.message, "There is no region \"Fillet\".");
  ExpectUndone(R"({"command": "setValues", "step": "Roll", "massScaling": []})");
  ExpectUndone(R"({"command": "delete", "region": "Fillet"})");
}

}  // namespace
}  // namespace gattr
