#include <gmock/gmock.h>

#include "command/Check.h"
#include "module/kin/kinC_ContactProperty.h"
#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using ::testing::HasSubstr;

constexpr char const* kFriction = R"({"command": "ContactProperty", "name": "Friction",
    "tangentialBehavior": {"formulation": "PENALTY", "table": [[0.2]]}})";

class Properties : public CommandTest {
protected:
  Properties() { RunJournal(session_, {kFriction}); }

  kinC_ContactProperty const* Property(std::string_view name) const {
    auto const& properties = session_.Model().ConstGet<mdl_NamedObjects>(kinC_InteractionProperty::interactionPropertiesCmd());
    return dynamic_cast<kinC_ContactProperty const*>(properties.ConstObject(name));
  }
  /// The message with which a command is refused that must change nothing.
  std::string Refused(std::string_view command) {
    ddr_Model const before = session_.Model();
    Outcome const outcome = session_.Execute(Line(command));
    EXPECT_FALSE(outcome.ok) << command;
    EXPECT_TRUE(session_.Model().Equals(before)) << command;
    return outcome.message;
  }

  Session session_;
};

TEST_F(Properties, KeepWhatOfABehaviorIsNotGiven) {
  RunJournal(session_, {R"({"command": "setValues", "interactionProperty": "Friction",
                            "tangentialBehavior": {"fraction": 0.01}, "normalBehavior": {}})"});
  EXPECT_EQ(Property("Friction")->tangentialBehavior->table.ConstGet(0, 0), 0.2);
  EXPECT_EQ(Property("Friction")->tangentialBehavior->fraction, 0.01);
  EXPECT_TRUE(Property("Friction")->normalBehavior);
  RunJournal(session_, {R"({"command": "setValues", "interactionProperty": "Friction", "tangentialBehavior": null})"});
  EXPECT_FALSE(Property("Friction")->tangentialBehavior);
  RunJournal(session_, {R"({"command": "undo"})", R"({"command": "undo"})"});
  EXPECT_FALSE(Property("Friction")->normalBehavior);
  EXPECT_EQ(Property("Friction")->tangentialBehavior->table.Rows(), 1U);
}

TEST_F(Properties, AreRefusedWholeAndSayWhatIsWrong) {
  EXPECT_THAT(Refused(R"({"command": "setValues", "interactionProperty": "Friction", "geometricProperties": {"padThickness": 0.1},
                          "tangentialBehavior": {"fraction": 0}})"),
              HasSubstr("interactionProperty \"Friction\": Elastic slip tolerance fraction must be greater than zero. [kin 17]"));
  EXPECT_THAT(
      Refused(R"({"command": "ContactProperty", "name": "P", "damping": {"table": [["a"]]}})"),
      HasSubstr("\"damping\": Invalid value for \"table\": a list; expected a list of rows of one length, each value a finite number."));
  EXPECT_THAT(Refused(R"({"command": "ContactProperty", "name": "P", "damping": {"tabel": []}})"),
              HasSubstr("\"damping\": There is no member \"tabel\": expected one of definition, tangentFraction"));
  EXPECT_THAT(Refused(R"({"command": "ContactProperty", "name": "P", "damping": "much"})"),
              HasSubstr("expected an object with named members, or null"));
  EXPECT_THAT(Refused(kFriction), HasSubstr("\"Friction\" already."));
  EXPECT_THAT(Refused(R"({"command": "StdContactControls", "name": "C", "penetrationTolChoice": "ABSOLUTE"})"), HasSubstr("[kin 183]"));
}

TEST_F(Properties, TakeTheirUsersAlongAndAreKeptForThem) {
  RunJournal(session_, {R"({"command": "StaticStep", "name": "Press", "initialInc": 0.1})",
                        R"({"command": "ContactProperty", "name": "Wet"})", R"({"command": "StdContactControls", "name": "Settle"})",
                        R"({"command": "SelfContactStd", "name": "Self", "createStepName": "Initial", "interactionProperty": "Friction",
                            "contactControls": "Settle"})",
                        R"({"command": "setValuesInStep", "interaction": "Self", "stepName": "Press", "interactionProperty": "Wet"})",
                        R"({"command": "rename", "interactionProperty": "Wet", "newName": "Soaked"})",
                        R"({"command": "rename", "contactControls": "Settle", "newName": "Rest"})"});
  auto const* self = session_.Model().ConstGet<kprC_StepAwareRepository>("interactions").ConstItem("Self");
  EXPECT_EQ(self->StateAt(0)->Member("interactionProperty"), cls_Value("Friction"));
  EXPECT_EQ(self->StateAt(1)->Member("interactionProperty"), cls_Value("Soaked"));
  EXPECT_EQ(self->StateAt(0)->Member("contactControls"), cls_Value("Rest"));
  EXPECT_THAT(Refused(R"({"command": "delete", "interactionProperty": "Soaked"})"), HasSubstr("in use by interaction \"Self\""));
  EXPECT_THAT(Refused(R"({"command": "setValues", "interaction": "Self", "interactionProperty": "Rest"})"), HasSubstr("[kin 0]"));
  ddr_Model model = session_.Model();
  model.Get<kinC_InteractionPropertyMap>(kinC_InteractionProperty::interactionPropertiesCmd()).Remove("Soaked");
  std::vector<Finding> const findings = Check(model);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].name + " " + std::to_string(findings[0].refusal.code), "Self 0");
}

TEST_F(Properties, AreCheckedWithTheModel) {
  RunJournal(session_, {R"({"command": "StdContactControls", "name": "Settle", "stabilizationFactor": 0.01})",
                        R"({"command": "rename", "contactControls": "Settle", "newName": "Rest"})"});
  EXPECT_TRUE(Check(session_.Model()).empty());
  ddr_Model model = session_.Model();
  auto& properties = model.Get<kinC_InteractionPropertyMap>(kinC_InteractionProperty::interactionPropertiesCmd());
  dynamic_cast<kinC_ContactProperty&>(*properties.Get("Friction")).tangentialBehavior.Get().fraction = -1.0;
  std::vector<Finding> const findings = Check(model);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].kind + " " + findings[0].name, "interactionProperty Friction");
  EXPECT_EQ(findings[0].refusal.code, 17);
}

}  // namespace
}  // namespace gattr
