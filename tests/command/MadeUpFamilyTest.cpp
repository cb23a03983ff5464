#include "tests/support/MadeUpFamily.h"

#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

class MadeUpFamily : public test::madeup::WithMadeUpFamily {
protected:
  /// The statuses of an attribute, "0 1 2".
  std::string History(std::string_view extension, std::string_view name) const {
    std::string text;
    for (auto const status : session_.Model().ConstGet<kprC_StepAwareRepository>(extension).ConstItem(name)->History()) {
      text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(status));
    }
    return text;
  }
  Outcome Run(std::string_view line) { return session_.Execute(Line(line)); }
  void ExpectRefused(std::string_view line, std::string_view module, int code) {
    Outcome const outcome = Run(line);
    EXPECT_EQ(outcome.refused.module, module) << line;
    EXPECT_EQ(outcome.refused.code, code) << line;
  }

  Session session_;
};

TEST_F(MadeUpFamily, RestsByTheParametersOfAStepAndFollowsThem) {
  AppendSteps(session_, "IGPG");
  RunJournal(session_, {R"({"command": "Heater", "name": "H", "createStepName": "Initial", "magnitude": 1.0})",
                        R"({"command": "Heater", "name": "Late", "createStepName": "S1", "magnitude": 1.0})"});
  EXPECT_EQ(History("devices", "H"), "1 2 8 2");
  RunJournal(session_, {R"({"command": "setValues", "step": "S3", "adiabatic": true})"});
  EXPECT_EQ(History("devices", "H"), "1 2 8 14");
  EXPECT_EQ(History("devices", "Late"), "0 1 8 6");
  RunJournal(session_, {R"({"command": "resetToInitial", "device": "H", "stepName": "S1"})"});
  EXPECT_EQ(History("devices", "H"), "1 15 13 6");
  RunJournal(session_, {R"({"command": "resetToPropagated", "device": "H", "stepName": "S1"})", R"({"command": "undo"})",
                        R"({"command": "setValues", "step": "S3", "adiabatic": false})"});
  EXPECT_EQ(History("devices", "H"), "1 15 13 13");
}

TEST_F(MadeUpFamily, OffersTheOperationsOfItsPageAndNoOther) {
  AppendSteps(session_, "IGG");
  RunJournal(session_, {R"({"command": "Heater", "name": "A", "createStepName": "S1", "magnitude": 1.0})",
                        R"({"command": "Sampler", "name": "A", "createStepName": "S1", "magnitude": 1.0})",
                        R"({"command": "Rail", "name": "A", "createStepName": "S1", "magnitude": 1.0})",
                        R"({"command": "move", "device": "A", "fromStepName": "S1", "toStepName": "S2"})"});
  EXPECT_EQ(History("devices", "A"), "0 0 1");
  EXPECT_EQ(History("gauges", "A"), "0 1 2");
  Outcome const deactivated = Run(R"({"command": "deactivate", "device": "A", "stepName": "S2"})");
  EXPECT_FALSE(deactivated.ok);
  EXPECT_NE(deactivated.message.find("no command on a device"), std::string::npos) << deactivated.message;
  ExpectRefused(R"({"command": "resetToInitial", "gauge": "A", "stepName": "S1"})", "tst", 6);
  ExpectRefused(R"({"command": "resetToInitial", "guide": "A", "stepName": "S1"})", "kpr", 6);
}

TEST_F(MadeUpFamily, BeginsByTheProcedureOfItsStep) {
  AppendSteps(session_, "IGTG");
  RunJournal(session_, {R"({"command": "Sampler", "name": "Cold", "createStepName": "S1"})",
                        R"({"command": "Sampler", "name": "Hot", "createStepName": "S2"})"});
  EXPECT_EQ(History("gauges", "Cold"), "0 1 2 2");
  EXPECT_EQ(History("gauges", "Hot"), "0 0 1 6");
  RunJournal(session_, {R"({"command": "setValues", "gauge": "Hot", "hot": false})"});
  EXPECT_EQ(History("gauges", "Hot"), "0 0 1 2");
  ExpectRefused(R"({"command": "resetToInitial", "gauge": "Hot", "stepName": "S9"})", "tst", 0);
}

TEST_F(MadeUpFamily, CarriesListsElementByElement) {
  AppendSteps(session_, "IGGG");
  RunJournal(session_,
             {R"({"command": "Set", "name": "One"})", R"({"command": "Set", "name": "Two"})",
              R"({"command": "Pairing", "name": "P", "createStepName": "S1", "first": "One", "second": "Two", "gaps": [0.1, 0.2]})",
              R"({"command": "setValuesInStep", "device": "P", "stepName": "S2", "gaps": ["FREED"]})",
              R"({"command": "setValuesInStep", "device": "P", "stepName": "S3", "gaps": ["UNSET", "UNSET", 0.3]})",
              R"({"command": "setValues", "device": "P", "gaps": [0.1, 0.5]})"});
  auto const* pairing = session_.Model().ConstGet<kprC_StepAwareRepository>("devices").ConstItem("P");
  using List = cls_Value::List;
  EXPECT_EQ(pairing->StateAt(1)->Member("gaps"), cls_Value(List{0.1, 0.5}));
  EXPECT_EQ(pairing->StateAt(2)->Member("gaps"), cls_Value(List{"FREED", 0.5}));
  EXPECT_EQ(pairing->StateAt(3)->Member("gaps"), cls_Value(List{"UNSET", 0.5, 0.3}));
  EXPECT_EQ(pairing->Regions(rgnC_Set).Size(), 2U);
  RunJournal(session_, {R"({"command": "rename", "region": "Two", "newName": "Other"})"});
  pairing = session_.Model().ConstGet<kprC_StepAwareRepository>("devices").ConstItem("P");
  EXPECT_EQ(pairing->Member("second"), cls_Value("Other"));
}

}  // namespace
}  // namespace gattr
