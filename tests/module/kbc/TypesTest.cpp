#include <gmock/gmock.h>

#include <map>

#include "framework/ddr_ModelMembers.h"
#include "module/kbc/kbcC_DistributedBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "module/kbc/kbcC_module.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "tests/support/Library.h"
#include "tests/support/ProcedureNames.h"

namespace {

using Conditions = kprC_PropagatingContainer<kbcC_BC>;
using test::CodeOf;

std::unique_ptr<kbcC_BC> Make(std::string_view command) {
  for (kbcC_Constructor const& constructor : kbcC_Constructors()) {
    if (constructor.command == command) { return constructor.make(); }
  }
  throw std::invalid_argument(std::string(command));
}

/// What is expected of a type. A construction command starts a row, those of the same kind follow it.
struct Type {
  std::vector<std::string_view> commands;
  std::string_view createdIn;
  kbcC_BC::CategoryEnm category;
  int inALoadCase;  // -1 accepted, else the refusal
  bool staysConstrained = true;
};

constexpr std::string_view kConstraining = "INI STA RIK VIS IMP GEO SOI CTD EXP TDD BUC FRQ SLP SSD SSS SGN";
std::vector<Type> const kTypes = {
    {{"DisplacementBC", "SymmBC", "XsymmBC", "YsymmBC", "ZsymmBC", "XasymmBC", "YasymmBC", "ZasymmBC", "PinnedBC", "EncastreBC"},
     kConstraining,
     kbcC_BC::MECHANICAL,
     -1},
    {{"VelocityBC"}, "INI STA VIS IMP GEO SOI CTD EXP TDD", kbcC_BC::MECHANICAL, -1},
    {{"AccelerationBC"}, "INI IMP EXP TDD", kbcC_BC::MECHANICAL, -1},
    {{"ConnDisplacementBC"}, "INI STA RIK VIS IMP EXP TDD BUC FRQ SLP SSD SSS", kbcC_BC::MECHANICAL, 50},
    {{"ConnVelocityBC"}, "INI STA VIS IMP EXP TDD", kbcC_BC::MECHANICAL, 50},
    {{"ConnAccelerationBC"}, "INI IMP EXP TDD", kbcC_BC::MECHANICAL, 50},
    {{"SubmodelBC"}, "STA RIK VIS IMP GEO SOI CTD HT CTE MD EXP TDD SLP", kbcC_BC::OTHER_BC, 50},
    {{"TemperatureBC"}, "INI HT CTD CTE TDD", kbcC_BC::THERMAL, 49, false},
    {{"PorePressureBC"}, "INI GEO SOI", kbcC_BC::FLUID, 49},
    {{"AcousticPressureBC"}, "INI STA VIS IMP EXP TDD BUC FRQ SLP SSD SSS", kbcC_BC::ACOUSTIC, 49},
    {{"FluidCavityPressureBC"}, "INI STA RIK VIS IMP SLP", kbcC_BC::FLUID, 49},
    {{"ElectricPotentialBC"}, "INI STA IMP CTE FRQ SLP SSD", kbcC_BC::ELECTRICAL, 49},
    {{"ConcentrationBC"}, "INI MD", kbcC_BC::MASS_DIFFUSION, 49, false},
    {{"MaterialFlowBC"}, "INI STA VIS IMP", kbcC_BC::OTHER_BC, 50},
};

class BoundaryConditionTypes : public test::WithLibrary {
protected:
  /// Puts a condition, created in \p step with \p members, into a repository over \p steps.
  int Create(std::string_view command, std::string_view steps, char const* step, kprC_Arguments const& members = {},
             kprC_Arguments const& own = {}) {
    conditions = Conditions();
    conditions.UpdateSteps(test::StepsNamed(steps));
    return CodeOf([&] {
      auto const condition = Make(command);
      std::string unknown;
      for (auto const& [name, value] : own) { EXPECT_TRUE(condition->SetMember(name, value)) << name; }
      EXPECT_TRUE(condition->SetInStep(cow_String(step), members, &unknown)) << unknown;
      conditions.Insert("B", *condition);
    });
  }
  int Edit(char const* step, kprC_Arguments const& members) {
    std::string unknown;
    return CodeOf([&] { conditions.Get("B").SetInStep(cow_String(step), members, &unknown); });
  }
  Conditions conditions;
};

TEST_F(BoundaryConditionTypes, AreAdmittedByTheirProcedures) {
  kprC_ProcedureSet const holding = test::SetOfProcedures("BUC FRQ SLP SSD SSS MOD RAN RSP SSM SUB CFQ");
  std::size_t count = 0;
  for (Type const& type : kTypes) {
    kprC_ProcedureSet const createdIn = test::SetOfProcedures(type.createdIn);
    for (std::string_view const command : type.commands) {
      auto const condition = Make(command);
      for (auto const& [name, procedure] : test::kProcedureNames) {
        EXPECT_EQ(condition->Admits(procedure, false), createdIn.Contains(procedure)) << command << " created in " << name;
        bool const held = type.staysConstrained && holding.Contains(procedure);
        EXPECT_EQ(condition->Admits(procedure, true), createdIn.Contains(procedure) || held) << command << " carried into " << name;
      }
      EXPECT_FALSE(condition->Admits(kbcC_BC::TypeId(), true)) << "no procedure";
      ++count;
    }
  }
  EXPECT_EQ(count, kbcC_Constructors().size());
  EXPECT_EQ(kbcC_Types().size(), 16U);
}

TEST_F(BoundaryConditionTypes, AnswerWithTheirCategoryAndTheirName) {
  for (Type const& type : kTypes) {
    for (std::string_view const command : type.commands) {
      auto const condition = Make(command);
      EXPECT_EQ(condition->Category(), type.category) << command;
      condition->Insert("S1", *condition->NewState());
      EXPECT_EQ(condition->ConstructionName(), command);
    }
  }
  EXPECT_EQ(cls_MetadataRegistrar::Registrar().Find(Make("MaterialFlowBC")->DynTypeId())->name, "kbcC_MassFlowBC");
}

TEST_F(BoundaryConditionTypes, AnswerForLoadCases) {
  for (Type const& type : kTypes) {
    for (std::string_view const command : type.commands) {
      std::string const first(test::NamedProcedures(type.createdIn).back().name);
      ASSERT_EQ(
          Create(command, "INI " + first + " ANN", "S1", command == "SubmodelBC" ? kprC_Arguments{{"globalStep", 1}} : kprC_Arguments{}),
          -1)
          << command;
      kbcC_BC& condition = conditions.Get("B");
      bool const accepted = type.inALoadCase == -1;
      EXPECT_EQ(condition.AllowedInALoadCase(), type.inALoadCase != 49) << command;
      EXPECT_EQ(condition.NYIForLoadCase(), type.inALoadCase == 50) << command;
      EXPECT_EQ(condition.ValidInALoadCase("S1", false), accepted) << command;
      EXPECT_EQ(CodeOf([&] { condition.ValidInALoadCase("S1", true); }), type.inALoadCase) << command;
      EXPECT_FALSE(condition.ValidInALoadCase("S2", false)) << command << " rests there";
      EXPECT_EQ(CodeOf([&] { condition.ValidInALoadCase("S2", true); }), 48) << command;
      EXPECT_EQ(CodeOf([&] { condition.ValidInALoadCase("S9", true); }), 48) << command << " of no such step";
      condition.Suppress();
      EXPECT_EQ(CodeOf([&] { condition.ValidInALoadCase("S1", true); }), 48) << command << " suppressed";
    }
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
      {"TemperatureBC", "INI HT", "S1", {{"magnitude", 900.0}}, -1},
      {"TemperatureBC", "INI HT", "S1", {{"shell", true}}, 40},
      {"TemperatureBC", "INI HT", "S1", {{"shell", true}, {"dof", "UNSET"}}, 40},
      {"TemperatureBC", "INI HT", "S1", {{"shell", false}}, -1},
      {"TemperatureBC", "INI HT", "S1", {{"shell", true}, {"dof", 10}}, 43},
      {"TemperatureBC", "INI HT", "S1", {{"shell", true}, {"dof", 11}}, -1},
      {"TemperatureBC", "INI HT", "S1", {{"shell", true}, {"dof", 31}}, -1},
      {"TemperatureBC", "INI HT", "S1", {{"shell", true}, {"dof", 32}}, 43},
      {"TemperatureBC", "INI HT", "S1", {{"dof", 32}}, 43},
      {"TemperatureBC", "INI HT", "S1", {{"dof", 11.5}}, 43},
      // a submodel needs a step of the global model; tolerances are greater than zero
      {"SubmodelBC", "INI STA", "S1", {}, 51},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", 0}}, 51},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", "UNSET"}}, 51},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", "two"}}, 51},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", 1}}, -1},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", 1}, {"exteriorTolerance", 0.0}}, 36},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", 1}, {"absoluteExteriorTolerance", 0.0}}, 36},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", 1}, {"exteriorTolerance", 1e-9}, {"absoluteExteriorTolerance", 1e-9}}, -1},
      {"SubmodelBC", "INI STA", "S1", {{"globalStep", 1}, {"dof", cls_Value::List{1, "two"}}}, 36},
      {"SubmodelBC", "INI STA", "Initial", {{"globalStep", 1}}, 45},
      // what is held does not move
      {"DisplacementBC", "INI STA", "S1", {{"fixed", true}, {"ur3", 0.1}}, 16},
      {"ConnDisplacementBC", "INI STA", "S1", {{"fixed", true}, {"ur3", 0.1}}, 16},
      {"ConnDisplacementBC", "INI STA", "S1", {{"fixed", true}, {"ur3", 0.0}}, -1},
      {"ConnDisplacementBC", "INI STA", "S1", {{"fixed", false}, {"ur3", 0.1}}, -1},
      // nothing but zero in the initial step, whatever the unit
      {"VelocityBC", "INI STA", "Initial", {{"vr2", 1e-300}}, 6},
      {"VelocityBC", "INI STA", "Initial", {{"vr2", 0.0}}, -1},
      {"AccelerationBC", "INI IMP", "Initial", {{"a3", -9.81}}, 6},
      {"ConnDisplacementBC", "INI STA", "Initial", {{"u1", 0.1}}, 6},
      {"ConnDisplacementBC", "INI STA", "Initial", {{"fixed", true}}, 25},
      {"ConnDisplacementBC", "INI STA", "Initial", {{"fixed", true}, {"u1", 0.1}}, 16},
      {"ConnVelocityBC", "INI STA", "Initial", {{"v1", 0.1}}, 6},
      {"ConnAccelerationBC", "INI IMP", "Initial", {{"ar1", 0.1}}, 6},
      {"TemperatureBC", "INI HT", "Initial", {{"magnitude", 20.0}}, 6},
      {"TemperatureBC", "INI HT", "Initial", {{"fixed", true}}, 25},
      {"PorePressureBC", "INI SOI", "Initial", {{"magnitude", 1.0}}, 6},
      {"PorePressureBC", "INI SOI", "Initial", {{"magnitude", 0.0}}, -1},
      {"ConcentrationBC", "INI MD", "Initial", {{"fixed", true}, {"magnitude", 1.0}}, 25},
      {"MaterialFlowBC", "INI STA", "Initial", {{"magnitude", 1.0}}, 6},
      {"MaterialFlowBC", "INI STA", "S1", {{"magnitude", 1.0}}, -1},
      // values that are none
      {"VelocityBC", "INI STA", "S1", {{"v1", "fast"}}, 36},
      {"PorePressureBC", "INI SOI", "S1", {{"magnitude", true}}, 36},
      {"ElectricPotentialBC", "INI CTE", "S1", {{"fixed", 1.0}}, 34},
      {"ConnAccelerationBC", "INI IMP", "S1", {{"a1", "PROPAGATED"}}, 8},
      {"AcousticPressureBC", "INI STA", "S1", {{"magnitude", "FREED"}}, 20},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(row.command) + " " + row.step + " " + (row.members.empty() ? "" : row.members.back().first));
    EXPECT_EQ(Create(row.command, row.steps, row.step, row.members), row.code);
  }
}

TEST_F(BoundaryConditionTypes, KeepTheBoundsInLaterSteps) {
  ASSERT_EQ(Create("TemperatureBC", "INI HT HT", "S1", {{"magnitude", 20.0}}), -1);
  EXPECT_EQ(Edit("S2", {{"shell", true}}), 40);
  ASSERT_EQ(Create("TemperatureBC", "INI HT HT", "S1", {{"magnitude", 20.0}, {"dof", 12}}), -1);
  EXPECT_EQ(Edit("S2", {{"shell", true}}), -1) << "the degree of freedom is carried";
  ASSERT_EQ(Create("SubmodelBC", "INI STA STA", "S1", {{"globalStep", 1}}), -1);
  EXPECT_EQ(Edit("S2", {{"scale", 2.0}}), -1) << "so is the global step";
  ASSERT_EQ(Create("SubmodelBC", "INI STA STA", "S1", {{"globalStep", 1}}), -1);
  EXPECT_EQ(Edit("S2", {{"globalStep", "FREED"}}), 51);
  ASSERT_EQ(Create("ConnDisplacementBC", "INI STA STA", "S1", {{"u1", 0.5}}), -1);
  EXPECT_EQ(Edit("S2", {{"fixed", true}}), -1) << "held where u1 has brought it";
  ASSERT_EQ(Create("ConnDisplacementBC", "INI STA STA", "S1", {{"u1", 0.5}}), -1);
  EXPECT_EQ(Edit("S2", {{"fixed", true}, {"u2", 0.5}}), 16);
}

TEST_F(BoundaryConditionTypes, MayBeChangedWhereTheyAreOnlyCarried) {
  EXPECT_EQ(Create("VelocityBC", "INI STA FRQ MOD", "S2", {{"v1", 1.0}}), 45);
  ASSERT_EQ(Create("VelocityBC", "INI STA FRQ MOD", "S1", {{"v1", 1.0}}), -1);
  EXPECT_EQ(Edit("S2", {{"v1", 2.0}}), -1);
  EXPECT_EQ(conditions.ConstGet("B").Status("S2"), mdl_PropagationStatusEnm::ModifiedFromBaseState);
  EXPECT_EQ(conditions.ConstGet("B").Status("S3"), mdl_PropagationStatusEnm::BuiltIn);
  ASSERT_EQ(Create("TemperatureBC", "INI CTD FRQ", "S1", {{"magnitude", 1.0}}), -1);
  EXPECT_EQ(conditions.ConstGet("B").Status("S2"), mdl_PropagationStatusEnm::Inactive6);
  EXPECT_EQ(Edit("S2", {{"magnitude", 2.0}}), 45);
}

TEST_F(BoundaryConditionTypes, FreeAndUnsetTheirValuesWhereTheyMay) {
  struct {
    std::string_view command, steps, member;
    kprC_Arguments members;
  } const rows[] = {
      {"DisplacementBC", "INI STA STA STA STA", "ur2", {}},
      {"ConnDisplacementBC", "INI STA STA STA STA", "u1", {}},
      {"ConnVelocityBC", "INI STA STA STA STA", "v2", {}},
      {"AccelerationBC", "INI IMP IMP IMP IMP", "a1", {}},
      {"TemperatureBC", "INI HT HT HT HT", "magnitude", {}},
      {"MaterialFlowBC", "INI STA STA STA STA", "magnitude", {}},
      {"SubmodelBC", "INI STA STA STA STA", "scale", {{"globalStep", 2}}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.command);
    std::string const member(row.member);
    EXPECT_EQ(Create(row.command, row.steps, "S1", {{member, "FREED"}}), 20);
    kprC_Arguments members = row.members;
    members.emplace_back(member, "UNSET");
    EXPECT_EQ(Create(row.command, row.steps, "S1", members), -1);
    members.back().second = 2.0;
    ASSERT_EQ(Create(row.command, row.steps, "S1", members), -1);
    EXPECT_EQ(Edit("S2", {{member, "UNSET"}}), 22);
    EXPECT_EQ(Edit("S2", {{member, "FREED"}}), -1);
    EXPECT_EQ(conditions.ConstGet("B").StateAt(2)->Member(member), cls_Value("FREED"));
    EXPECT_EQ(conditions.ConstGet("B").StateAt(3)->Member(member), cls_Value("UNSET"));
    ASSERT_EQ(CodeOf([&] { conditions.Get("B").Deactivate("S3"); }), -1);
    EXPECT_EQ(Edit("S4", {{member, "FREED"}}), 21);
    EXPECT_EQ(Edit("S4", {{member, "UNSET"}}), 21);
    EXPECT_EQ(CodeOf([&] { conditions.Get("B").Move("S1", "Initial"); }), row.command == "SubmodelBC" ? 44 : 26);
  }
}

TEST_F(BoundaryConditionTypes, OfSymmetryAreNotEditedWhereTheyAreCarried) {
  for (std::string_view const command : {"SymmBC", "ZasymmBC"}) {
    SCOPED_TRACE(command);
    ASSERT_EQ(Create(command, "INI STA STA FRQ", "Initial"), -1);
    for (char const* step : {"S1", "S2", "S3"}) { EXPECT_EQ(Edit(step, {{"amplitude", "Ramp"}}), 46) << "of the base state, in " << step; }
    EXPECT_EQ(Edit("Initial", {}), -1);
    ASSERT_EQ(Create(command, "INI STA STA FRQ", "S1"), -1);
    for (char const* step : {"S2", "S3"}) { EXPECT_EQ(Edit(step, {{"amplitude", "Ramp"}}), 46) << step; }
    EXPECT_EQ(Edit("S1", {{"amplitude", "Ramp"}}), -1);
    EXPECT_EQ(CodeOf([&] { conditions.Get("B").Deactivate("S2"); }), -1);
    EXPECT_EQ(Edit("S2", {{"amplitude", "Hold"}}), -1) << "it is off there, not carried";
    EXPECT_EQ(conditions.ConstGet("B").Status("S2"), mdl_PropagationStatusEnm::Modified);
  }
}

TEST_F(BoundaryConditionTypes, OfTemperatureRefuseRegionsOfTwoKinds) {
  auto const on = [](char const* member, cls_Value const& value) {
    return kprC_Arguments{{"region", cls_Value::Fields{{"name", "Plate"}, {member, value}}}};
  };
  EXPECT_EQ(Create("TemperatureBC", "INI HT", "S1", {}, on("mixed", true)), 41);
  EXPECT_EQ(Create("TemperatureBC", "INI HT", "S1", {}, on("instanceKind", "MIXED")), 42);
  EXPECT_EQ(Create("TemperatureBC", "INI HT", "S1", {}, on("instanceKind", "SHELL")), -1);
  EXPECT_EQ(Create("TemperatureBC", "INI HT", "S1", {}, on("dimension", 2)), -1);
  kprC_Arguments both = on("mixed", true);
  both.emplace_back("region", cls_Value::Fields{{"name", "Plate"}, {"mixed", true}, {"instanceKind", "MIXED"}});
  EXPECT_EQ(Create("TemperatureBC", "INI HT", "S1", {{"dof", 10}}, both), 41) << "first";
  EXPECT_EQ(Create("PorePressureBC", "INI SOI", "S1", {}, both), -1) << "no business of other types";
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
  std::string Refused() const {
    try {
      conditions.ConstGet("B").AssertInModel(model_);
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
    ASSERT_EQ(Create(row.command, "INI IMP", "S1", row.members, {{"connectors", row.connectors}}), -1);
    EXPECT_EQ(Refused(), row.refused) << row.command;
  }
}

TEST_F(ConditionsOnConnectors, AreAskedInEveryStepThatTheyChange) {
  ASSERT_EQ(Create("ConnDisplacementBC", "INI STA STA STA", "S1", {{"u1", 0.5}}, {{"connectors", cls_Value::List{"Hinge"}}}), -1);
  ASSERT_EQ(Edit("S2", {{"u3", 0.5}}), -1);
  EXPECT_EQ(Refused(), Unavailable("u3"));
  ASSERT_EQ(Edit("S2", {{"u3", "FREED"}}), -1);
  EXPECT_EQ(Refused(), "") << "a component that is free is not asked for";
}

}  // namespace
