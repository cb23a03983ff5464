#include <gmock/gmock.h>

#include "framework/ddr_Model.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "module/kbc/kbcC_module.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "tests/support/Library.h"
#include "tests/support/StepLetters.h"

namespace {

using ::testing::ElementsAre;
using Conditions = kprC_PropagatingContainer<kbcC_BC>;
using Displacement = kbcC_DisplacementBCState;
using test::CodeOf;

class BoundaryCondition : public test::WithLibrary {
protected:
  /// Puts \p type, created in \p step with \p members, into a repository over \p steps.
  int Create(std::string_view steps, char const* step, kprC_Arguments const& members, kbcC_BC const& type = kbcC_DisplacementBC()) {
    conditions = Conditions();
    conditions.UpdateSteps(kprC_StepTable(test::StepsOf(steps)));
    return CodeOf([&] {
      cow_Handle<kbcC_BC> made(std::unique_ptr<kbcC_BC>(static_cast<kbcC_BC*>(type.Copy().release())));
      std::string unknown;
      made.Get().SetInStep(cow_String(step), members, &unknown);
      conditions.Insert("B", *made);
    });
  }
  int Edit(char const* step, kprC_Arguments const& members) {
    std::string unknown;
    return CodeOf([&] { conditions.Get("B").SetInStep(cow_String(step), members, &unknown); });
  }
  Displacement const& StateIn(std::size_t step) const { return dynamic_cast<Displacement const&>(*conditions.ConstGet("B").StateAt(step)); }
  Conditions conditions;
};

TEST_F(BoundaryCondition, RefusesValuesThatItsStepCannotHave) {
  struct {
    char const* steps;
    char const* step;
    kprC_Arguments members;
    int code;
  } const rows[] = {
      {"IG", "Initial", {{"u1", 0.0}}, -1},
      {"IG", "Initial", {{"u1", 0.5}}, 6},
      {"IG", "Initial", {{"fixed", true}}, 25},
      {"IG", "S1", {{"u1", 0.5}, {"u2", "UNSET"}}, -1},
      {"IG", "S1", {{"fixed", true}, {"u1", 0.0}}, -1},
      {"IG", "S1", {{"fixed", true}, {"ur3", 0.1}}, 16},
      {"IG", "S1", {{"u1", "FREED"}}, 20},
      {"IG", "S1", {{"u1", "PROPAGATED"}}, 8},
      {"IG", "S1", {{"u1", "much"}}, 36},
      {"IG", "S1", {{"u1", true}}, 36},
      {"IG", "S1", {{"fixed", 1}}, 34},
      {"IG", "S1", {{"amplitude", 3}}, 35},
      {"IA", "S1", {{"u1", 0.0}}, 24},
      {"IH", "S1", {{"u1", 0.0}}, 45},
      {"IFM", "S2", {{"u1", 0.0}}, 45},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(Create(row.steps, row.step, row.members), row.code)
        << row.steps << " " << row.step << " " << row.members.front().first << " " << row.code;
  }
}

TEST_F(BoundaryCondition, FreesAndUnsetsComponentsWhereItMay) {
  ASSERT_EQ(Create("IGGGG", "S1", {{"u1", 1.0}, {"u2", 2.0}}), -1);
  EXPECT_EQ(Edit("S2", {{"u1", "FREED"}}), -1);
  EXPECT_EQ(Edit("S2", {{"u2", "UNSET"}}), 22);
  EXPECT_EQ(Edit("S3", {{"u2", "UNSET"}}), 22);
  ASSERT_EQ(CodeOf([&] { conditions.Get("B").Deactivate("S3"); }), -1);
  EXPECT_EQ(Edit("S4", {{"u2", "FREED"}}), 21);
  EXPECT_EQ(Edit("S4", {{"u2", "UNSET"}}), 21);
  EXPECT_EQ(StateIn(2).u1, mdl_Freed);
  EXPECT_EQ(StateIn(2).u2, mdl_PropagatedValue);
  EXPECT_EQ(StateIn(3).u1, mdl_Unset);
  EXPECT_EQ(StateIn(3).u2, 2.0);
  EXPECT_TRUE(StateIn(4).SwitchedOff());
}

TEST_F(BoundaryCondition, KeepsFollowingWhatAStepDoesNotSay) {
  ASSERT_EQ(Create("IGGG", "S1", {{"u1", 1.0}}), -1);
  ASSERT_EQ(Edit("S3", {{"u2", 5.0}}), -1);
  ASSERT_EQ(Edit("S2", {{"u1", 3.0}}), -1);
  EXPECT_EQ(StateIn(3).u1, 3.0) << "an earlier change of another component arrives";
  EXPECT_EQ(StateIn(3).u1, mdl_PropagatedValue);
  EXPECT_EQ(StateIn(3).u2, mdl_Set);
  ASSERT_EQ(Edit("S3", {{"u1", 7.0}}), -1);
  ASSERT_EQ(Edit("S2", {{"u1", 4.0}}), -1);
  EXPECT_EQ(StateIn(3).u1, 7.0) << "its own value stays";
}

TEST_F(BoundaryCondition, IsNotMovedIntoTheInitialStepWithAValue) {
  ASSERT_EQ(Create("IGG", "S1", {{"u1", 0.5}}), -1);
  EXPECT_EQ(CodeOf([&] { conditions.Get("B").Move("S1", "Initial"); }), 26);
  EXPECT_EQ(conditions.ConstGet("B").CreateStepName(), "S1");
  ASSERT_EQ(Create("IGG", "S1", {{"u1", 0.0}}), -1);
  EXPECT_EQ(CodeOf([&] { conditions.Get("B").Move("S1", "Initial"); }), -1);
  EXPECT_EQ(conditions.ConstGet("B").CreateStepName(), "Initial");
}

TEST_F(BoundaryCondition, OfAKindIsNotEditedWhereItIsPropagated) {
  ASSERT_EQ(Create("IGG", "Initial", {}, kbcC_TypeBC(kbcC_TypeBC::PINNED)), -1);
  EXPECT_EQ(conditions.ConstGet("B").ConstructionName(), "PinnedBC");
  EXPECT_EQ(Edit("S1", {{"typeName", "ENCASTRE"}}), 46);
  ASSERT_EQ(Create("IGG", "S1", {}, kbcC_TypeBC(kbcC_TypeBC::XSYMM)), -1);
  EXPECT_EQ(Edit("S2", {{"typeName", "ENCASTRE"}}), 46);
  EXPECT_EQ(Edit("S1", {{"typeName", "ROUND"}}), 37);
  EXPECT_EQ(Edit("S1", {{"typeName", "ENCASTRE"}}), -1);
  EXPECT_EQ(conditions.ConstGet("B").ConstructionName(), "EncastreBC");
  EXPECT_EQ(CodeOf([&] { conditions.Get("B").Deactivate("S2"); }), -1);
}

TEST_F(BoundaryCondition, NeedsAFieldNameWithAFieldDistribution) {
  kbcC_DisplacementBC condition;
  ASSERT_TRUE(condition.SetMember("distributionType", "FIELD"));
  EXPECT_EQ(Create("IG", "S1", {{"u1", 1.0}}, condition), 59);
  condition.SetMember("fieldName", "Tilt");
  EXPECT_EQ(Create("IG", "S1", {{"u1", 1.0}}, condition), -1);
  EXPECT_TRUE(conditions.ConstGet("B").UsesField());
}

TEST_F(BoundaryCondition, IsNotCheckedWhileSuppressed) {
  ASSERT_EQ(Create("IGG", "S1", {{"u1", 0.5}}), -1);
  kbcC_BC& condition = conditions.Get("B");
  condition.Suppress();
  Displacement both;
  both.fixed = true;
  both.u1 = 1.0;
  EXPECT_EQ(CodeOf([&] { condition.Insert("S2", both); }), -1);
  EXPECT_EQ(condition.Status("S2"), mdl_PropagationStatusEnm::Modified) << "but has its history";
  EXPECT_EQ(CodeOf([&] { condition.Resume(); }), 16);
}

TEST_F(BoundaryCondition, AnswersForItsSteps) {
  kbcC_DisplacementBC alone;
  EXPECT_TRUE(alone.History().IsEmpty());
  EXPECT_EQ(alone.CreateStepName(), "");
  EXPECT_TRUE(alone.Insert("S1", Displacement()));
  EXPECT_FALSE(alone.Insert("S2", Displacement())) << "a record and no step sequence yet";
  EXPECT_EQ(alone.History().Size(), 1U);

  ASSERT_EQ(Create("IGGG", "S1", {{"u1", 1.0}, {"amplitude", "Ramp"}}), -1);
  ASSERT_EQ(Edit("S2", {{"amplitude", "Hold"}}), -1);
  kbcC_BC& condition = conditions.Get("B");
  condition.Deactivate("S3");
  EXPECT_EQ(condition.GetEditableStepName("S2"), "S2");
  EXPECT_EQ(condition.GetEditableStepName("S3"), "S1");
  EXPECT_FALSE(condition.Remove("Nowhere"));
  ASSERT_EQ(condition.Amplitudes().Size(), 2U);
  EXPECT_EQ(condition.Amplitudes()[1], "Hold");
  EXPECT_EQ(condition.ValidInALoadCase("S3", false), false);
  EXPECT_EQ(CodeOf([&] { condition.ValidInALoadCase("S3", true); }), 48);
  EXPECT_TRUE(condition.ValidInALoadCase("S2", true));
  // an identity of its own for each record, the same each time it is asked
  EXPECT_EQ(condition.ConstGetStateQuad("S1").Uid(), condition.ConstGetStateQuad("S1").Uid());
  EXPECT_NE(condition.ConstGetStateQuad("S1").Uid(), condition.ConstGetStateQuad("S2").Uid());
  EXPECT_EQ(condition.ConstGetStateQuad("S1").procedure->ProcedureType(), kprC_StaticStep::TypeId());
}

TEST_F(BoundaryCondition, ClassifiesStatusesByItsTable) {
  using Status = mdl_PropagationStatusEnm;
  std::string active, propagated, builtIn, illegalMove, changed, refused;
  for (int number = -1; number <= 16; ++number) {
    auto const status = static_cast<Status>(number);
    std::string const text = std::to_string(number) + " ";
    int const code = CodeOf([&] {
      active += kbcC_BC::IsActive(status) ? text : "";
      propagated += kbcC_BC::IsPropagated(status) ? text : "";
      builtIn += kbcC_BC::IsBuiltIn(status) ? text : "";
      illegalMove += kbcC_BC::IsIllegalMove(status) ? text : "";
      changed += kbcC_BC::ChangedInStep(status) ? text : "";
    });
    if (code == 47) { refused += text; }
  }
  EXPECT_EQ(active, "1 2 3 9 10 ");
  EXPECT_EQ(propagated, "2 9 ");
  EXPECT_EQ(builtIn, "12 ");
  EXPECT_EQ(illegalMove, "1 3 4 10 ");
  EXPECT_EQ(changed, "1 3 4 10 11 ");
  EXPECT_EQ(refused, "-1 8 13 14 15 16 ");
}

TEST_F(BoundaryCondition, MergesStatesMemberByMember) {
  Displacement carried, own;
  carried.amplitude = cow_String("Ramp");
  carried.u1 = 1.0;
  carried.Propagate();
  EXPECT_FALSE(carried.IsModified());
  own.u1 = mdl_Freed;
  own.u2 = 2.0;
  EXPECT_TRUE(own.IsConditionModified());
  carried.Modify(own);
  EXPECT_EQ(carried.u1, mdl_Freed);
  EXPECT_EQ(carried.u2, mdl_Set);
  EXPECT_EQ(carried.amplitude, cow_String("Ramp"));
  carried.Propagate();
  EXPECT_EQ(carried.u1, mdl_Unset);
  EXPECT_EQ(carried.u2, mdl_PropagatedValue);

  own.amplitude = cow_String("Other");
  own.SetSwitchedOff(true);
  carried.Modify(own);
  EXPECT_TRUE(carried.SwitchedOff());
  EXPECT_EQ(carried.amplitude, cow_String("Ramp")) << "what is switched off keeps its old values";
  carried.Zero();
  EXPECT_EQ(carried.u2.ConstGet(), 0.0);

  std::string none;
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    none += carried.UseAmplitude(row.type) ? "" : std::string(row.command.View()) + " ";
    EXPECT_EQ(carried.UseComplex(row.type), row.type == kprC_ProcedureType::SteadyStateDirect);
    EXPECT_EQ(carried.UseMagnitude(row.type),
              row.type != kprC_ProcedureType::Frequency && row.type != kprC_ProcedureType::ComplexFrequency);
  }
  EXPECT_EQ(none, "BuckleStep FrequencyStep StaticRiksStep StaticLinearPerturbationStep ComplexFrequencyStep ");
  EXPECT_FALSE(carried.UseAmplitude(0));
}

TEST_F(BoundaryCondition, IsDescribedByItsMetadata) {
  auto const names = [](unsigned typeId) {
    std::vector<std::string> members;
    for (cls_MemberInfo const& member : cls_MetadataRegistrar::Registrar().Find(typeId)->members) {
      members.push_back(member.name + ":" + std::to_string(static_cast<int>(member.kind)) + (member.many ? "*" : ""));
    }
    return members;
  };
  EXPECT_EQ(kbcC_BC::TypeId(), 0x2980001U);
  EXPECT_EQ(Conditions::TypeId(), 0x2980002U);
  EXPECT_EQ(kbcC_BCState::TypeId(), 0x2980003U);
  EXPECT_EQ(kprC_PropagatingState<kbcC_BCState>::TypeId(), 0x2980004U);
  EXPECT_NE(kbcC_DisplacementBC().DynTypeId(), kbcC_BC::TypeId());
  EXPECT_THAT(names(kbcC_BC::TypeId()),
              ElementsAre("suppress:13", "region:15", "csys:15", "distribution:14", "states:15*", "fieldName:11"));
  EXPECT_THAT(names(Conditions::TypeId()), ElementsAre("map:15*", "procedures:15*", "danglingRegions:15*"));
  EXPECT_THAT(names(kprC_PropagatingState<kbcC_BCState>::TypeId()), ElementsAre("stepName:11", "status:14", "state:15", "procedure:15"));
}

TEST(Library, StartsOnceStopsOnceAndStartsAgain) {
  for (int round = 0; round < 2; ++round) {
    int count = 0;
    DDB_GeometricAttributes_initialize(count);
    DDB_GeometricAttributes_initialize(count);
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(cls_ComponentTable::IsEntered(664));
    EXPECT_EQ(cls_ComponentTable::Modules().size(), 15U);
    EXPECT_NE(ddr_Model().ConstExtension(ddr_Model::bcCmd()), nullptr);
    int own = 0;
    kbcC_initialize(own);
    EXPECT_EQ(own, 0) << "entered already";
    kbcC_finalize(own);
    DDB_GeometricAttributes_finalize(count);
    EXPECT_TRUE(cls_ComponentTable::IsEntered(664));
    DDB_GeometricAttributes_finalize(count);
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(cls_ComponentTable::IsEntered(664));
    EXPECT_EQ(ddr_Model().ConstExtension(ddr_Model::bcCmd()), nullptr);
    EXPECT_EQ(cls_MetadataRegistrar::Registrar().Find("kbcC_BC"), nullptr);
  }
}

}  // namespace
