#include <gmock/gmock.h>

#include <set>

#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using ::testing::HasSubstr;

/// What the rows below are refused in.
std::vector<std::string> const kModel = {
    R"({"command": "StaticStep", "name": "Press", "initialInc": 0.1})",
    R"({"command": "StaticStep", "name": "Hold", "initialInc": 0.1})",
    R"({"command": "StaticStep", "name": "Release", "initialInc": 0.1})",
    R"({"command": "StaticLinearPerturbationStep", "name": "Shake"})",
    R"({"command": "Set", "name": "Die", "dimension": 2})",
    R"({"command": "Amplitude", "name": "Ramp"})",
    R"({"command": "Connector", "name": "Hinge", "components": [1, 4]})",
    R"({"command": "AnalyticalField", "name": "Bow", "description": "parabola over the width"})",
    R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "Initial", "region": "Die", "u1": 0})",
    R"({"command": "DisplacementBC", "name": "Push", "createStepName": "Press", "u2": -1.5, "amplitude": "Ramp"})",
    R"({"command": "EncastreBC", "name": "Clamp", "createStepName": "Press", "region": "Die"})",
    R"({"command": "DisplacementBC", "name": "Rest", "createStepName": "Press", "u3": 0,
        "distributionType": "FIELD", "fieldName": "Bow"})",
    R"({"command": "suppress", "boundaryCondition": "Rest"})",
    R"({"command": "DatumCsys", "name": "Wheel"})",
    R"({"command": "DatumAxis", "name": "Axis-1"})",
    R"({"command": "Surface", "name": "Shank", "instanceKind": "SOLID"})",
    R"({"command": "Surface", "name": "Washer"})",
    R"({"command": "ConcentratedForce", "name": "Pull", "createStepName": "Press", "cf1": 10, "amplitude": "Ramp"})",
    R"({"command": "ConcentratedForce", "name": "Late", "createStepName": "Release", "cf2": 5})",
    R"({"command": "BoltLoad", "name": "Bolt", "createStepName": "Press", "region": "Shank", "magnitude": 9e4, "dtmReference": "Axis-1"})",
    R"({"command": "BoltLoad", "name": "Stud", "createStepName": "Press", "region": "Washer", "magnitude": 9e4})",
    R"({"command": "Pressure", "name": "Idle", "createStepName": "Press", "magnitude": 2, "distType": "FIELD", "fieldName": "Bow"})",
    R"({"command": "suppress", "load": "Idle"})",
    R"({"command": "Set", "name": "Rod"})",
    R"({"command": "Temperature", "name": "Warm", "createStepName": "Press", "region": "Rod", "magnitudes": 20})",
    R"({"command": "InitialState", "name": "Former", "createStepName": "Initial", "fileName": "cool.odb", "instances": ["Rod-1"]})",
    R"({"command": "Hardening", "name": "Rolled", "createStepName": "Initial", "region": "Rod", "equivPlasticStrain": 0.1})",
    R"({"command": "DisplacementAdaptiveMeshConstraint", "name": "Still", "createStepName": "Initial", "region": "Rod", "u1": 0})",
};

struct RefusedLine {
  char const* command;
  char const* refusal;  ///< "kbc 5", or the exception of one without a number
  std::vector<char const*> message;
  bool badInput = true;
  char const* space = "THREE_D";
};

void PrintTo(RefusedLine const& row, std::ostream* out) { *out << row.command; }

class Refusals : public CommandTest, public ::testing::WithParamInterface<RefusedLine> {};

TEST_P(Refusals, NameWhatIsWrongAndChangeNothing) {
  Session session;
  RunJournal(session, kModel);
  RunJournal(session, {Json{{"command", "setModelSpace"}, {"space", GetParam().space}}.dump()});
  ddr_Model const before = session.Model();
  std::size_t const changes = session.Changes().Size(), journal = session.Journal().size();
  std::string const label = session.UndoLabel();
  Outcome const outcome = session.Execute(Line(GetParam().command));
  EXPECT_FALSE(outcome.ok);
  Refusal const& refused = outcome.refused;
  EXPECT_EQ(refused.code < 0 ? refused.exception : refused.module + " " + std::to_string(refused.code), GetParam().refusal);
  for (char const* part : GetParam().message) { EXPECT_THAT(outcome.message, HasSubstr(part)); }
  EXPECT_THAT(outcome.message, ::testing::Not(HasSubstr("\n")));
  EXPECT_EQ(outcome.badInput, GetParam().badInput) << outcome.message;
  EXPECT_TRUE(session.Model().Equals(before));
  EXPECT_EQ(session.Changes().Size(), changes);
  EXPECT_EQ(session.Journal().size(), journal);
  EXPECT_EQ(session.UndoLabel(), label);
}

constexpr char const* kKey = "omu_KeyErrorException";
constexpr char const* kValue = "omu_ValueErrorException";
constexpr char const* kText = "nex_TextException";

INSTANTIATE_TEST_SUITE_P(
    OfTheCommandItself, Refusals,
    ::testing::ValuesIn(std::vector<RefusedLine>{
        {R"("undo")", kValue, {"object with named members", "\"undo\""}},
        {R"({})", kKey, {"\"command\" is missing"}},
        {R"({"comand": "undo"})", kKey, {"\"command\" is missing", "\"comand\""}},
        {R"({"command": 3})", kValue, {"\"command\" is a text, not 3"}},
        {R"({"command": "StaticSetp", "name": "S"})", kKey, {"no command \"StaticSetp\"", "Did you mean \"StaticStep\"?"}},
        {R"({"command": "UsaAddedMasGenerationStep"})", kKey, {"Did you mean \"UsaAddedMassGenerationStep\"?"}},
        {R"({"command": "undo", "steps": 2})", kKey, {"no argument \"steps\""}},
        {R"({"command": "redo"})", kText, {"nothing to redo"}, false},
        {R"({"command": "undo", "dryRun": "yes"})", kValue, {"\"dryRun\" is true or false, not \"yes\""}},
        {R"({"command": "setModel", "name": ""})", kValue, {"\"name\" is empty"}},
        {R"({"command": "setModelSpace"})", kKey, {"\"space\" is missing"}},
        {R"({"command": "setModelSpace", "space": "THREE_DE"})", kValue, {"\"AXISYMMETRIC\"", "Did you mean \"THREE_D\"?"}},
        {R"({"command": "deactivate", "stepName": "Hold"})",
         kKey,
         {"object is missing",
          "one of \"adaptiveMeshConstraint\", \"boundaryCondition\", \"fieldOutputRequest\", "
          "\"historyOutputRequest\", \"interaction\", \"load\"."}},
        {R"({"command": "rename", "step": "Hold", "region": "Die", "newName": "A"})", kKey, {"no argument \"region\""}},
        {R"({"command": "deactivate", "step": "Hold"})", kKey, {"\"deactivate\" is no command on a step"}},
        {R"({"command": "replace", "boundaryCondition": "Fix"})", kKey, {"no command on a boundaryCondition"}}}));

INSTANTIATE_TEST_SUITE_P(
    OfFieldsAndMeshConstraints, Refusals,
    ::testing::ValuesIn(std::vector<RefusedLine>{
        {R"({"command": "deactivate", "predefinedField": "Warm", "stepName": "Hold"})", kKey, {"no command on a predefinedField"}},
        {R"({"command": "resetToInitial", "predefinedField": "Cold", "stepName": "Hold"})", "kpf 2", {"\"Warm\""}},
        {R"({"command": "resetToInitial", "predefinedField": "Rolled", "stepName": "Hold"})", "kpf 4", {"initial"}, false},
        {R"({"command": "resetToInitial", "predefinedField": "Warm", "stepName": "Shake"})", "kpf 5", {"Shake"}, false},
        {R"({"command": "resetToPropagated", "predefinedField": "Warm", "stepName": "Initial"})", "kpf 89", {"nothing to reset"}, false},
        {R"({"command": "setValuesInStep", "predefinedField": "Warm", "stepName": "Shake", "magnitudes": 3})",
         "kpf 8",
         {"base state"},
         false},
        {R"({"command": "setValues", "predefinedField": "Warm", "magnitude": 3, "temperature": 4})", kValue, {"two names of one member"}},
        {R"({"command": "setValues", "predefinedField": "Warm", "distributionType": "FIELD", "fieldName": "Bend"})", "kpf 97", {"\"Bow\""}},
        {R"({"command": "setValues", "predefinedField": "Warm", "amplitude": "Rump"})", "kpf 13", {"Did you mean \"Ramp\"?"}},
        {R"({"command": "setValuesInStep", "predefinedField": "Warm", "stepName": "Hold", "amplitude": "PROPAGATED"})",
         "kpf 13",
         {"\"amplitude\""},
         false},
        {R"({"command": "copy", "predefinedField": "Former", "newName": "Warped"})", "kpf 85", {"\"Former\""}, false},
        {R"({"command": "setValues", "predefinedField": "Warm", "beginStep": "SECOND_STEP"})", "kpf 91", {"\"FIRST_STEP\""}},
        {R"({"command": "Temperature", "name": "T", "createStepName": "Initial", "region": 5})", "kpf 73", {"\"region\""}},
        {R"({"command": "Velocity", "name": "V", "createStepName": "Hold", "region": "Die", "velocity1": 1})",
         "kpf 27",
         {"\"Hold\" is a step of the procedure STATIC_GENERAL", "\"Initial\""},
         false},
        {R"({"command": "setValuesInStep", "adaptiveMeshConstraint": "Still", "stepName": "Shake", "u1": 1})",
         "kpr 185",
         {"passed over"},
         false},
        {R"({"command": "setValues", "adaptiveMeshConstraint": "Still", "u1": 1})", "kpr 190", {"\"Still\" in step \"Initial\""}, false},
        {R"({"command": "setValues", "adaptiveMeshConstraint": "Still", "amplitude": ""})", "kpr 207", {"empty"}},
        {R"({"command": "VelocityAdaptiveMeshConstraint", "name": "Still", "createStepName": "Press"})",
         "kpr 189",
         {"\"Still\""},
         false}}));

INSTANTIATE_TEST_SUITE_P(
    OfSteps, Refusals,
    ::testing::ValuesIn(std::vector<RefusedLine>{
        {R"({"command": "StaticStep"})", kKey, {"StaticStep: The argument \"name\" is missing"}},
        {R"({"command": "StaticStep", "name": 7})", kValue, {"\"name\" is a text, not 7"}},
        {R"({"command": "StaticStep", "name": "Hold", "initialInc": 0.1})", "kpr 46", {"There is a step \"Hold\" already."}, false},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 0.1, "previous": "Relase"})",
         "kpr 81",
         {"\"previous\"", "Did you mean \"Release\"?"}},
        {R"({"command": "StaticStep", "name": "X", "maintainAttributes": true})", "kpr 139", {"\"replace\""}, false},
        {R"({"command": "StaticStep", "name": "X", "initalInc": 1})", kKey, {"no argument \"initalInc\"", "\"initialInc\""}},
        {R"({"command": "StaticStep", "name": "X", "initialInc": "big"})", kValue, {"\"initialInc\": \"big\"; expected a finite number"}},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 0.1, "maxNumInc": 1.5})",
         kValue,
         {"\"maxNumInc\": 1.5; expected a 32-bit integer"}},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 0.1, "maxNumInc": 3000000000})", kValue, {"expected a 32-bit integer"}},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 0.1, "noStop": 1})", kValue, {"expected true or false"}},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 0.1, "nlgeom": "YES"})", kValue, {"\"ON\"", "\"OFF\""}},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 0.1, "extrapolation": "PARABOLA"})",
         kValue,
         {"Did you mean \"PARABOLIC\"?"}},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 0})", "kpr 71", {"StaticStep \"X\": Initial increment"}, false},
        {R"({"command": "StaticStep", "name": "X", "initialInc": 2})", "kpr 75", {"[kpr 75]"}, false},
        {R"({"command": "FrequencyStep", "name": "X", "numEigen": "all"})",
         kValue,
         {"a 32-bit integer or \"ALL\"", "Did you mean \"ALL\"?"}},
        {R"({"command": "SteadyStateDirectStep", "name": "X", "frequencyRange": 3})",
         kValue,
         {"a list, each an object with named members"}},
        {R"({"command": "SteadyStateDirectStep", "name": "X", "frequencyRange": [{"uper": 2}]})",
         kValue,
         {"\"frequencyRange\"", "no member \"uper\"", "lower, upper"}},
        {R"({"command": "SteadyStateDirectStep", "name": "X", "frequencyRange": [{"upper": "x"}]})",
         kValue,
         {"\"frequencyRange\"", "\"upper\"", "a finite number"}},
        {R"({"command": "AnnealStep", "name": "X"})", "kpr 50", {"ANNEAL"}, false},
        {R"({"command": "AnnealStep", "name": "X", "previous": "Initial"})", "kpr 50", {}, false},
        {R"({"command": "replace", "step": "Press", "procedure": "ImplicitDynamicsStep", "initialInc": 0.1, "haftol": 1})",
         "kbc 19",
         {"replace step \"Press\""},
         false},
        {R"({"command": "ExplicitDynamicsStep", "name": "X", "massScaling": [{"dt": 1e-6}, {"dt": 1e-6, "region": "Dye"}]})",
         kKey,
         {"ExplicitDynamicsStep \"X\", \"massScaling\": There is no region \"Dye\". Did you mean \"Die\"?"}},
        {R"({"command": "replace", "step": "Hold", "procedure": "StaticRiksStep", "region": "Tip"})", kKey, {"no region \"Tip\""}},
        {R"({"command": "replace", "step": "Hold", "procedure": "Static"})", kKey, {"Did you mean \"StaticStep\"?"}},
        {R"({"command": "replace", "step": "Initial", "procedure": "StaticStep", "initialInc": 0.1})", "kpr 143", {}, false},
        {R"({"command": "setValues", "step": "Hold", "initialInc": -1})", "kpr 71", {"setValues step \"Hold\""}, false},
        {R"({"command": "setValues", "step": "Hold", "name": "Keep"})", kKey, {"no argument \"name\""}},
        {R"({"command": "setValues", "step": "Hald", "initialInc": 1})", "kpr 81", {"Did you mean \"Hold\"?"}},
        {R"({"command": "rename", "step": "Hold", "newName": "Press"})", "kpr 46", {"There is a step \"Press\" already."}, false},
        {R"({"command": "rename", "step": "Hold", "newName": ""})", kValue, {"\"newName\" is empty"}},
        {R"({"command": "rename", "step": "Initial", "newName": "First"})", "kpr 46", {}, false},
        {R"({"command": "delete", "step": "Initial"})", "kpr 46", {}, false}}));

INSTANTIATE_TEST_SUITE_P(
    OfBoundaryConditions, Refusals,
    ::testing::ValuesIn(std::vector<RefusedLine>{
        {R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "Hold"})", "kbc 5", {"boundaryCondition \"Fix\""}, false},
        {R"({"command": "DisplacementBC", "name": "", "createStepName": "Hold"})", kValue, {"\"name\" is empty"}},
        {R"({"command": "DisplacementBC", "name": "New"})", kKey, {"\"createStepName\" is missing"}},
        {R"({"command": "DisplacementBC", "name": "New", "stepName": "Hold"})", kKey, {"\"createStepName\" is missing"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hodl"})", "kbc 7", {"in step \"Hodl\"", "\"Hold\"?"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "v1": 0})", kKey, {"\"v1\"", "Did you mean \"u1\"?"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "deactivate": true})", kKey, {"\"deactivate\""}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "u1": "far"})", "kbc 36", {"\"u1\"", "finite number"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "u1": true})", "kbc 36", {"\"u1\""}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "fixed": 1})", "kbc 34", {"true or false"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "buckleCase": "ALL"})", kValue, {"expected one of"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "region": "Dye"})",
         kKey,
         {"no region \"Dye\"", "\"Die\"?"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "region": 4})", kValue, {"the name of a region"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "region": {"name": "Dye"}})",
         kKey,
         {"no region \"Dye\"", "\"Die\"?"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "region": {"name": "Die", "dimension": 1}})",
         kValue,
         {"is declared with another \"dimension\""}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "amplitude": 4})", "kbc 35", {"\"amplitude\""}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "amplitude": "Rump"})", "kbc 35", {"\"Ramp\"?"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "amplitude": ""})", "kbc 23", {"\"amplitude\""}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "u1": "FREED"})", "kbc 20", {"\"u1\""}, false},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "u1": "PROPAGATED"})", "kbc 8", {"\"u1\""}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "fieldName": "Bog"})", "kbc 60", {"\"Bow\"?"}},
        {R"({"command": "DisplacementBC", "name": "New", "createStepName": "Hold", "distributionType": "LINE"})", kValue, {"\"UNIFORM\""}},
        {R"({"command": "ConnDisplacementBC", "name": "New", "createStepName": "Hold", "connectors": ["Hinge", "Hing"], "u1": 1})",
         kKey,
         {"\"connectors\": There is no connector \"Hing\". Did you mean \"Hinge\"?"}},
        {R"({"command": "ConnDisplacementBC", "name": "New", "createStepName": "Hold", "connectors": ["Hinge"], "u2": 1})",
         kText,
         {"u2"},
         false},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Fx", "stepName": "Hold", "u1": 1})", "kbc 0", {"\"Fix\"?"}},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Hodl", "u1": 1})", "kbc 7", {"\"Hold\"?"}},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Push", "stepName": "Initial", "u1": 0})",
         "kbc 0",
         {"not yet created", "\"Press\""},
         false},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Push", "stepName": "Hold", "region": "Die"})", kKey, {"\"region\""}},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Push", "stepName": "Hold", "u2": "UNSET"})", "kbc 22", {"\"u2\""}, false},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Push", "stepName": "Hold", "u2": null})", kValue, {"\"u2\"", "\"FREED\""}},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Rest", "stepName": "Hold", "u1": 1})", "kbc 53", {"\"Rest\""}, false},
        {R"({"command": "setValues", "boundaryCondition": "Rest", "region": "Die"})", "kbc 53", {}, false},
        {R"({"command": "deactivate", "boundaryCondition": "Rest", "stepName": "Hold"})", "kbc 53", {}, false},
        {R"({"command": "setValuesInStep", "boundaryCondition": "Clamp", "stepName": "Hold", "typeName": "PINNED"})", "kbc 46", {}, false},
        {R"({"command": "setValues", "boundaryCondition": "Clamp", "typeName": "PINED"})", "kbc 37", {"\"typeName\"", "\"PINNED\""}},
        {R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Hodl"})", "kbc 3", {"Unknown step type.", "\"Hold\"?"}},
        {R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "Hold", "u1": 2})", kKey, {"no argument \"u1\""}},
        {R"({"command": "reset", "boundaryCondition": "Push", "stepName": "Nowhere"})", "kbc 3", {"Steps: \"Initial\""}},
        {R"({"command": "remove", "boundaryCondition": "Push", "stepName": "Nowhere"})", "kbc 7", {}},
        {R"({"command": "move", "boundaryCondition": "Push", "fromStepName": "Hold", "toStepName": "Relese"})", "kbc 3", {"\"Release\"?"}},
        {R"({"command": "move", "boundaryCondition": "Push", "fromStepName": "Hold", "toStepName": "Release"})",
         "kbc 18",
         {"in step \"Hold\"", "The boundary condition is propagated in step: Hold."},
         false},
        {R"({"command": "rename", "boundaryCondition": "Push", "newName": "Fix"})", "kbc 5", {"boundaryCondition \"Fix\""}, false}}));

INSTANTIATE_TEST_SUITE_P(
    OfLoads, Refusals,
    ::testing::ValuesIn(std::vector<RefusedLine>{
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Initial", "cf1": 1})", "klo 2", {"\"New\""}, false},
        {R"({"command": "Pressure", "name": "Pull", "createStepName": "Hold", "magnitude": 1})", "klo 5", {"load \"Pull\""}, false},
        {R"({"command": "rename", "load": "Late", "newName": "Pull"})", "klo 5", {"load \"Pull\""}, false},
        {R"({"command": "deactivate", "load": "Pul", "stepName": "Hold"})", "klo 4", {"Did you mean \"Pull\"?"}},
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Hodl", "cf1": 1})", "klo 31", {"\"Hold\"?"}},
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Hold", "magnitude": 1})", kKey, {"\"magnitude\""}},
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Hold", "region": "Dye"})", kKey, {"\"Die\"?"}},
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Hold", "cf1": "much"})", "klo 21", {"finite number"}},
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Hold", "cf1": "PROPAGATED"})", "klo 21", {"\"cf1\""}},
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Hold", "amplitude": 4})", "klo 17", {"\"amplitude\""}},
        {R"({"command": "ConcentratedForce", "name": "New", "createStepName": "Hold", "amplitude": "Rump"})", "klo 17", {"\"Ramp\"?"}},
        {R"({"command": "Pressure", "name": "New", "createStepName": "Hold", "magnitude": 1, "fieldName": "Bog"})", "klo 71", {"\"Bow\"?"}},
        {R"({"command": "Pressure", "name": "New", "createStepName": "Hold", "magnitude": 1, "distType": "ROUND"})",
         "klo 21",
         {"\"HYDROSTATIC\""}},
        {R"({"command": "ConcentratedHeatFlux", "name": "New", "createStepName": "Hold", "dof": 1.5})", "klo 40", {"32-bit integer"}},
        {R"({"command": "SurfaceTraction", "name": "New", "createStepName": "Hold", "magnitude": 1, "directionVector": [1, 2, 3]})",
         "klo 21",
         {"a list of rows of one length, each value a finite number"}},
        {R"({"command": "setValuesInStep", "load": "Pull", "stepName": "Shake", "cf1": 1})",
         "klo 12",
         {"in base state", "edited in \"Release\""},
         false},
        {R"({"command": "setValuesInStep", "load": "Late", "stepName": "Hold", "cf1": 1})",
         "klo 32",
         {"not yet created", "\"Release\""},
         false},
        {R"({"command": "setValuesInStep", "load": "Pull", "stepName": "Hodl", "cf1": 1})", "klo 31", {"\"Hold\"?"}},
        {R"({"command": "setValuesInStep", "load": "Idle", "stepName": "Hold", "magnitude": 1})", "klo 61", {"\"Idle\""}, false},
        {R"({"command": "setValues", "load": "Idle", "magnitude": 1})", "klo 61", {}, false},
        {R"({"command": "move", "load": "Late", "fromStepName": "Hold", "toStepName": "Press"})",
         "klo 13",
         {"in step \"Hold\"", "not yet created there"},
         false},
        {R"({"command": "move", "load": "Late", "fromStepName": "Release", "toStepName": "Shake"})",
         "klo 25",
         {"in step \"Shake\""},
         false},
        {R"({"command": "move", "load": "Idle", "fromStepName": "Press", "toStepName": "Hold"})", "klo 61", {}, false},
        {R"({"command": "BoltLoad", "name": "New", "createStepName": "Press", "region": "Shank", "magnitude": 1})", "klo 39", {}, false},
        {R"({"command": "setValues", "load": "Stud", "region": "Shank"})", "klo 39", {}, false},
        {R"({"command": "setValues", "region": "Washer", "instanceKind": "SOLID"})",
         "klo 39",
         {"That is what load \"Stud\" refuses."},
         false},
        {R"({"command": "StaticStep", "name": "New", "previous": "Initial", "initialInc": 0.1})", "klo 37", {}, false}}));

INSTANTIATE_TEST_SUITE_P(
    OfWhatAttributesReferTo, Refusals,
    ::testing::ValuesIn(std::vector<RefusedLine>{
        {R"({"command": "Set", "name": "Die"})", kValue, {"There is a region \"Die\" already"}},
        {R"({"command": "Surface", "name": "Die"})", kValue, {"There is a region \"Die\" already"}},
        {R"({"command": "Set", "name": "New", "kind": "SURFACE"})", kKey, {"no argument \"kind\""}},
        {R"({"command": "Set", "name": "New", "instanceKind": "SHEL"})", kValue, {"Did you mean \"SHELL\"?"}},
        {R"({"command": "delete", "region": "Die"})", kText, {"in use by boundaryCondition \"Clamp\", boundaryCondition \"Fix\""}, false},
        {R"({"command": "delete", "amplitude": "Ramp"})", kText, {"in use by boundaryCondition \"Push\""}, false},
        {R"({"command": "delete", "field": "Bow"})", kText, {"in use by boundaryCondition \"Rest\""}, false},
        {R"({"command": "delete", "amplitude": "Rmp"})", kKey, {"no amplitude \"Rmp\"", "Did you mean \"Ramp\"?"}},
        {R"({"command": "Connector", "name": "Hinge"})", kValue, {"There is a connector \"Hinge\" already"}},
        {R"({"command": "Connector", "name": "Pin", "components": [1, 0, 7, 1]})",
         kValue,
         {"Connector \"Pin\"", "from 1 to 6, each at most once, not 0, 7, 1 again."},
         false},
        {R"({"command": "setValues", "connector": "Hinge", "components": [-1]})", kValue, {"not -1."}, false},
        {R"({"command": "setValues", "connector": "Hinge", "components": 1})", kValue, {"a list, each a 32-bit integer"}},
        {R"({"command": "delete", "connector": "Hing"})", kKey, {"Did you mean \"Hinge\"?"}},
        {R"({"command": "suppress", "region": "Die"})", kKey, {"\"suppress\" is no command on a region"}}}));

class WaysOut : public CommandTest {};

TEST_F(WaysOut, StandInTheMessageOfATypicalMistake) {
  Session session;
  RunJournal(
      session,
      {R"({"command": "StaticStep", "name": "Grip", "nlgeom": "ON"})", R"({"command": "StaticStep", "name": "Form", "nlgeom": "ON"})",
       R"({"command": "StaticStep", "name": "Spring", "nlgeom": "ON"})", R"({"command": "FrequencyStep", "name": "Modes", "numEigen": 5})",
       R"({"command": "ModalDynamicsStep", "name": "Ring"})",
       R"({"command": "DisplacementBC", "name": "Punch", "createStepName": "Grip", "u1": 1})",
       R"({"command": "setValuesInStep", "boundaryCondition": "Punch", "stepName": "Form", "u1": 2})",
       R"({"command": "ConcentratedForce", "name": "Fluid", "createStepName": "Grip", "cf1": 1})"});
  struct Mistake {
    char const *command, *wayOut;
  };
  for (
      auto const& [command, wayOut] : {
          Mistake{R"({"command": "setValuesInStep", "boundaryCondition": "Punch", "stepName": "Ring", "u1": 3})",
                  "The boundary condition is built in in step: Ring. (held by"},
          Mistake{R"({"command": "setValuesInStep", "boundaryCondition": "Punch", "stepName": "Ring", "u1": 3})", "edited in \"Modes\""},
          Mistake{R"({"command": "move", "boundaryCondition": "Punch", "fromStepName": "Grip", "toStepName": "Spring"})",
                  "In \"Form\" it is modified: remove that first."},
          Mistake{R"({"command": "delete", "step": "Modes"})", "\"Ring\" behind it could not follow"},
          Mistake{R"({"command": "StaticStep", "name": "X", "previous": "Spring"})", "\"ON\" since \"Grip\": give \"nlgeom\": \"ON\"."},
          Mistake{R"({"command": "StaticStep", "name": "X", "nlgeom": "ON", "previous": "Grip", "initialInc": 2})",
                  "\"timePeriod\" 1, \"initialInc\" 2"},
          Mistake{R"({"command": "EncastreBC", "name": "X", "createStepName": "Ring"})",
                  "MODAL_DYNAMICS, which does not take this type; steps that do: \"Initial\""},
          Mistake{R"({"command": "setValuesInStep", "boundaryCondition": "Punch", "stepName": "Form", "u1": "UNSET"})", "\"FREED\""},
          Mistake{R"({"command": "reset", "boundaryCondition": "Punch", "stepName": "Form"})", "taken back by \"remove\""},
          Mistake{R"({"command": "suppress", "boundaryCondition": "Fluid"})", "\"Fluid\" is a load."},
          Mistake{R"({"command": "activate", "boundaryCondition": "Punch", "stepName": "Form"})", "Did you mean \"reset\"?"},
          Mistake{R"({"command": "modify", "boundaryCondition": "Punch"})", "Did you mean \"setValuesInStep\"?"},
          Mistake{R"({"command": "StaticGeneralStep", "name": "X"})", "Did you mean \"StaticStep\"?"},
          Mistake{R"({"command": "Force", "name": "X"})", "Did you mean \"ConcentratedForce\"?"},
          Mistake{R"({"command": "StaticStep", "name": "X", "initialIncrement": 1})", "Did you mean \"initialInc\"?"},
          Mistake{R"({"command": "deactivate", "boundaryCondition": "Punch", "stepName": "Springback"})", "Did you mean \"Spring\"?"},
          Mistake{
              R"({"command": "SteadyStateDirectStep", "name": "X", "frequencyRange": [{"lower": 1, "upper": 2}, {"lower": 9, "upper": 5}]})",
              "Expected 0 <= \"lower\" <= \"upper\". Number 2 of \"frequencyRange\" is {\"lower\":9.0,\"upper\":5.0"},
          Mistake{R"({"command": "HeatTransferStep", "name": "X", "previous": "Initial"})", "want \"deltmx\" above 0"},
          Mistake{R"({"command": "setValuesInStep", "load": "Fluid", "stepName": "Form", "amplitude": "UNSET"})",
                  "[klo 17] \"FREED\" gives a value up"},
          Mistake{R"({"command": "ShellEdgeLoad", "name": "X", "createStepName": "Grip", "traction": "MOMENT", "direction": "SHEAR"})",
                  "\"MOMENT\" and \"SHEAR\" do not go together"},
      }) {
    EXPECT_THAT(session.Execute(Line(command)).message, HasSubstr(wayOut)) << command;
  }
}

class Editing : public CommandTest {};

TEST_F(Editing, TakesWhatPeopleWrite) {
  Session session;
  RunJournal(session, kModel);
  for (
      char const* command : {
          R"({"command": "SteadyStateDirectStep", "name": "Tone", "frequencyRange": [{"lower": 50, "upper": 50, "nPoints": 1}, {"lower": 0, "upper": 9}]})",
          R"({"command": "BuckleStep", "name": "Buckle", "blockSize": "DEFAULT", "maxBlocks": "DEFAULT", "numEigen": "ALL"})",
          R"({"command": "setValues", "step": "Initial", "description": "as delivered"})",
          R"({"command": "ShellEdgeLoad", "name": "Rim", "createStepName": "Press", "magnitude": 1, "traction": "MOMENT"})",
          R"({"command": "setValuesInStep", "load": "Rim", "stepName": "Hold", "direction": "SHEAR", "traction": "SHEAR"})",
          R"({"command": "setValuesInStep", "load": "Rim", "stepName": "Release", "traction": "NORMAL", "amplitude": ""})",
          R"({"command": "setValuesInStep", "load": "Pull", "stepName": "Hold", "amplitude": ""})",
          R"({"command": "setValuesInStep", "load": "Pull", "stepName": "Release", "amplitude": "FREED"})",
      }) {
    EXPECT_EQ(session.Execute(Line(command)).message, "") << command;
  }
  auto const member = [&](char const* load, std::size_t step, char const* name) {
    return session.Model().ConstGet<kprC_StepAwareRepository>("loads").ConstItem(cow_String(load))->StateAt(step)->Member(name);
  };
  EXPECT_EQ(member("Pull", 1, "amplitude"), cls_Value("Ramp"));
  EXPECT_EQ(member("Pull", 2, "amplitude"), cls_Value(""));
  EXPECT_EQ(member("Pull", 3, "amplitude"), cls_Value("FREED"));
  EXPECT_EQ(member("Rim", 2, "traction"), member("Rim", 2, "direction"));

  Session rolling;
  RunJournal(rolling, {R"({"command": "ExplicitDynamicsStep", "name": "Roll", "massScaling": [{"dt": 1e-6, "region": "MODEL"}]})",
                       R"({"command": "ExplicitDynamicsStep", "name": "Cut", "massScaling": "PREVIOUS_STEP"})"});
}

TEST_F(Editing, SaysThatThereAreNoAttributesAtAll) {
  Session session;
  EXPECT_EQ(session.Execute(Line(R"({"command": "suppress", "load": "Pull"})")).refused.message, "There are no loads defined.");
  Outcome const outcome = session.Execute(Line(R"({"command": "suppress", "boundaryCondition": "Fix"})"));
  EXPECT_EQ(outcome.refused.code, 2);
  EXPECT_EQ(outcome.refused.message, "There are no boundary conditions.");
  EXPECT_EQ(outcome.refused.exception, "nex_TextException");
}

TEST_F(Editing, RefusesNumbersThatAreNone) {
  Session session;
  RunJournal(session, kModel);
  for (double const value : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    Outcome const outcome = session.Execute(cls_Value::Fields{{"command", "setValues"}, {"boundaryCondition", "Fix"}, {"u1", value}});
    EXPECT_EQ(outcome.refused.code, 36) << value;
    EXPECT_THAT(outcome.message, HasSubstr("\"u1\""));
  }
}

TEST_F(Editing, TakesAnyTextAsAName) {
  Session session;
  RunJournal(session, {R"({"command": "StaticStep", "name": "Größe <b>1</b>", "initialInc": 0.1})",
                       R"({"command": "DisplacementBC", "name": "\u001b[31m\n\"рука\"", "createStepName": "Größe <b>1</b>", "u1": 0})",
                       R"({"command": "deactivate", "boundaryCondition": "\u001b[31m\n\"рука\"", "stepName": "Größe <b>1</b>"})"});
  EXPECT_EQ(HistoryOf(session, "\x1b[31m\n\"рука\""), "0 4");
  EXPECT_EQ(session.UndoLabel(), "deactivate boundaryCondition \"\\u001b[31m\\n\"рука\"\"") << "a label cannot steer a terminal";
  for (cls_Value const& value : {cls_Value("\xC3\x28"), cls_Value(cls_Value::Fields{{"in", cls_Value::List{1, "\xC3\x28"}}})}) {
    Outcome const outcome = session.Execute(cls_Value::Fields{{"command", "StaticStep"}, {"name", "B"}, {"description", value}});
    EXPECT_THAT(outcome.message, HasSubstr("\"description\" is not UTF-8"));
  }
}

TEST_F(Editing, CompletesTheBoundsOfAStepsIncrements) {
  Session session;
  RunJournal(session,
             {R"({"command": "StaticStep", "name": "B", "initialInc": 0.1})",
              R"({"command": "StaticStep", "name": "C", "initialInc": 0.1, "timePeriod": 10, "maxInc": 0.5})",
              R"({"command": "StaticStep", "name": "D", "initialInc": 1e-7, "maxInc": 1e-7})",
              R"({"command": "StaticStep", "name": "E", "timePeriod": 4})", R"({"command": "StaticStep", "name": "F", "maxInc": 0.2})"});
  kprC_StepTable const& steps = BoundaryConditions(session).Steps();
  auto const member = [&](std::size_t step, char const* name) { return *steps[step].procedure->Member(name).As<double>(); };
  EXPECT_EQ(member(1, "maxInc"), 1.0);
  EXPECT_EQ(member(1, "minInc"), 1e-5);
  EXPECT_EQ(member(2, "maxInc"), 0.5);
  EXPECT_EQ(member(2, "minInc"), 1e-4);
  EXPECT_EQ(member(3, "minInc"), 1e-7);
  EXPECT_EQ(member(4, "initialInc"), 4.0);
  EXPECT_EQ(member(5, "initialInc"), 0.2);
}

TEST_F(Editing, HandsTheWholeRegionToTheAttributesThatUseIt) {
  Session session;
  RunJournal(session, kModel);
  auto const region = [&](char const* name) { return BoundaryConditions(session).ConstItem(name)->Regions(rgnC_Set)[0]; };
  EXPECT_EQ(region("Fix").Dimension(), 2);
  RunJournal(session, {R"({"command": "setValues", "region": "Die", "dimension": 3, "instanceKind": "SOLID"})",
                       R"({"command": "rename", "region": "Die", "newName": "Stamp"})"});
  for (char const* name : {"Fix", "Clamp"}) {
    EXPECT_EQ(region(name).Name(), "Stamp");
    EXPECT_EQ(region(name).Dimension(), 3);
    EXPECT_EQ(region(name).InstanceKind(), rgnC_Solid);
  }
  RunJournal(session, {R"({"command": "setValues", "boundaryCondition": "Fix", "region": null})",
                       R"({"command": "delete", "boundaryCondition": "Clamp"})", R"({"command": "delete", "region": "Stamp"})"});
}

TEST_F(Editing, SetsTheAttributesOwnMembersAndThoseOfItsCreateStepTogether) {
  Session session;
  RunJournal(session, kModel);
  RunJournal(session, {R"({"command": "setValues", "boundaryCondition": "Push", "region": "Die", "localCsys": "Wheel", "u2": -2,
                           "amplitude": null})"});
  kprC_StepDependent const& push = *BoundaryConditions(session).ConstItem("Push");
  EXPECT_EQ(push.Member("csys"), cls_Value("Wheel"));
  EXPECT_EQ(push.StateAt(1)->Member("u2"), cls_Value(-2.0));
  EXPECT_EQ(push.StateAt(3)->Member("u2"), cls_Value(-2.0));
  EXPECT_EQ(push.Amplitudes().Size(), 0U);
}

TEST_F(Editing, RenamesAttributesAndSteps) {
  Session session;
  session.SetTrace(true);
  RunJournal(session, kModel);
  Outcome const renamed = session.Execute(Line(R"({"command": "rename", "boundaryCondition": "Push", "newName": "Drive"})"));
  ASSERT_EQ(renamed.history.size(), 1U);
  EXPECT_EQ(renamed.history[0].first, "Drive");
  EXPECT_TRUE(session.Execute(Line(R"({"command": "rename", "load": "Pull", "newName": "Drive"})")).ok);
  Outcome const step = session.Execute(Line(R"({"command": "rename", "step": "Press", "newName": "Form"})"));
  EXPECT_EQ(step.history.size(), 13U) << "a command on a step tells of every attribute";
  std::set<std::string> names;
  for (auto const& [name, statuses] : step.history) { names.insert(name); }
  EXPECT_EQ(names.size(), 13U);
  EXPECT_TRUE(names.contains(R"(load "Drive")") && names.contains(R"(boundaryCondition "Drive")")) << "told apart by their kind";
  EXPECT_EQ(BoundaryConditions(session).ConstItem("Drive")->CreateStepName(), "Form");
}

}  // namespace
}  // namespace gattr
