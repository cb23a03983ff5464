#include "module/kin/kinC_Interactions.h"
#include "module/kin/kinC_module.h"
#include "platform/CaeUtils/omu_KeyErrorException.h"
#include "tests/support/OneAttribute.h"

namespace {

class Interactions : public test::OneAttribute<kinC_Interaction> {};

kprC_Arguments const kNamed = {{"interactionProperty", "Friction"}};

TEST_F(Interactions, RefuseWhatTheirTypeCannotBe) {
  struct {
    char const* command;
    kprC_Arguments members, own;
    int code;
    char const* steps = "IG";
    char const* step = "S1";
  } const rows[] = {
      {"SurfaceToSurfaceContactStd", {}, {}, 3},
      {"SurfaceToSurfaceContactStd", kNamed, {}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {}, -1, "IX", "Initial"},
      {"SurfaceToSurfaceContactStd", {}, {}, 32, "IX"},
      {"SurfaceToSurfaceContactStd", kNamed, {}, 32, "IGP", "S2"},
      {"SurfaceToSurfaceContactXpl", kNamed, {}, 32},
      {"SelfContactStd", {}, {}, 3},
      {"SelfContactXpl", {}, {}, 3, "IX"},
      {"SurfaceToSurfaceContactStd", kNamed, {{"smoothing", 0.5}}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {{"smoothing", 0.51}}, 4},
      {"SelfContactStd", kNamed, {{"smoothing", -0.01}}, 4},
      {"SurfaceToSurfaceContactStd", kNamed, {{"penetrationBeforeCutback", 0.0}}, 5},
      {"SurfaceToSurfaceContactStd", kNamed, {{"slideDistance", 0.0}}, 6},
      {"SurfaceToSurfaceContactStd", kNamed, {{"extensionZone", 0.2}}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {{"extensionZone", 0.21}}, 7},
      {"SurfaceToSurfaceContactStd", kNamed, {{"adjustMethod", "SET"}}, 75},
      {"SurfaceToSurfaceContactStd", kNamed, {{"adjustMethod", "SET"}, {"adjustSet", "Nodes"}}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {{"tied", true}}, 160},
      {"SurfaceToSurfaceContactStd", kNamed, {{"tied", true}, {"adjustMethod", "TOLERANCE"}}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {{"sliding", "SMALL"}, {"smoothing", 0.3}}, 167},
      {"SurfaceToSurfaceContactStd", kNamed, {{"sliding", "SMALL"}, {"enforcement", "NODE_TO_SURFACE"}}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {{"enforcement", "NODE_TO_SURFACE"}}, 168},
      {"SurfaceToSurfaceContactStd", kNamed, {{"enforcement", "NODE_TO_SURFACE"}, {"thickness", "OFF"}}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {{"pitch", 0.0}}, 169},
      {"SurfaceToSurfaceContactStd", kNamed, {{"majorDiameter", 0.0}}, 170},
      {"SurfaceToSurfaceContactStd", kNamed, {{"meanDiameter", 0.0}}, 171},
      {"SurfaceToSurfaceContactStd", kNamed, {{"clearance", "UNIFORM"}, {"sliding", "SMALL"}}, 172},
      {"SurfaceToSurfaceContactStd", kNamed, {{"clearance", "UNIFORM"}, {"sliding", "SMALL"}, {"initialClearance", 0.1}}, -1},
      {"SurfaceToSurfaceContactStd", kNamed, {{"clearance", "UNIFORM"}, {"initialClearance", 0.1}}, 179},
      {"SurfaceToSurfaceContactStd", kNamed, {{"clearance", "BOLT"}, {"sliding", "SMALL"}, {"pitch", 1.5}}, 174},
      {"SurfaceToSurfaceContactStd", kNamed, {{"clearance", "BOLT"}, {"sliding", "SMALL"}, {"halfThreadAngle", 30.0}}, 175},
      {"SurfaceToSurfaceContactXpl", kNamed, {{"weightingFactor", 1.0}}, -1, "IX"},
      {"SurfaceToSurfaceContactXpl", kNamed, {{"weightingFactor", 1.1}}, 112, "IX"},
      {"SurfaceToSurfaceContactXpl", kNamed, {{"sliding", "SMALL"}}, -1, "IX", "Initial"},
      {"SurfaceToSurfaceContactXpl", kNamed, {{"sliding", "SMALL"}}, -1, "IX"},
      {"SurfaceToSurfaceContactXpl", kNamed, {{"sliding", "SMALL"}}, 45, "IXX", "S2"},
      {"SurfaceToSurfaceContactXpl", kNamed, {{"sliding", "SMALL"}, {"formulation", "PENALTY"}}, 181, "IX"},
      {"SurfaceToSurfaceContactXpl",
       kNamed,
       {{"sliding", "SMALL"}, {"clearance", "UNIFORM"}, {"initialClearance", 0.0}},
       180,
       "IX",
       "Initial"},
      {"ElasticFoundation", {}, {}, 8, "IG", "Initial"},
      {"ElasticFoundation", {{"stiffness", 0.0}}, {}, 8, "IG", "Initial"},
      {"ElasticFoundation", {{"stiffness", 1e-9}}, {}, -1, "IG", "Initial"},
      {"ElasticFoundation", {{"stiffness", 0.0}}, {}, 9},
      {"ActuatorSensor", {}, {{"degreesOfFreedom", "x"}}, 55},
      {"ActuatorSensor", {}, {{"degreesOfFreedom", "1, -2 ,3"}, {"userElementType", "u12345"}}, -1, "IG", "Initial"},
      {"ActuatorSensor", {}, {{"degreesOfFreedom", "1,,2"}}, 65, "IG", "Initial"},
      {"ActuatorSensor", {}, {{"degreesOfFreedom", "1,"}}, 65, "IG", "Initial"},
      {"ActuatorSensor", {}, {{"degreesOfFreedom", "1.5"}}, 65, "IG", "Initial"},
      {"ActuatorSensor", {}, {{"userElementType", "U"}}, 66, "IG", "Initial"},
      {"ActuatorSensor", {}, {{"userElementType", "U123456"}}, 66, "IG", "Initial"},
      {"ActuatorSensor", {}, {{"userElementType", "V1"}}, 66, "IG", "Initial"},
      {"FilmCondition", {}, {}, 63, "IH", "Initial"},
      {"FilmCondition", {{"definition", "PROPERTY"}}, {}, 3, "IH"},
      {"FilmCondition", {}, {}, -1},
      {"RadiationToAmbient", {}, {}, 64, "IH", "Initial"},
      {"RadiationToAmbient", {{"emissivity", 1.0}}, {}, -1, "IH"},
      {"ConcRadiationToAmbient", {{"emissivity", 1.01}}, {}, 54, "IH"},
      {"CavityRadiation", {{"emissivity", -0.1}}, {}, 54},
      {"CavityRadiation", {}, {}, -1},
      {"AcousticImpedance", {}, {{"radius", 0.0}}, 142},
      {"AcousticImpedance", {}, {{"semimajorAxis", 0.0}}, 143},
      {"AcousticImpedance", {}, {{"eccentricity", -0.1}}, 144},
      {"AcousticImpedance", {}, {{"directionCosine3", 0.0}}, 145},
      {"IncidentWave", {{"definition", "PRESSURE"}}, {}, 34, "IX"},
      {"IncidentWave", {{"definition", "PRESSURE"}, {"amplitude", "Pulse"}}, {}, -1, "IX"},
      {"IncidentWave", {{"referenceMagnitude", 0.0}}, {}, 156, "IX"},
      {"IncidentWave", {}, {{"surfaceNormal3", 0.0}}, 157, "IX"},
      {"IncidentWave", {}, {{"initialDepth", 0.0}}, 158, "IX"},
  };
  for (auto const& row : rows) {
    std::string what = row.command;
    for (auto const& [name, value] : row.own) { what += " " + name; }
    EXPECT_EQ(Create(row.command, row.steps, row.step, row.members, row.own), row.code) << what;
  }
}

TEST_F(Interactions, HaveTheHistoriesOfTheirType) {
  struct {
    char const *command, *steps, *step;
    kprC_Arguments members;
    char const* history;
  } const rows[] = {
      {"SurfaceToSurfaceContactStd", "IGPUG", "Initial", kNamed, "1 2 8 6 2"},
      {"SurfaceToSurfaceContactStd", "IGXG", "S1", kNamed, "0 1 6 2"},
      {"IncidentWave", "IEEFE", "S1", {}, "0 1 7 7 7"},
      {"ActuatorSensor", "IGHPS", "Initial", {}, "1 2 6 8 6"},
      {"CavityRadiation", "IGHP", "S1", {}, "0 1 6 6"},
  };
  for (auto const& row : rows) {
    ASSERT_EQ(Create(row.command, row.steps, row.step, row.members), -1);
    EXPECT_EQ(History(), row.history) << row.command << " " << row.steps;
  }
}

TEST_F(Interactions, AreSwitchedOffTakenBackAndMoved) {
  ASSERT_EQ(Create("SurfaceToSurfaceContactStd", "IGGPUG", "S1", kNamed), -1);
  ASSERT_EQ(History(), "0 1 2 8 6 2");
  for (char const* step : {"S3", "S4"}) { EXPECT_EQ(Deactivate(step), 44) << step; }
  EXPECT_EQ(Deactivate("Nowhere"), 77);
  EXPECT_EQ(Deactivate("Initial"), -1) << "nothing is there";
  EXPECT_EQ(Reset("S1"), 2);
  EXPECT_EQ(Reset("Nowhere"), 77);
  EXPECT_EQ(Reset("S4"), 141);
  EXPECT_EQ(Edit("S5", kNamed), -1);
  EXPECT_EQ(History(), "0 1 2 8 6 3");
  EXPECT_EQ(Reset("S5"), 141);
  EXPECT_EQ(Deactivate("S2"), -1);
  EXPECT_EQ(History(), "0 1 4 5 6 5");
  for (char const* step : {"S2", "S5"}) { EXPECT_EQ(Deactivate(step), -1) << step; }
  EXPECT_EQ(Move("S2", "S1"), 41);
  EXPECT_EQ(Reset("S2"), -1);
  EXPECT_EQ(History(), "0 1 2 8 6 3");
  EXPECT_EQ(Move("S2", "S5"), 42);
  EXPECT_EQ(Move("S5", "S3"), 43);
  EXPECT_EQ(Move("S3", "S2"), -1) << "what is part of the base state says nothing";
  EXPECT_EQ(Move("S1", "Nowhere"), 77);
  EXPECT_EQ(Move("S1", "S2"), -1);
  EXPECT_EQ(History(), "0 0 1 8 6 3");
  EXPECT_EQ(Move("S2", "Initial"), -1);
  EXPECT_EQ(History(), "1 2 2 8 6 3");
  EXPECT_EQ(test::CodeOf([&] { Item().ReplaceStep("Initial"); }), 2);

  ASSERT_EQ(Create("SurfaceToSurfaceContactStd", "IGXG", "S1", kNamed), -1);
  EXPECT_EQ(Move("S1", "S2"), 109);
  EXPECT_EQ(Deactivate("S2"), 14) << "passed over";
  EXPECT_EQ(Deactivate("S1"), -1);
  EXPECT_EQ(Deactivate("S2"), 14) << "passed over, and off";

  ASSERT_EQ(Create("ElasticFoundation", "IGG", "Initial", {{"stiffness", 1.0}}), -1);
  EXPECT_EQ(Deactivate("S1"), 10);
  EXPECT_EQ(Edit("S1", {{"stiffness", 2.0}}), 11);
  EXPECT_EQ(Move("Initial", "S1"), 9);
  EXPECT_EQ(Edit("Initial", {{"stiffness", 2.0}}), -1);
  EXPECT_EQ(History(), "1 2 2");
  Item().Suppress();
  EXPECT_EQ(Deactivate("S1"), -1) << "nothing is refused of what is suppressed";
  ASSERT_EQ(Create("ActuatorSensor", "IGG", "Initial"), -1);
  EXPECT_EQ(Deactivate("S1"), 56);
  ASSERT_EQ(Create("AcousticImpedance", "IEE", "Initial"), -1);
  EXPECT_EQ(Deactivate("S1"), 146);
  EXPECT_EQ(Deactivate("S2"), -1);
  EXPECT_EQ(test::CodeOf([&] { repository.UpdateSteps(Item().Steps().WithRemoved(1)); }), 146);
  ASSERT_EQ(Create("FilmCondition", "IHG", "S1"), -1);
  EXPECT_EQ(Move("S1", "Initial"), 63) << "the type answers there";
  EXPECT_EQ(Move("S1", "S2"), 109);
}

TEST_F(Interactions, AreAskedForByStep) {
  ASSERT_EQ(Create("SurfaceToSurfaceContactStd", "IGGP", "S1", kNamed), -1);
  ASSERT_EQ(Deactivate("S2"), -1);
  EXPECT_EQ(Item().InteractionProperty("S2"), "Friction");
  EXPECT_EQ(Item().InteractionProperty("Initial"), "");
  EXPECT_TRUE(Item().IsModified("S2"));
  EXPECT_FALSE(Item().IsEditable("Nowhere"));
  EXPECT_EQ(Item().GetEditableStepName("Nowhere"), "S1");
  EXPECT_THROW(Item().GetPropStatus("Nowhere"), omu_KeyErrorException);
  EXPECT_THROW(Item().IsModified("Nowhere"), omu_KeyErrorException);
  EXPECT_THROW(Item().InteractionProperty("Nowhere"), omu_KeyErrorException);
  EXPECT_EQ(test::CodeOf([] { kinC_Interaction::IsModified(static_cast<mdl_PropagationStatusEnm>(9)); }), 110);
}

TEST_F(Interactions, AreListedInTheOrderOfTheirStep) {
  auto const names = [](unsigned procedure, bool relaxed, bool explicitOnly) {
    std::string all;
    for (cow_String const& name : kinC_ValidInteractions(procedure, relaxed, explicitOnly)) { all += std::string(name.View()) + ";"; }
    return all;
  };
  EXPECT_EQ(names(0, false, true),
            "General contact (Explicit);Surface-to-surface contact (Explicit);Self-contact (Explicit);Acoustic impedance;");
  EXPECT_EQ(names(kprC_ProcedureType::TempDisplacementDynamics, false, false),
            "General contact (Explicit);Surface-to-surface contact (Explicit);Self-contact (Explicit);Surface film condition;"
            "Surface radiation to ambient;Concentrated film condition;Concentrated radiation to ambient;");
  EXPECT_EQ(names(0, true, true),
            "General contact (Explicit);Surface-to-surface contact (Explicit);Self-contact (Explicit);Surface-to-surface contact "
            "(Standard);Self-contact (Standard);Elastic foundation;Actuator/sensor;Acoustic impedance;");
}

}  // namespace
