#include <gmock/gmock.h>

#include <map>
#include <random>

#include "command/Check.h"
#include "module/kin/kinC_ContactControls.h"
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
  std::vector<Finding> const findings = ErrorsOf(model);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].name + " " + std::to_string(findings[0].refusal.code), "Self 0");
}

TEST_F(Properties, AreCopiedAsControlsAre) {
  RunJournal(session_, {R"({"command": "StdContactControls", "name": "Settle", "stabilizationFactor": 0.01})",
                        R"({"command": "copy", "interactionProperty": "Friction", "newName": "Dry"})",
                        R"({"command": "setValues", "interactionProperty": "Dry", "tangentialBehavior": {"table": [[0.6]]}})",
                        R"({"command": "copy", "contactControls": "Settle", "newName": "Rest"})",
                        R"({"command": "delete", "contactControls": "Settle"})"});
  EXPECT_EQ(Property("Friction")->tangentialBehavior->table.ConstGet(0, 0), 0.2);
  EXPECT_EQ(Property("Dry")->tangentialBehavior->table.ConstGet(0, 0), 0.6);
  auto const& controls = session_.Model().ConstGet<mdl_NamedObjects>(kinC_ContactControls::contactControlsCmd());
  EXPECT_EQ(controls.ConstObject("Rest")->Member("stabilizationFactor"), cls_Value(0.01));
  EXPECT_EQ(controls.ConstObject("Settle"), nullptr);
}

TEST_F(Properties, AreWhatAPlainMapHoldsAfterAnyEdits) {
  struct Plain {
    std::map<std::string, double> coefficients;
    std::map<std::string, std::string> uses;  // by step
  };
  std::vector<std::string> const steps = {"Initial", "S1", "S2"};
  AppendSteps(session_, "IGG");
  RunJournal(session_,
             {R"({"command": "SelfContactStd", "name": "Self", "createStepName": "Initial", "interactionProperty": "Friction"})"});
  Plain plain{{{"Friction", 0.2}}, {{"Initial", "Friction"}}};
  std::mt19937 random(1);
  auto const upTo = [&random](std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n)(random); };
  auto const anyName = [&] { return std::vector<std::string>{"Friction", "Dry", "Wet", "Greased", "Rough"}[upTo(4)]; };
  int done[5] = {}, refused = 0;
  for (int edit = 0; edit < 400; ++edit) {
    Plain const before = plain;
    std::size_t const kind = upTo(4);
    std::string const name = anyName(), other = anyName(), step = steps[upTo(2)];
    double const coefficient = static_cast<double>(upTo(9)) - 1.0;
    bool const known = plain.coefficients.contains(name);
    bool can = known;
    Json command = {{"command", kind == 1 ? "setValues" : kind == 2 ? "rename" : "delete"}, {"interactionProperty", name}};
    Json const behavior = {{"formulation", "PENALTY"}, {"table", {{coefficient}}}};
    switch (kind) {
      case 0:
        command = {{"command", "ContactProperty"}, {"name", name}, {"tangentialBehavior", behavior}};
        can = !known && coefficient >= 0.0;
        plain.coefficients[name] = coefficient;
        break;
      case 1:
        command["tangentialBehavior"] = behavior;
        can = known && coefficient >= 0.0;
        plain.coefficients[name] = coefficient;
        break;
      case 2: {
        command["newName"] = other;
        can = known && (other == name || !plain.coefficients.contains(other));
        auto node = plain.coefficients.extract(name);
        if (!can) { break; }
        node.key() = other;
        plain.coefficients.insert(std::move(node));
        for (auto& [where, used] : plain.uses) { used = used == name ? other : used; }
        break;
      }
      case 3:
        can = known && std::ranges::none_of(plain.uses, [&](auto const& use) { return use.second == name; });
        plain.coefficients.erase(name);
        break;
      default:
        command = {{"command", "setValuesInStep"}, {"interaction", "Self"}, {"stepName", step}, {"interactionProperty", name}};
        plain.uses[step] = name;
    }
    Outcome const outcome = session_.Execute(CommandOf(command));
    ASSERT_EQ(outcome.ok, can) << command << outcome.message;
    can ? ++done[kind] : ++refused;
    bool const undone = can && upTo(3) == 0;
    if (undone) { session_.Undo(); }
    if (!can || undone) { plain = before; }
    auto const& properties = session_.Model().ConstGet<mdl_NamedObjects>(kinC_InteractionProperty::interactionPropertiesCmd());
    ASSERT_EQ(properties.Keys().Size(), plain.coefficients.size()) << command;
    for (auto const& [held, value] : plain.coefficients) {
      ASSERT_NE(Property(held), nullptr) << command;
      ASSERT_EQ(Property(held)->name, held);
      ASSERT_EQ(Property(held)->tangentialBehavior->table.ConstGet(0, 0), value) << command;
    }
    auto const* self = session_.Model().ConstGet<kprC_StepAwareRepository>("interactions").ConstItem("Self");
    std::string inForce;
    for (std::size_t at = 0; at < steps.size(); ++at) {
      if (auto const use = plain.uses.find(steps[at]); use != plain.uses.end()) { inForce = use->second; }
      ASSERT_EQ(self->StateAt(at)->Member("interactionProperty"), cls_Value(inForce)) << command;
    }
  }
  for (int const count : done) { EXPECT_GT(count, 10); }
  EXPECT_GT(refused, 50);
}

TEST_F(Properties, AreCheckedWithTheModel) {
  RunJournal(session_, {R"({"command": "StdContactControls", "name": "Settle", "stabilizationFactor": 0.01})",
                        R"({"command": "rename", "contactControls": "Settle", "newName": "Rest"})"});
  EXPECT_TRUE(ErrorsOf(session_.Model()).empty());
  ddr_Model model = session_.Model();
  auto& properties = model.Get<kinC_InteractionPropertyMap>(kinC_InteractionProperty::interactionPropertiesCmd());
  dynamic_cast<kinC_ContactProperty&>(*properties.Get("Friction")).tangentialBehavior.Get().fraction = -1.0;
  std::vector<Finding> const findings = ErrorsOf(model);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].kind + " " + findings[0].name, "interactionProperty Friction");
  EXPECT_EQ(findings[0].refusal.code, 17);
}

}  // namespace
}  // namespace gattr
