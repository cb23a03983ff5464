#include "module/klo/kloC_module.h"
#include "tests/support/OneAttribute.h"

namespace {

kprC_Arguments const kForce = {{"cf1", 1.0}};

using LoadHistory = test::OneAttribute<kloC_Load>;

TEST_F(LoadHistory, DropsWhatAPerturbationStepWouldChange) {
  ASSERT_EQ(Create("ConcentratedForce", "IGPG", "S1", kForce), -1);
  ASSERT_EQ(Edit("S2", {{"cf1", 7.0}}), -1);
  EXPECT_EQ(Item().StateAt(2)->Member("cf1"), cls_Value(1.0));
  EXPECT_EQ(Item().StateAt(3)->Member("cf1"), cls_Value(1.0));
}

TEST_F(LoadHistory, IsNotCreatedWhereTheTypeIsNotAdmitted) {
  struct {
    char const* steps;
    char const* step;
    int code;
  } const rows[] = {{"IG", "Initial", 34}, {"IXA", "S2", 18}, {"IGF", "S2", 34}, {"IH", "S1", 34}, {"IGC", "S2", 34}, {"IGP", "S2", -1}};
  for (auto const& row : rows) {
    EXPECT_EQ(Create("ConcentratedForce", row.steps, row.step, kForce), row.code) << row.steps << " " << row.step;
  }
  EXPECT_EQ(Create("ConcentratedForce", "IG", "S1", {{"cf1", "PROPAGATED"}}), 21);
  EXPECT_EQ(Create("ConcentratedForce", "IG", "S1", {{"cf1", "much"}}), 21);
  EXPECT_EQ(Create("ConcentratedForce", "IG", "S1", {{"cf1", 1.0}, {"amplitude", 3}}), 17);
}

TEST_F(LoadHistory, IsNotSwitchedOffInThisOrderOfRefusals) {
  ASSERT_EQ(Create("ConcentratedForce", "IGPGGXAX", "S3", kForce), -1);
  ASSERT_EQ(Deactivate("S7"), -1);
  ASSERT_EQ(History(), "0 0 0 1 2 2 6 4");
  EXPECT_EQ(Deactivate("Nowhere"), 31);
  EXPECT_EQ(Deactivate("Initial"), 31);
  EXPECT_EQ(Deactivate("S2"), -1) << "not there yet: nothing to do, not even in a perturbation step";
  EXPECT_EQ(Deactivate("S7"), -1) << "off already";
  EXPECT_EQ(Deactivate("S6"), 9);
  ASSERT_EQ(Create("ConcentratedForce", "IGPPG", "S2", kForce), -1);
  EXPECT_EQ(Deactivate("S3"), 8) << "a perturbation step before a load that is not active";
  EXPECT_EQ(Deactivate("S4"), 9);
}

TEST_F(LoadHistory, KnowsTheInitialStepByItsPlaceToo) {
  kprC_StepSequence steps = test::StepsOf("IGG");
  steps.Get(0).procedure.Reset();
  repository.UpdateSteps(kprC_StepTable(steps));
  auto const force = Made("ConcentratedForce");
  std::string unknown;
  force->SetInStep("S1", kForce, &unknown);
  repository.Insert("A", *force);
  EXPECT_EQ(Deactivate("Initial"), 31);
}

TEST_F(LoadHistory, StaysWhenTheSameStepsAreHandedOverAgain) {
  ASSERT_EQ(Create("ConcentratedForce", "IGGUG", "S1", kForce), -1);
  ASSERT_EQ(Edit("S2", {{"cf2", 2.0}}), -1);
  ASSERT_EQ(Deactivate("S2"), -1);
  ASSERT_EQ(Deactivate("S1"), -1);
  ASSERT_EQ(Edit("S3", {{"cf1", 3.0}}), -1);
  Item().Remove("S1");
  ASSERT_EQ(Edit("S2", {{"cf3", 4.0}}), -1);
  EXPECT_EQ(History(), "0 0 1 8 2");
  auto const off = [this](std::size_t index) { return Item().StateAt(index)->Member("deactivate"); };
  EXPECT_EQ(off(3), cls_Value(false));
  repository.UpdateSteps(kprC_StepTable(test::StepsOf("IGGUG")));
  EXPECT_EQ(History(), "0 0 1 8 2");
  EXPECT_EQ(off(3), cls_Value(false));
}

TEST_F(LoadHistory, CarriesWhatAnotherCreationLeftToASwitchOff) {
  Create("ConcentratedForce", "IGGG", "S2", {{"cf1", 1.0}});
  Deactivate("S2");
  EXPECT_EQ(Item().StateAt(3)->Member("cf1"), cls_Value(1.0));  // also makes it
  Item().Suppress();
  Edit("S1", {{"cf2", "FREED"}});  // the creation now, which gives nothing on
  Item().Remove("S1");
  EXPECT_EQ(History(), "0 0 4 5");
  EXPECT_EQ(Item().StateAt(3)->Member("cf1"), cls_Value("UNSET"));
}

TEST_F(LoadHistory, IsNotMovedInThisOrderOfRefusals) {
  struct {
    char const* steps;
    char const* created;
    std::vector<char const*> modified;
    char const* from;
    char const* to;
    int code;
  } const rows[] = {
      {"IGGGG", "S1", {"S2"}, "S1", "Nowhere", 31},  {"IGGGG", "S1", {"S2"}, "Nowhere", "Nowhere", 31},
      {"IGGGG", "S1", {}, "S1", "S1", -1},           {"IGGGG", "S1", {"S2", "S3"}, "S1", "S3", 22},
      {"IGGGG", "S1", {"S2", "S3"}, "S3", "S1", 22}, {"IGGGG", "S1", {}, "Initial", "S1", 23},
      {"IGGGG", "S1", {}, "S2", "S1", 23},           {"IGGGG", "S3", {}, "S1", "S2", 13},
      {"IGPGG", "S1", {}, "S3", "S2", 14},           {"IGPPG", "S2", {}, "S2", "S3", 24},
      {"IGPPG", "S1", {}, "S2", "S3", 24},           {"IGPMG", "S1", {}, "S1", "S2", 25},
      {"IGFMG", "S1", {}, "S1", "S3", 25},           {"IXAXX", "S1", {}, "S1", "S2", 26},
      {"IGHGG", "S1", {}, "S1", "S2", 33},           {"IGGGG", "S1", {}, "S1", "Initial", 33},
      {"IGPGG", "S1", {}, "S1", "S3", -1},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(row.steps) + " created in " + row.created + ", " + row.from + " to " + row.to);
    ASSERT_EQ(Create("ConcentratedForce", row.steps, row.created, kForce), -1);
    for (char const* step : row.modified) { ASSERT_EQ(Edit(step, {{"cf2", 1.0}}), -1); }
    auto const before = Item().Copy();
    std::string const history = History();
    EXPECT_EQ(Move(row.from, row.to), row.code);
    if (row.code == -1) { continue; }
    EXPECT_EQ(History(), history);
    EXPECT_TRUE(Item().Equals(*before)) << "a refused move leaves the load as it was";
  }
  EXPECT_EQ(History(), "0 0 0 1 2") << "the last row moves";
}

TEST_F(LoadHistory, IsResetWhereAStepSaysSomethingThatCanBeTakenBack) {
  ASSERT_EQ(Create("ConcentratedForce", "IGGGGA", "S1", kForce), -1);
  ASSERT_EQ(Edit("S2", {{"cf1", 2.0}}), -1);
  ASSERT_EQ(Deactivate("S3"), -1);
  ASSERT_EQ(History(), "0 1 3 4 5 6");
  EXPECT_EQ(Reset("S1"), 15);
  for (char const* step : {"Initial", "S2", "S4", "S5"}) { EXPECT_EQ(Reset(step), 68) << step; }
  EXPECT_EQ(Reset("Nowhere"), 31);
  EXPECT_EQ(Reset("S3"), -1);
  EXPECT_EQ(History(), "0 1 3 2 2 6");
}

TEST_F(LoadHistory, StaysAsItWasWhenAnEditIsRefusedLate) {
  ASSERT_EQ(Create("Pressure", "IGGG", "S1", {{"magnitude", 1.0}}), -1);
  auto const before = Item().Copy();
  EXPECT_EQ(Edit("S2", {{"distType", "HYDROSTATIC"}, {"hZero", 2.0}, {"hReference", 2.0}}), 20);
  EXPECT_TRUE(Item().Equals(*before));
  Item().Suppress();
  EXPECT_EQ(Edit("S2", {{"distType", "HYDROSTATIC"}}), -1) << "nothing is checked while it is suppressed";
  EXPECT_EQ(History(), "0 1 3 2");
  EXPECT_EQ(test::CodeOf([&] { Item().AssertValidAnyMagnitude(); }), -1);
  EXPECT_EQ(test::CodeOf([&] { Item().Resume(); }), 20);
  EXPECT_TRUE(Item().IsSuppressed());
  kprC_StepTable const shorter = Item().Steps().WithRemoved(1);
  repository.UpdateSteps(shorter);
  EXPECT_TRUE(repository.IsEmpty()) << "goes with the step that created it";
}

TEST_F(LoadHistory, OfABoltBeginsInTheFirstStepAndNeverEnds) {
  kprC_Arguments const force = {{"magnitude", 5.0}};
  EXPECT_EQ(Create("BoltLoad", "IGG", "S2", force), 37);
  EXPECT_EQ(Create("BoltLoad", "IPG", "S2", force), 37);
  EXPECT_EQ(Create("BoltLoad", "IPG", "S1", force), 34) << "perturbation procedures do not admit it at all";
  EXPECT_EQ(Create("BoltLoad", "IGG", "S1", {{"boltMethod", "FIXED"}}), 38);
  ASSERT_EQ(Create("BoltLoad", "IGG", "S1", force), -1);
  EXPECT_EQ(Edit("S2", {{"boltMethod", "FIXED"}}), -1);
  EXPECT_EQ(History(), "0 1 3");
  for (char const* step : {"S1", "S2", "Initial", "Nowhere"}) {
    EXPECT_EQ(Deactivate(step), 35) << step;
    EXPECT_EQ(Move(step, "S2"), 36) << step;
  }
  EXPECT_EQ(test::CodeOf([&] { repository.UpdateSteps(Item().Steps().WithInserted(1, {"New", test::StepOf('G')})); }), 37);
}

TEST_F(LoadHistory, IsAskedForByStep) {
  ASSERT_EQ(Create("ConcentratedForce", "IGGPG", "S2", {{"cf1", 1.0}, {"amplitude", "Ramp"}}), -1);
  ASSERT_EQ(Deactivate("S4"), -1);
  ASSERT_EQ(History(), "0 0 1 8 4");
  struct {
    char const* step;
    bool has, editable;
    int check, loadCase;
  } const rows[] = {{"Initial", true, false, 32, 53}, {"S1", true, false, 32, 53}, {"S2", true, true, -1, -1},
                    {"S3", true, false, -1, -1},      {"S4", true, false, 32, 53}, {"Nowhere", false, false, 32, 53}};
  for (auto const& row : rows) {
    SCOPED_TRACE(row.step);
    EXPECT_EQ(Item().HasStep(row.step), row.has);
    EXPECT_EQ(test::CodeOf([&] { Item().CheckStep(row.step); }), row.check);
    EXPECT_EQ(test::CodeOf([&] { Item().ValidInALoadCase(row.step, true); }), row.loadCase);
    EXPECT_EQ(Item().ValidInALoadCase(row.step, false), row.loadCase == -1);
    EXPECT_EQ(Item().IsEditable(row.step), row.editable);
  }
  EXPECT_EQ(Item().GetEditableStepName("S3"), "S2");
  EXPECT_EQ(Item().Amplitudes().Size(), 1U);
  Item().Suppress();
  EXPECT_EQ(test::CodeOf([&] { Item().CheckStep("S2"); }), 32);
  EXPECT_FALSE(Item().ValidInALoadCase("S2", false));
}

}  // namespace
