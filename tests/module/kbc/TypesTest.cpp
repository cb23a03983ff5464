#include <map>

#include "framework/ddr_ModelMembers.h"
#include "module/kbc/kbcC_DistributedBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "tests/support/OneAttribute.h"

namespace {

using test::CodeOf;

class BoundaryConditionTypes : public test::OneAttribute<kbcC_BC> {};

TEST_F(BoundaryConditionTypes, AnswerForLoadCases) {
  struct {
    char const* command;
    char const* steps;
    int code;  // of the type, in a step where it is active
  } const rows[] = {{"DisplacementBC", "IGA", -1}, {"TemperatureBC", "IHA", 49}, {"ConnVelocityBC", "IGA", 50}};
  for (auto const& row : rows) {
    SCOPED_TRACE(row.command);
    ASSERT_EQ(Create(row.command, row.steps, "S1"), -1);
    EXPECT_EQ(Item().ValidInALoadCase("S1", false), row.code == -1);
    EXPECT_EQ(CodeOf([&] { Item().ValidInALoadCase("S1", true); }), row.code);
    for (char const* step : {"S2", "S9"}) {
      EXPECT_EQ(CodeOf([&] { Item().ValidInALoadCase(step, true); }), 48) << step;
    }
    EXPECT_FALSE(Item().ValidInALoadCase("S2", false)) << "rests there";
    Item().Suppress();
    EXPECT_EQ(CodeOf([&] { Item().ValidInALoadCase("S1", true); }), 48) << "suppressed";
  }
}

TEST_F(BoundaryConditionTypes, RefuseValuesAtTheirBounds) {
  struct {
    std::string_view command, steps;
    char const* step;
    kprC_Arguments members;
    int code;
  } const rows[] = {
      // a temperature on shells needs its degree of freedom, which is one of 21
      {"TemperatureBC", "IH", "S1", {{"magnitude", 900.0}}, -1},
      {"TemperatureBC", "IH", "S1", {{"shell", true}}, 40},
      {"TemperatureBC", "IH", "S1", {{"shell", true}, {"dof", "UNSET"}}, 40},
      {"TemperatureBC", "IH", "S1", {{"shell", false}}, -1},
      {"TemperatureBC", "IH", "S1", {{"shell", true}, {"dof", 10}}, 43},
      {"TemperatureBC", "IH", "S1", {{"shell", true}, {"dof", 11}}, -1},
      {"TemperatureBC", "IH", "S1", {{"shell", true}, {"dof", 31}}, -1},
      {"TemperatureBC", "IH", "S1", {{"shell", true}, {"dof", 32}}, 43},
      {"TemperatureBC", "IH", "S1", {{"dof", 32}}, 43},
      {"TemperatureBC", "IH", "S1", {{"dof", 11.5}}, 43},
      // a submodel needs a step of the global model; tolerances are greater than zero
      {"SubmodelBC", "IG", "S1", {}, 51},
      {"SubmodelBC", "IG", "S1", {{"globalStep", 0}}, 51},
      {"SubmodelBC", "IG", "S1", {{"globalStep", "UNSET"}}, 51},
      {"SubmodelBC", "IG", "S1", {{"globalStep", "two"}}, 51},
      {"SubmodelBC", "IG", "S1", {{"globalStep", 1}}, -1},
      {"SubmodelBC", "IG", "S1", {{"globalStep", 1}, {"exteriorTolerance", 0.0}}, 36},
      {"SubmodelBC", "IG", "S1", {{"globalStep", 1}, {"absoluteExteriorTolerance", 0.0}}, 36},
      {"SubmodelBC", "IG", "S1", {{"globalStep", 1}, {"exteriorTolerance", 1e-9}, {"absoluteExteriorTolerance", 1e-9}}, -1},
      {"SubmodelBC", "IG", "S1", {{"globalStep", 1}, {"dof", cls_Value::List{1, "two"}}}, 36},
      {"SubmodelBC", "IG", "Initial", {{"globalStep", 1}}, 45},
      // what is held does not move
      {"DisplacementBC", "IG", "S1", {{"fixed", true}, {"ur3", 0.1}}, 16},
      {"ConnDisplacementBC", "IG", "S1", {{"fixed", true}, {"ur3", 0.0}}, -1},
      {"ConnDisplacementBC", "IG", "S1", {{"fixed", false}, {"ur3", 0.1}}, -1},
      // nothing but zero in the initial step, whatever the unit
      {"VelocityBC", "IG", "Initial", {{"vr2", 1e-300}}, 6},
      {"AccelerationBC", "IE", "Initial", {{"a3", -9.81}}, 6},
      {"ConnDisplacementBC", "IG", "Initial", {{"u1", 0.1}}, 6},
      {"ConnDisplacementBC", "IG", "Initial", {{"fixed", true}}, 25},
      {"ConnDisplacementBC", "IG", "Initial", {{"fixed", true}, {"u1", 0.1}}, 16},
      {"TemperatureBC", "IH", "Initial", {{"magnitude", 20.0}}, 6},
      {"TemperatureBC", "IH", "Initial", {{"fixed", true}}, 25},
      {"PorePressureBC", "IO", "Initial", {{"magnitude", 1.0}}, 6},
      {"ConcentrationBC", "ID", "Initial", {{"fixed", true}, {"magnitude", 1.0}}, 25},
      {"MaterialFlowBC", "IG", "Initial", {{"magnitude", 1.0}}, 6},
      // values that are none
      {"VelocityBC", "IG", "S1", {{"v1", "fast"}}, 36},
      {"PorePressureBC", "IO", "S1", {{"magnitude", true}}, 36},
      {"ElectricPotentialBC", "IV", "S1", {{"fixed", 1.0}}, 34},
      {"ConnAccelerationBC", "IE", "S1", {{"a1", "PROPAGATED"}}, 8},
      {"AcousticPressureBC", "IG", "S1", {{"magnitude", "FREED"}}, 20},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(row.command) + " " + row.step + " " + (row.members.empty() ? "" : row.members.back().first));
    EXPECT_EQ(Create(row.command, row.steps, row.step, row.members), row.code);
  }
}

TEST_F(BoundaryConditionTypes, KeepTheBoundsInLaterSteps) {
  ASSERT_EQ(Create("TemperatureBC", "IHH", "S1", {{"magnitude", 20.0}}), -1);
  EXPECT_EQ(Edit("S2", {{"shell", true}}), 40);
  ASSERT_EQ(Create("TemperatureBC", "IHH", "S1", {{"magnitude", 20.0}, {"dof", 12}}), -1);
  EXPECT_EQ(Edit("S2", {{"shell", true}}), -1) << "the degree of freedom is carried";
  ASSERT_EQ(Create("SubmodelBC", "IGG", "S1", {{"globalStep", 1}}), -1);
  EXPECT_EQ(Edit("S2", {{"scale", 2.0}}), -1) << "so is the global step";
  ASSERT_EQ(Create("SubmodelBC", "IGG", "S1", {{"globalStep", 1}}), -1);
  EXPECT_EQ(Edit("S2", {{"globalStep", "FREED"}}), 51);
  ASSERT_EQ(Create("ConnDisplacementBC", "IGG", "S1", {{"u1", 0.5}}), -1);
  EXPECT_EQ(Edit("S2", {{"fixed", true}}), -1) << "held where u1 has brought it";
  ASSERT_EQ(Create("ConnDisplacementBC", "IGG", "S1", {{"u1", 0.5}}), -1);
  EXPECT_EQ(Edit("S2", {{"fixed", true}, {"u2", 0.5}}), 16);
}

TEST_F(BoundaryConditionTypes, MayBeChangedWhereTheyAreOnlyCarried) {
  EXPECT_EQ(Create("VelocityBC", "IGFM", "S2", {{"v1", 1.0}}), 45);
  ASSERT_EQ(Create("VelocityBC", "IGFM", "S1", {{"v1", 1.0}}), -1);
  EXPECT_EQ(Edit("S2", {{"v1", 2.0}}), -1);
  EXPECT_EQ(Item().Status("S2"), mdl_PropagationStatusEnm::ModifiedFromBaseState);
  EXPECT_EQ(Item().Status("S3"), mdl_PropagationStatusEnm::BuiltIn);
  ASSERT_EQ(Create("TemperatureBC", "ITF", "S1", {{"magnitude", 1.0}}), -1);
  EXPECT_EQ(Item().Status("S2"), mdl_PropagationStatusEnm::Inactive6);
  EXPECT_EQ(Edit("S2", {{"magnitude", 2.0}}), 45);
}

TEST_F(BoundaryConditionTypes, OfSymmetryAreNotEditedWhereTheyAreCarried) {
  for (std::string_view const command : {"SymmBC", "ZasymmBC"}) {
    SCOPED_TRACE(command);
    ASSERT_EQ(Create(command, "IGGF", "Initial"), -1);
    for (char const* step : {"S1", "S2", "S3"}) { EXPECT_EQ(Edit(step, {{"amplitude", "Ramp"}}), 46) << "of the base state, in " << step; }
    EXPECT_EQ(Edit("Initial", {}), -1);
    ASSERT_EQ(Create(command, "IGGF", "S1"), -1);
    for (char const* step : {"S2", "S3"}) { EXPECT_EQ(Edit(step, {{"amplitude", "Ramp"}}), 46) << step; }
    EXPECT_EQ(Edit("S1", {{"amplitude", "Ramp"}}), -1);
    EXPECT_EQ(CodeOf([&] { Item().Deactivate("S2"); }), -1);
    EXPECT_EQ(Edit("S2", {{"amplitude", "Hold"}}), -1) << "it is off there, not carried";
    EXPECT_EQ(Item().Status("S2"), mdl_PropagationStatusEnm::Modified);
  }
}

TEST_F(BoundaryConditionTypes, OfTemperatureRefuseRegionsOfTwoKinds) {
  auto const on = [](char const* member, cls_Value const& value) {
    return kprC_Arguments{{"region", cls_Value::Fields{{"name", "Plate"}, {member, value}}}};
  };
  EXPECT_EQ(Create("TemperatureBC", "IH", "S1", {}, on("mixed", true)), 41);
  EXPECT_EQ(Create("TemperatureBC", "IH", "S1", {}, on("instanceKind", "MIXED")), 42);
  EXPECT_EQ(Create("TemperatureBC", "IH", "S1", {}, on("instanceKind", "SHELL")), -1);
  EXPECT_EQ(Create("TemperatureBC", "IH", "S1", {}, on("dimension", 2)), -1);
  kprC_Arguments both = on("mixed", true);
  both.emplace_back("region", cls_Value::Fields{{"name", "Plate"}, {"mixed", true}, {"instanceKind", "MIXED"}});
  EXPECT_EQ(Create("TemperatureBC", "IH", "S1", {{"dof", 10}}, both), 41) << "first";
  EXPECT_EQ(Create("PorePressureBC", "IO", "S1", {}, both), -1) << "no business of other types";
}

/// What a model with the connectors Hinge (1, 4), Slot (1 to 3) and Weld (none) refuses of a condition on some of them.
class ConditionsOnConnectors : public BoundaryConditionTypes {
protected:
  ConditionsOnConnectors() {
    auto& connectors = model_.Get<ddr_ConnectorMap>(ddr_Model::connectorsCmd());
    for (auto const& [name, components] : std::map<char const*, cls_Value::List>{{"Hinge", {1, 4}}, {"Slot", {1, 2, 3}}, {"Weld", {}}}) {
      auto connector = cow_Handle<conC_Connector>::Make();
      connector.Get().SetMember("components", components);
      connectors.Insert(name, connector);
    }
  }
  std::string Refused() {
    try {
      Item().AssertInModel(model_);
    } catch (nex_TextException const& refusal) {
      EXPECT_EQ(refusal.Code(), -1);
      return std::string(refusal.Text().View());
    }
    return "";
  }
  static std::string Unavailable(std::string const& names) {
    return "Unavailable connector components have been specified (CORM: " + names + ").";
  }

private:
  ddr_Model model_;
};

TEST_F(ConditionsOnConnectors, RefuseTheComponentsThatAConnectorLacksInTheirOrder) {
  struct {
    std::string_view command;
    kprC_Arguments members;
    cls_Value::List connectors;
    std::string refused;
  } const rows[] = {
      {"ConnDisplacementBC", {{"u1", 0.0}, {"ur1", 0.0}}, {"Hinge"}, ""},
      {"ConnDisplacementBC", {{"ur3", 0.0}, {"u2", 0.0}, {"u1", 0.0}}, {"Hinge"}, Unavailable("u2, ur3")},
      {"ConnDisplacementBC", {{"u2", "UNSET"}}, {"Hinge"}, ""},
      {"ConnDisplacementBC", {{"u1", 0.0}, {"u2", 0.0}, {"ur1", 0.0}}, {"Hinge", "Slot"}, Unavailable("u2, ur1")},
      {"ConnDisplacementBC", {{"u1", 0.0}}, {"Slot", "Weld"}, Unavailable("u1")},
      {"ConnDisplacementBC", {{"u2", 0.0}}, {"Nobody"}, ""},
      {"ConnDisplacementBC", {{"u2", 0.0}}, {}, ""},
      {"ConnVelocityBC", {{"v1", 1.0}, {"v3", 1.0}, {"vr1", 1.0}, {"vr2", 1.0}}, {"Hinge"}, Unavailable("v3, vr2")},
      {"ConnAccelerationBC", {{"ar1", 1.0}, {"a3", 1.0}}, {"Slot"}, Unavailable("ar1")},
      {"MaterialFlowBC", {{"magnitude", 1.0}}, {"Weld"}, ""},
  };
  for (auto const& row : rows) {
    ASSERT_EQ(Create(row.command, "IE", "S1", row.members, {{"connectors", row.connectors}}), -1);
    EXPECT_EQ(Refused(), row.refused) << row.command;
  }
}

TEST_F(ConditionsOnConnectors, AreAskedInEveryStepThatTheyChange) {
  ASSERT_EQ(Create("ConnDisplacementBC", "IGGG", "S1", {{"u1", 0.5}}, {{"connectors", cls_Value::List{"Hinge"}}}), -1);
  ASSERT_EQ(Edit("S2", {{"u3", 0.5}}), -1);
  EXPECT_EQ(Refused(), Unavailable("u3"));
  ASSERT_EQ(Edit("S2", {{"u3", "FREED"}}), -1);
  EXPECT_EQ(Refused(), "") << "a component that is free is not asked for";
}

}  // namespace
