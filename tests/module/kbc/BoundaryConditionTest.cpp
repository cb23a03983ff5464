#include "framework/ddr_Model.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "module/kbc/kbcC_module.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "tests/support/OneAttribute.h"

namespace {

using Displacement = kbcC_DisplacementBCState;
using test::CodeOf;

class BoundaryCondition : public test::OneAttribute<kbcC_BC> {
protected:
  Displacement const& StateIn(std::size_t step) { return dynamic_cast<Displacement const&>(*Item().StateAt(step)); }
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
    EXPECT_EQ(Create("DisplacementBC", row.steps, row.step, row.members), row.code)
        << row.steps << " " << row.step << " " << row.members.front().first << " " << row.code;
  }
}

TEST_F(BoundaryCondition, FreesAndUnsetsComponentsWhereItMay) {
  ASSERT_EQ(Create("DisplacementBC", "IGGGG", "S1", {{"u1", 1.0}, {"u2", 2.0}}), -1);
  EXPECT_EQ(Edit("S2", {{"u1", "FREED"}}), -1);
  EXPECT_EQ(Edit("S2", {{"u2", "UNSET"}}), 22);
  EXPECT_EQ(Edit("S3", {{"u2", "UNSET"}}), 22);
  ASSERT_EQ(CodeOf([&] { Item().Deactivate("S3"); }), -1);
  EXPECT_EQ(Edit("S4", {{"u2", "FREED"}}), 21);
  EXPECT_EQ(Edit("S4", {{"u2", "UNSET"}}), 21);
  EXPECT_EQ(StateIn(2).u1, mdl_PropAttributeStateEnm::Freed);
  EXPECT_EQ(StateIn(2).u2, mdl_PropAttributeStateEnm::PropagatedValue);
  EXPECT_EQ(StateIn(3).u1, mdl_PropAttributeStateEnm::Unset);
  EXPECT_EQ(StateIn(3).u2, 2.0);
  EXPECT_TRUE(StateIn(4).SwitchedOff());
}

TEST_F(BoundaryCondition, KeepsFollowingWhatAStepDoesNotSay) {
  ASSERT_EQ(Create("DisplacementBC", "IGGG", "S1", {{"u1", 1.0}}), -1);
  ASSERT_EQ(Edit("S3", {{"u2", 5.0}}), -1);
  ASSERT_EQ(Edit("S2", {{"u1", 3.0}}), -1);
  EXPECT_EQ(StateIn(3).u1, 3.0) << "an earlier change of another component arrives";
  EXPECT_EQ(StateIn(3).u1, mdl_PropAttributeStateEnm::PropagatedValue);
  EXPECT_EQ(StateIn(3).u2, mdl_PropAttributeStateEnm::Set);
  ASSERT_EQ(Edit("S3", {{"u1", 7.0}}), -1);
  ASSERT_EQ(Edit("S2", {{"u1", 4.0}}), -1);
  EXPECT_EQ(StateIn(3).u1, 7.0) << "its own value stays";
}

TEST_F(BoundaryCondition, NeedsAFieldNameWithAFieldDistribution) {
  kbcC_DisplacementBC condition;
  ASSERT_TRUE(condition.SetMember("distributionType", "FIELD"));
  EXPECT_EQ(Create("IG", "S1", {{"u1", 1.0}}, condition), 59);
  condition.SetMember("fieldName", "Tilt");
  EXPECT_EQ(Create("IG", "S1", {{"u1", 1.0}}, condition), -1);
  EXPECT_TRUE(Item().UsesField());
}

TEST_F(BoundaryCondition, IsNotCheckedWhileSuppressed) {
  ASSERT_EQ(Create("DisplacementBC", "IGG", "S1", {{"u1", 0.5}}), -1);
  kbcC_BC& condition = Item();
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

  ASSERT_EQ(Create("DisplacementBC", "IGGG", "S1", {{"u1", 1.0}, {"amplitude", "Ramp"}}), -1);
  ASSERT_EQ(Edit("S2", {{"amplitude", "Hold"}}), -1);
  kbcC_BC& condition = Item();
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

TEST_F(BoundaryCondition, LendsARecordThatBecomesTheStepsOwnWhenItIsChanged) {
  ASSERT_EQ(Create("DisplacementBC", "IGGG", "S1", {{"u1", 1.0}}), -1);
  kbcC_BC& condition = Item();
  std::unique_ptr<cls_Object> const copy = condition.Copy();
  auto const& before = dynamic_cast<kbcC_BC const&>(*copy);
  auto& record = condition.GetStateQuad("S2");
  EXPECT_TRUE(condition.Equals(before)) << "merely lent";
  dynamic_cast<kbcC_DisplacementBCState&>(record.state.Get()).u2 = 5.0;
  EXPECT_EQ(condition.StateAt(2)->Member("u2"), cls_Value(5.0)) << "shows at once";
  EXPECT_EQ(condition.StateAt(3)->Member("u2"), cls_Value("UNSET")) << "nothing is formed before the next pass";
  EXPECT_FALSE(condition.Equals(before));
  EXPECT_EQ(History(), "0 1 2 2");
  condition.UpdateStates();
  EXPECT_EQ(History(), "0 1 3 2");
  EXPECT_EQ(condition.StateAt(3)->Member("u2"), cls_Value(5.0));
  EXPECT_EQ(record.status, mdl_PropagationStatusEnm::Modified) << "the reference stays that of the record";
  EXPECT_EQ(before.StateAt(2)->Member("u2"), cls_Value("UNSET"));
}

TEST_F(BoundaryCondition, ShowsARecordThatWasEmptiedAsItIsUntilTheNextPass) {
  ASSERT_EQ(Create("DisplacementBC", "IGGGP", "S1", {{"u1", 1.0}}), -1);
  EXPECT_EQ(Move("S1", "S4"), 39);
  EXPECT_EQ(History(), "0 1 2 2 9");
  EXPECT_EQ(Item().StateAt(2), nullptr) << "the records between are empty already";
  Item().UpdateStates();
  EXPECT_NE(Item().StateAt(2), nullptr);
  ASSERT_EQ(Edit("S3", {{"u1", 2.0}}), -1);
  Item().ReplaceStep("S3");
  EXPECT_EQ(History(), "0 1 2 0 9");
  EXPECT_EQ(Item().StateAt(3), nullptr);
  EXPECT_EQ(CodeOf([this] { Item().ReplaceStep("S1"); }), 19);
  ASSERT_EQ(Create("DisplacementBC", "IGGPP", "S1", {{"u1", 1.0}}), -1);
  ASSERT_EQ(Edit("S2", {{"u1", 2.0}}), -1);
  ASSERT_EQ(Edit("S3", {{"u2", 3.0}}), -1);
  Item().ReplaceStep("S2");
  EXPECT_EQ(History(), "0 1 0 10 9") << "also where others carry what it said";
  EXPECT_NE(Item().StateAt(4), nullptr);
  EXPECT_THROW(Item().StatusAt(5), std::out_of_range);
}

TEST_F(BoundaryCondition, KeepsTheIdentitiesOfItsRecordsWhenTheStepsAreHandedOverAgain) {
  ASSERT_EQ(Create("DisplacementBC", "IGG", "S1", {{"u1", 1.0}}), -1);
  cls_Uid const uid = Item().ConstGetStateQuad("S2").Uid();
  repository.UpdateSteps(kprC_StepTable(test::StepsOf("IGGG")));
  EXPECT_EQ(Item().ConstGetStateQuad("S2").Uid(), uid);
}

TEST_F(BoundaryCondition, IsNotLoadedInAnInitialStepWithoutAProcedure) {
  kprC_StepSequence steps = test::StepsOf("IG");
  steps.Get(0).procedure.Reset();
  repository.UpdateSteps(kprC_StepTable(steps));
  auto const condition = Made("DisplacementBC");
  std::string unknown;
  condition->SetInStep("Initial", {{"u1", 1.0}}, &unknown);
  EXPECT_EQ(CodeOf([&] { repository.Insert("A", *condition); }), 6);
}

TEST_F(BoundaryCondition, AsksItsStateWhatAStepMakesOfIt) {
  Displacement const carried;
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
