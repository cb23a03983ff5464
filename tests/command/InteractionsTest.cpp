#include <gmock/gmock.h>

#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using Interactions = CommandTest;

// What the command layer refuses behind the type's own rules, and in which order.
TEST_F(Interactions, AreNotMadeWhereTheirStepDoesNotTakeThem) {
  struct {
    char const *steps, *type, *step;
    int code;  ///< -1: done
  } const rows[] = {
      {"IGP", "SelfContactStd", "S2", 32},     {"IGP", "AcousticImpedance", "S2", 13},     {"IF", "AcousticImpedance", "S1", 13},
      {"IG", "FilmCondition", "S1", 116},      {"IH", "FilmCondition", "S1", -1},          {"IH", "FilmCondition", "Initial", 63},
      {"IH", "RadiationToAmbient", "S1", -1},  {"IG", "CavityRadiation", "S1", 116},       {"IG", "IncidentWave", "Initial", 116},
      {"IX", "IncidentWave", "S1", -1},        {"IX", "ElasticFoundation", "Initial", 12}, {"IX", "ActuatorSensor", "Initial", 57},
      {"IG", "ActuatorSensor", "Initial", -1}, {"IG", "ActuatorSensor", "S1", 55},         {"I", "ElasticFoundation", "Initial", -1},
      {"IG", "ElasticFoundation", "S1", 9},    {"IG", "ElasticFoundation", "S9", 77},
  };
  for (auto const& row : rows) {
    Session session;
    AppendSteps(session, row.steps);
    Json command = {{"command", row.type}, {"name", "A"}, {"createStepName", row.step}};
    if (command["command"] == "ElasticFoundation") { command["stiffness"] = 1.0; }
    Outcome const outcome = session.Execute(CommandOf(command));
    EXPECT_EQ(outcome.ok ? -1 : outcome.refused.code, row.code) << row.steps << " " << row.type << " " << outcome.message;
  }
}

TEST_F(Interactions, AreRefusedByNumberOrInWords) {
  Session session;
  AppendSteps(session, "IGFG");
  RunJournal(session, {R"({"command": "ElasticFoundation", "name": "Bed", "createStepName": "Initial", "stiffness": 2.0})",
                       R"({"command": "AcousticImpedance", "name": "Wall", "createStepName": "S1"})"});
  struct {
    char const* command;
    char const* refused;
  } const rows[] = {
      {R"({"command": "ElasticFoundation", "name": "Bed", "createStepName": "Initial", "stiffness": 2.0})", "\"Bed\" exists already"},
      {R"({"command": "deactivate", "interaction": "Bde", "stepName": "S1"})", "There is no interaction \"Bde\". Did you mean \"Bed\"?"},
      {R"({"command": "setValuesInStep", "interaction": "Wall", "stepName": "S2"})", "[kin 13]"},
      {R"({"command": "setValuesInStep", "interaction": "Wall", "stepName": "Initial"})", "[kin 1]"},
      {R"({"command": "deactivate", "interaction": "Wall", "stepName": "S2"})", "[kin 44]"},
      {R"({"command": "deactivate", "interaction": "Bed", "stepName": "S3"})", "[kin 10]"},
      {R"({"command": "setValuesInStep", "interaction": "Bed", "stepName": "S3", "stiffness": 3.0})", "[kin 11]"},
      {R"({"command": "move", "interaction": "Wall", "fromStepName": "S1", "toStepName": "S2"})", "[kin 43]"},
      {R"({"command": "move", "interaction": "Wall", "fromStepName": "Initial", "toStepName": "S3"})",
       "in step \"Initial\": The interaction"},
      {R"({"command": "copy", "interaction": "Bde", "newName": "Berth"})", "[kin 78] Did you mean \"Bed\"?"},
      {R"({"command": "Interaction", "name": "Berth", "interaction": "Bde"})", "[kin 78]"},
  };
  for (auto const& row : rows) {
    ddr_Model const before = session.Model();
    EXPECT_THAT(session.Execute(Line(row.command)).message, ::testing::HasSubstr(row.refused));
    EXPECT_TRUE(session.Model().Equals(before)) << row.command;
  }
  RunJournal(session, {R"({"command": "suppress", "interaction": "Bed"})"});
  EXPECT_THAT(session.Execute(Line(R"({"command": "setValues", "interaction": "Bed", "stiffness": 3.0})")).message,
              ::testing::HasSubstr("[kin 117]"));
}

}  // namespace
}  // namespace gattr
