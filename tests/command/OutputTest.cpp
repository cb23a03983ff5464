#include <gmock/gmock.h>

#include "command/Check.h"
#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using ::testing::HasSubstr;

class OutputRequests : public CommandTest {
protected:
  OutputRequests() {
    AppendSteps(session_, "IGFG");
    RunJournal(
        session_,
        {R"({"command": "Connector", "name": "Hinge"})", R"({"command": "Connector", "name": "Weld"})",
         R"({"command": "Set", "name": "Mesh", "instanceKind": "ORPHAN_MESH"})", R"({"command": "Filter", "name": "Low-Pass"})",
         R"({"command": "TimePoint", "name": "Stops", "points": [[0.5], [1.0]]})",
         R"j({"command": "IntegratedOutputSection", "name": "Cut", "localCsys": "(Global)"})j",
         R"({"command": "BoltLoad", "name": "Bolt", "createStepName": "S1", "magnitude": 1})",
         R"({"command": "ConcentratedForce", "name": "Push", "createStepName": "S1", "cf1": 1})",
         R"({"command": "ContactProperty", "name": "Dry"})",
         R"({"command": "SelfContactStd", "name": "Fold", "createStepName": "S1", "interactionProperty": "Dry"})",
         R"({"command": "ElasticFoundation", "name": "Bed", "createStepName": "Initial", "stiffness": 1})",
         R"({"command": "FieldOutputRequest", "name": "Fields", "createStepName": "S1", "variables": ["S", "U"]})",
         R"({"command": "HistoryOutputRequest", "name": "Tension", "createStepName": "S1", "boltLoad": "Bolt", "variables": ["TF1"]})"});
  }
  /// A request that is made in S1, or edited where \p rest names one.
  std::string Refused(std::string_view command, std::string_view rest) {
    std::string const made = R"(, "name": "New", "createStepName": "S1")";
    std::string const line =
        R"({"command": ")" + std::string(command) + '"' + (command.ends_with("Request") ? made : "") + std::string(rest) + "}";
    ddr_Model const before = session_.Model();
    Outcome const outcome = session_.Execute(Line(line));
    EXPECT_EQ(outcome.ok, !session_.Model().Equals(before)) << line;
    if (outcome.ok) { session_.Undo(); }
    return outcome.ok ? "" : outcome.message;
  }
  cls_Value Member(char const* extension, char const* name, std::size_t step, char const* member) const {
    return session_.Model().ConstGet<kprC_StepAwareRepository>(extension).ConstItem(name)->StateAt(step)->Member(member);
  }
  Session session_;
};

TEST_F(OutputRequests, IsRefusedByNumberWhatTheModelOrTheStepDoesNotHave) {
  constexpr char const *field = "FieldOutputRequest", *history = "HistoryOutputRequest";
  struct {
    char const *command, *rest, *refused;
  } const rows[] = {
      {history, R"(, "boltLoad": "Bot", "variables": ["U"])", "[kor 21]"},
      {history, R"(, "boltLoad": "Push", "variables": ["U"])", "[kor 22]"},
      {history, R"(, "boltLoad": "Bolt", "variables": ["ALLEN"])", "[kor 23]"},
      {history, R"(, "boltLoad": "Bolt", "variables": ["U"])", ""},
      {history, R"(, "connectors": ["Hinge", "Weld"], "variables": ["CU"])", "[kor 59]"},
      {history, R"(, "connectors": ["Hnge"], "variables": ["CU"])", "Did you mean \"Hinge\"?"},
      {history, R"(, "interactions": ["Fold", "Bed"], "variables": ["CFN"])", "[kor 60]"},
      {history, R"(, "interactions": ["Bed"], "variables": ["CFN"])", "[kor 61]"},
      {history, R"(, "interactions": ["Fold"], "variables": ["CFN"])", ""},
      {history, R"(, "filter": "Low-Pass")", "[kor 74]"},
      {field, R"(, "filter": "Low-Pas")", "Did you mean \"Low-Pass\"?"},
      {history, R"(, "integratedOutputSection": "Cut")", "[kor 75]"},
      {field, R"(, "region": "Mesh", "variables": ["CSTRESS"])", "[kor 78]"},
      {field, R"(, "region": "Mesh", "variables": ["S"])", ""},
      {field, R"(, "region": "Mesh", "variables": "CONTACT_PRESELECT")", "[kor 78]"},
      {history, R"(, "connectors": ["Hinge"], "variables": "CONTACT_PRESELECT")", "[kor 65]"},
      {history, R"(, "variables": ["MASS"])", ""},
      {history, R"(, "variables": ["U"])", "[kor 17]"},
      {field, R"(, "frequency": 3, "timeInterval": 0.5)", "[kor 11]"},
      {field, R"(, "frequency": 3, "timeInterval": 0.5, "type": "TIME_INTERVAL")", ""},
      {field, R"(, "outputAtPlyTop": true)", "[kor 79]"},
      {field, R"(, "layupLocationMethod": "TOP")", "[kor 80]"},
      {field, R"(, "variables": ["S", "Misses"])", "[kor 12]"},
      {field, R"(, "variables": "RADIATION_ALL")", "[kor 58]"},
      {field, R"(, "variables": "NO_OUTPUT_VARIABLES")", "[kor 54]"},
      {field, R"(, "modes": [])", "[kor 48]"},
      {field, R"(, "modes": [1])", "[kor 43]"},
      {field, R"(, "timePoint": "Stps")", "Did you mean \"Stops\"?"},
      {field, R"(, "timePoint": "Stops", "timeMarks": true)", ""},
      {"setValuesInStep", R"(, "fieldOutputRequest": "Fields", "stepName": "S2", "frequency": 2)", "[kor 31]"},
      {"setValuesInStep", R"(, "fieldOutputRequest": "Fields", "stepName": "Initial", "frequency": 2)", "[kor 41]"},
      {"setValuesInStep", R"(, "fieldOutputRequest": "Fields", "stepName": "S9", "frequency": 2)", "[kor 40]"},
      {"setValuesInStep", R"(, "fieldOutputRequest": "Felds", "stepName": "S3", "frequency": 2)", "[kor 5]"},
      {"setValuesInStep", R"(, "fieldOutputRequest": "Fields", "stepName": "S3", "variables": ["CONC"])", "[kor 45]"},
      {"copy", R"(, "fieldOutputRequest": "Felds", "newName": "More")", "[kor 20]"},
      {"deactivate", R"(, "fieldOutputRequest": "Fields", "stepName": "S2")", "[kor 29]"},
      {"delete", R"(, "load": "Bolt")", "in use by historyOutputRequest \"Tension\""},
      {"delete", R"(, "interaction": "Fold")", ""},
  };
  for (auto const& row : rows) {
    std::string const message = Refused(row.command, row.rest);
    EXPECT_EQ(message.empty(), *row.refused == '\0') << row.rest << " " << message;
    EXPECT_THAT(message, HasSubstr(row.refused)) << row.rest;
  }
  RunJournal(session_, {R"({"command": "suppress", "fieldOutputRequest": "Fields"})"});
  EXPECT_THAT(Refused("setValues", R"(, "fieldOutputRequest": "Fields", "frequency": 2)"), HasSubstr("[kor 67]"));
}

TEST_F(OutputRequests, FollowsWhatItNamesToAnotherName) {
  RunJournal(session_, {R"({"command": "rename", "load": "Bolt", "newName": "Stud"})",
                        R"({"command": "rename", "timePoint": "Stops", "newName": "Halts"})",
                        R"({"command": "setValues", "historyOutputRequest": "Tension", "frequency": 3})"});
  for (Finding const& finding : Check(session_.Model())) { EXPECT_EQ(finding.Row().severity, Severity::Warning) << finding.name; }
  EXPECT_EQ(session_.Model().ConstGet<kprC_StepAwareRepository>("historyOutputs").ConstItem("Tension")->Member("boltLoad"),
            cls_Value("Stud"));
  EXPECT_THAT(Refused("delete", R"(, "load": "Stud")"), HasSubstr("in use"));
}

TEST_F(OutputRequests, TakesASymbolForItsListAndTheValueThatSaysHowOftenForItsWay) {
  using List = cls_Value::List;
  RunJournal(
      session_,
      {R"({"command": "HistoryOutputRequest", "name": "Energies", "createStepName": "S1", "variables": "ENERGY_ALL", "timeInterval": 0.1})",
       R"({"command": "FieldOutputRequest", "name": "Shapes", "createStepName": "S2", "variables": ["U"], "modes": [1, 2]})",
       R"({"command": "FieldOutputRequest", "name": "Nodes", "createStepName": "S3", "variables": "NODE_PRESELECT"})",
       R"({"command": "setValuesInStep", "fieldOutputRequest": "Fields", "stepName": "S3", "variables": "PRESELECT", "numIntervals": 4})"});
  EXPECT_EQ(Member("historyOutputs", "Energies", 1, "variables"), cls_Value(List{"ALLEN"}));
  EXPECT_EQ(Member("historyOutputs", "Energies", 1, "type"), cls_Value("TIME_INTERVAL"));
  EXPECT_EQ(Member("fieldOutputs", "Shapes", 2, "type"), cls_Value("MODES"));
  EXPECT_EQ(Member("fieldOutputs", "Nodes", 3, "variables"), cls_Value(List{"U", "RF", "CF"}));
  EXPECT_EQ(Member("fieldOutputs", "Fields", 3, "variables"), cls_Value("PRESELECT"));
  EXPECT_EQ(Member("fieldOutputs", "Fields", 3, "type"), cls_Value("NUMBER_INTERVALS"));
}

TEST_F(OutputRequests, IsMadeToFitTheProcedureThatItsStepGets) {
  Session session;
  AppendSteps(session, "IHH");
  RunJournal(
      session,
      {R"({"command": "FieldOutputRequest", "name": "Heat", "createStepName": "S2", "variables": ["NT", "RFL"], "timeInterval": 0.5})",
       R"({"command": "FieldOutputRequest", "name": "Usual", "createStepName": "S2"})", R"({"command": "delete", "step": "S1"})"});
  std::string const replace = R"({"command": "replace", "step": "S2", "maintainAttributes": true, "procedure": )";
  Session other(session.Model());
  RunJournal(session, {replace + R"("StaticStep", "initialInc": 0.1})"});
  auto const* item = session.Model().ConstGet<kprC_StepAwareRepository>("fieldOutputs").ConstItem("Heat");
  EXPECT_EQ(item->StateAt(1)->Member("variables"), cls_Value(cls_Value::List{"NT"}));
  EXPECT_EQ(item->StateAt(1)->Member("type"), cls_Value("TIME_INTERVAL"));
  std::string const intoModes = replace + R"("FrequencyStep", "numEigen": 5})";
  EXPECT_EQ(other.Execute(Line(intoModes)).refused.code, 47) << "of its variables none is left";
  RunJournal(other, {R"({"command": "delete", "fieldOutputRequest": "Heat"})", intoModes});
  item = other.Model().ConstGet<kprC_StepAwareRepository>("fieldOutputs").ConstItem("Usual");
  EXPECT_EQ(item->StateAt(1)->Member("variables"), cls_Value("PRESELECT"));
  EXPECT_EQ(item->StateAt(1)->Member("type"), cls_Value("MODES"));

  Session energies;
  AppendSteps(energies, "IG");
  RunJournal(energies, {R"({"command": "HistoryOutputRequest", "name": "All", "createStepName": "S1"})"});
  Outcome const outcome = energies.Execute(
      Line(R"({"command": "replace", "step": "S1", "maintainAttributes": true, "procedure": "FrequencyStep", "numEigen": 5})"));
  EXPECT_EQ(outcome.refused.code, 47) << outcome.message;
  RunJournal(
      energies,
      {R"({"command": "replace", "step": "S1", "maintainAttributes": true, "procedure": "FrequencyStep", "numEigen": 5, "replacementPolicy": "DELETE"})"});
}

}  // namespace
}  // namespace gattr
