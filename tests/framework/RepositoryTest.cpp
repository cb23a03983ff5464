#include "module/kpr/engine/kprC_PropagatingContainer.h"

#include <gmock/gmock.h>

#include <map>
#include <random>
#include <typeinfo>

#include "framework/ddr_Shortcut.h"
#include "framework/mdl_IdRepositoryOfCows.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "module/klo/kloC_BoltLoad.h"
#include "module/klo/kloC_ConcentratedLoads.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "tests/support/Library.h"
#include "tests/support/StepLetters.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Conditions = kprC_PropagatingContainer<kbcC_BC>;

class Repository : public test::WithLibrary {
protected:
  Repository() { Changes().TruncateTo(0); }

  static omu_ChangeHistory& Changes() { return thr_ThreadSingleton<omu_ChangeHistory>::Instance(); }
  /// What was recorded since the last call, "Insert Fix -99" and so on.
  std::vector<std::string> Recorded() {
    std::vector<std::string> texts;
    for (omu_PrimTuple const& record : Changes()) {
      std::string& text = texts.emplace_back();
      for (omu_PrimValue const& value : record) {
        text += text.empty() ? "" : " ";
        text += std::holds_alternative<int>(value) ? std::to_string(std::get<int>(value)) : std::string(std::get<cow_String>(value).View());
      }
    }
    Changes().TruncateTo(0);
    return texts;
  }
  static kbcC_DisplacementBC Condition(char const* step, char const* set = "Set-1") {
    kbcC_DisplacementBC condition;
    kbcC_DisplacementBCState state;
    state.u1 = 0.0;
    condition.SetMember("region", cls_Value(set));
    condition.Insert(cow_String(step), state);
    return condition;
  }
  static std::string History(Conditions const& conditions, char const* name) {
    std::string statuses;
    for (auto const status : conditions.ConstGet(name).History()) { statuses += std::to_string(static_cast<int>(status)) + " "; }
    return statuses;
  }
  static std::vector<std::string> Texts(cow_List<cow_String> const& names) {
    std::vector<std::string> texts;
    for (cow_String const& name : names) { texts.emplace_back(name.View()); }
    return texts;
  }
};

TEST_F(Repository, RecordsEveryChange) {
  Conditions conditions;
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IGG")));
  EXPECT_THAT(Recorded(), ElementsAre("RedoSummary"));

  EXPECT_TRUE(conditions.Insert("Fix", Condition("S1")));
  EXPECT_THAT(Recorded(), ElementsAre("Insert Fix -99"));
  EXPECT_TRUE(conditions.Insert("Fix", Condition("S2"))) << "a present name is replaced";
  EXPECT_THAT(Recorded(), ElementsAre("Remove Fix", "Insert Fix -99"));
  EXPECT_EQ(History(conditions, "Fix"), "0 0 1 ");
  conditions.Insert("Hold", Condition("Initial"));
  EXPECT_FALSE(conditions.Remove("Nobody"));
  EXPECT_THAT(Recorded(), ElementsAre("Insert Hold -99"));

  conditions.UpdateSteps(conditions.Steps());
  EXPECT_THAT(Recorded(), ElementsAre("Modify Fix.", "Modify Hold.")) << "an unchanged sequence";
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IGGG")));
  EXPECT_THAT(Recorded(), ElementsAre("RedoSummary", "Modify Fix.", "Modify Hold.", "Modify Fix.", "Modify Hold."));
  conditions.UpdateSteps(conditions.Steps().WithRemoved(2));
  EXPECT_THAT(Recorded(), ElementsAre("RedoSummary", "Remove Fix", "Modify Hold.", "Modify Hold."));
  EXPECT_TRUE(conditions.Remove("Hold"));
  EXPECT_THAT(Recorded(), ElementsAre("Remove Hold"));
}

TEST_F(Repository, RefusesAnInvalidAttributeAndStaysAsItWas) {
  Conditions conditions;
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IGAH")));
  Recorded();
  unsigned long long const stamp = conditions.TimeStamp();
  struct {
    char const* step;
    int code;
  } const rows[] = {{"S2", 24}, {"S3", 45}, {"Nowhere", 3}};
  for (auto const& row : rows) {
    EXPECT_EQ(test::CodeOf([&] { conditions.Insert("Fix", Condition(row.step)); }), row.code) << row.step;
  }
  EXPECT_TRUE(conditions.IsEmpty());
  EXPECT_EQ(conditions.TimeStamp(), stamp);
  EXPECT_THAT(Recorded(), IsEmpty());
  EXPECT_TRUE(conditions.ForcedInsert("Fix", Condition("S2"))) << "forced: no check";
  EXPECT_EQ(History(conditions, "Fix"), "0 0 1 6 ") << "but a history, in which heat transfer is passed over";
}

TEST_F(Repository, GoesOnFromWhatARefusedUpdateHasLeft) {
  kprC_PropagatingContainer<kloC_Load> loads;
  loads.UpdateSteps(kprC_StepTable(test::StepsOf("IGG")));
  auto const insert = [&loads](char const* name, std::unique_ptr<kloC_Load> load, char const* member) {
    std::string unknown;
    load->SetInStep("S1", {{member, 1.0}}, &unknown);
    loads.Insert(name, *load);
  };
  insert("A", std::make_unique<kloC_ConcentratedForce>(), "cf1");
  insert("Bolt", std::make_unique<kloC_BoltLoad>(), "magnitude");
  insert("Z", std::make_unique<kloC_ConcentratedForce>(), "cf1");
  auto const told = [&loads](char const* name) {
    std::string text;
    for (auto const status : loads.ConstGet(name).History()) { text += std::to_string(static_cast<int>(status)); }
    return text;
  };
  Changes().TruncateTo(0);
  kprC_StepNameProcedurePair const early(cow_String("Early"), test::StepOf('G')), late(cow_String("Late"), test::StepOf('G'));
  EXPECT_EQ(test::CodeOf([&] { loads.UpdateSteps(loads.Steps().WithInserted(1, early)); }), 37) << "a bolt is created in the first step";
  EXPECT_EQ(loads.Steps().Size(), 3U) << "the stored sequence is the old one";
  EXPECT_THAT(Recorded(), ElementsAre("RedoSummary", "Modify A.")) << "what was done stays";
  EXPECT_EQ(told("A") + " " + told("Bolt") + " " + told("Z"), "0012 012 012");
  loads.UpdateSteps(loads.Steps().WithInserted(3, late));
  EXPECT_EQ(told("A") + " " + told("Bolt") + " " + told("Z"), "0122 0122 0122");
  EXPECT_THAT(Recorded(), ElementsAre("RedoSummary", "Modify A.", "Modify Bolt.", "Modify Z.", "Modify A.", "Modify Bolt.", "Modify Z."));
}

TEST_F(Repository, HoldsRegionsWithoutAnOwnerOnceUntilTheyAreReleased) {
  Conditions conditions;
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IGG")));
  conditions.Insert("Fix", Condition("S2"));
  conditions.Insert("Hold", Condition("S2"));
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IG")));
  EXPECT_EQ(conditions.Dangling().Size(), 1U) << "left by two";
  Conditions again = conditions;
  again.Insert("Fix", Condition("S1"));
  again.Remove("Fix");
  EXPECT_TRUE(again.Dangling().IsEmpty()) << "it had an owner again";
  conditions.ReleaseDanglingRegions();
  EXPECT_TRUE(conditions.Dangling().IsEmpty());
}

TEST_F(Repository, GivesTheFirstSequenceToAttributesThatCameBeforeIt) {
  Conditions conditions;
  conditions.Insert("Fix", Condition("S1"));
  EXPECT_EQ(History(conditions, "Fix"), "1 ") << "no sequence yet: the create record stays";
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IGG")));
  EXPECT_EQ(History(conditions, "Fix"), "0 1 2 ");
}

TEST_F(Repository, KeepsItsTimeAndTheNamesThatChanged) {
  Conditions conditions;
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IG")));
  conditions.Insert("B", Condition("S1"));
  conditions.Insert("A", Condition("S1"));
  conditions.RecordModify("B");
  EXPECT_THAT(Texts(conditions.ChangedNames()), ElementsAre("A", "B"));
  unsigned long long const before = conditions.TimeStamp();
  conditions.ClearChangedNames();
  conditions.UpdateTimeStamp("");
  EXPECT_GT(conditions.TimeStamp(), before);
  EXPECT_THAT(Texts(conditions.ChangedNames()), IsEmpty());

  EXPECT_EQ(conditions.UnsuppressedSize(), 2);
  conditions.Get("A").Suppress();
  conditions.Get("B").Suppress();
  EXPECT_EQ(conditions.UnsuppressedSize(), 0);
  conditions.ClearSteps();
  EXPECT_TRUE(conditions.IsEmpty());
  EXPECT_EQ(conditions.Steps().Size(), 0U);
}

TEST_F(Repository, EndsRightWhateverChangesInOneUpdate) {
  Conditions conditions;
  auto const named = [](std::initializer_list<std::pair<char const*, char>> steps) {
    kprC_StepSequence sequence;
    for (auto const& [name, letter] : steps) { sequence.Append(kprC_StepNameProcedurePair(cow_String(name), test::StepOf(letter))); }
    return kprC_StepTable(std::move(sequence));
  };
  conditions.UpdateSteps(named({{"Initial", 'I'}, {"A", 'G'}, {"B", 'G'}, {"C", 'G'}}));
  conditions.Insert("OfA", Condition("A"));
  conditions.Insert("OfB", Condition("B", "Set-2"));
  kbcC_DisplacementBCState change;
  change.u2 = 1.0;
  conditions.Get("OfA").Insert("C", change);
  EXPECT_EQ(History(conditions, "OfA"), "0 1 2 3 ");

  conditions.UpdateSteps(named({{"Initial", 'I'}, {"B", 'G'}, {"A", 'G'}, {"C", 'G'}}));  // two names exchanged
  EXPECT_EQ(History(conditions, "OfA"), "0 1 2 3 ");
  EXPECT_EQ(conditions.ConstGet("OfA").CreateStepName(), "B");
  conditions.UpdateSteps(named({{"Initial", 'I'}, {"X", 'G'}, {"B", 'G'}, {"Y", 'P'}, {"A", 'G'}, {"C", 'G'}, {"Z", 'G'}}));
  EXPECT_EQ(History(conditions, "OfA"), "0 0 1 9 2 3 2 ");
  EXPECT_EQ(History(conditions, "OfB"), "0 0 0 0 1 2 2 ");
  conditions.UpdateSteps(named({{"Initial", 'I'}, {"B", 'G'}, {"Y", 'P'}, {"Z", 'G'}}));
  EXPECT_EQ(History(conditions, "OfA"), "0 1 9 2 ");
  EXPECT_FALSE(conditions.IsMember("OfB")) << "its create step is gone";
  ASSERT_EQ(conditions.Dangling().Size(), 1U);
  EXPECT_EQ(conditions.Dangling()[0].Name(), "Set-2");

  // a surface that another condition still acts on has an owner
  for (char const* step : {"B", "Y"}) {
    kbcC_DisplacementBC condition = Condition(step);
    condition.SetMember("region", cls_Value::Fields{{"name", "Top"}, {"kind", "SURFACE"}});
    ASSERT_EQ(condition.Regions(rgnC_Surface).Size(), 1U);
    conditions.Insert("OnTopFrom" + std::string(step), condition);
  }
  Conditions shorter = conditions;
  shorter.UpdateSteps(named({{"Initial", 'I'}, {"B", 'G'}, {"Z", 'G'}}));
  EXPECT_FALSE(shorter.IsMember("OnTopFromY"));
  EXPECT_EQ(shorter.Dangling().Size(), 1U);

  conditions.Remove("OnTopFromY");
  conditions.UpdateSteps(named({{"Initial", 'I'}, {"B", 'G'}, {"Y", 'G'}, {"Z", 'G'}}));  // another procedure
  EXPECT_EQ(History(conditions, "OfA"), "0 1 2 2 ");
  EXPECT_THROW(conditions.UpdateSteps(named({{"Initial", 'I'}, {"B", 'P'}, {"Y", 'G'}, {"Z", 'G'}})), nex_TextException)
      << "the create step's procedure cannot be replaced";
  Conditions const filled = conditions;
  conditions.UpdateSteps(kprC_StepTable(kprC_StepSequence()));
  EXPECT_EQ(filled.ConstGet("OfA").CreateStepName(), "B") << "a snapshot does not follow";
}

TEST_F(Repository, GivesSnapshotsThatDoNotFollowEdits) {
  Conditions conditions;
  conditions.UpdateSteps(kprC_StepTable(test::StepsOf("IGGG")));
  std::mt19937 random(7);
  std::vector<std::pair<Conditions, std::map<std::string, std::string>>> snapshots;
  auto const told = [&] {
    std::map<std::string, std::string> histories;
    conditions.ForEach(
        [&](cow_String const& name, kprC_StepDependent const&) { histories[name.c_str()] = History(conditions, name.c_str()); });
    return histories;
  };
  for (int edit = 0; edit < 200; ++edit) {
    std::string const name = "BC-" + std::to_string(random() % 8);
    if (!conditions.IsMember(name)) {
      conditions.Insert(cow_String(name), Condition("S1"));
    } else if (random() % 3 == 0) {
      conditions.Remove(cow_String(name));
    } else if (conditions.ConstGet(cow_String(name)).IsEditable("S2")) {
      conditions.Get(cow_String(name)).Deactivate("S2");
    }
    if (edit % 20 == 0) { snapshots.emplace_back(conditions, told()); }
  }
  for (auto& [snapshot, histories] : snapshots) {
    std::swap(conditions, snapshot);
    EXPECT_EQ(told(), histories);
  }
}

TEST_F(Repository, IsFoundThroughTheModelsShortcut) {
  ddr_ModelContainer models;
  models.Insert("Frame", cow_Handle<ddr_Model>::Make());
  kbcC_BCContainerShortcut const shortcut("Frame", ddr_Model::bcCmd()), lost("Other", ddr_Model::bcCmd());
  ASSERT_NE(shortcut.ConstGet(models), nullptr);
  EXPECT_EQ(shortcut.ConstGetParent(models), models.ConstGet("Frame"));
  EXPECT_EQ(shortcut.DdbName(), "Frame");
  EXPECT_EQ(lost.ConstGet(models), nullptr);

  ddr_ModelContainer const before = models;
  kprC_UpdateRepositories(*models.Get("Frame"));
  shortcut.Get(models)->Insert("Fix", Condition("Initial"));
  EXPECT_TRUE(shortcut.ConstGet(models)->IsMember("Fix"));
  EXPECT_FALSE(shortcut.ConstGet(before)->IsMember("Fix"));
}

TEST_F(Repository, FollowsTheModelsStepsWholeOrNotAtAll) {
  ddr_Model model;
  auto const step = [](char letter) { return test::StepOf(letter); };
  auto statics = cow_Handle<kprC_StaticStep>::Make();
  statics.Get().SetMember("initialInc", 0.1);
  statics.Get().SetMember("minInc", 1e-5);
  statics.Get().SetMember("maxInc", 1.0);
  kprC_InsertStep(model, "Initial", "Load", statics);
  kprC_InsertStep(model, "Load", "Modes", step('P'));
  auto& conditions = model.Get<Conditions>(ddr_Model::bcCmd());
  conditions.Insert("Fix", Condition("Load"));
  EXPECT_EQ(History(conditions, "Fix"), "0 1 9 ");
  Recorded();

  cow_Handle<mdl_Extension> const* const held = model.Extensions().ConstFind(ddr_Model::bcCmd());
  mdl_Extension const* const before = held->ConstGet();
  auto const refused = [&](auto&& edit, int code) {
    EXPECT_EQ(test::CodeOf(edit), code);
    EXPECT_EQ(model.ConstExtension(ddr_Model::bcCmd()), before) << code;
    EXPECT_EQ(kprC_Steps(model).Size(), 3U);
    EXPECT_THAT(Recorded(), IsEmpty());
  };
  refused([&] { kprC_InsertStep(model, "Initial", "Random", step('M')); }, 50);
  refused([&] { kprC_ReplaceStep(model, "Load", step('P')); }, 19);           // the condition's create step
  refused([&] { kprC_InsertStep(model, "Load", "Second", step('G')); }, 71);  // its parameters
  refused([&] { kprC_RemoveStep(model, "Initial"); }, 46);

  kprC_RenameStep(model, "Load", "Press");
  EXPECT_EQ(model.ConstGet<Conditions>(ddr_Model::bcCmd()).ConstGet("Fix").CreateStepName(), "Press");
  kprC_RemoveStep(model, "Press");
  EXPECT_FALSE(model.ConstGet<Conditions>(ddr_Model::bcCmd()).IsMember("Fix"));
}

/// What is refused with a nex_TextException.
template <class Ask> std::string Refused(Ask&& ask) {
  try {
    ask();
  } catch (nex_TextException const& refused) { return std::string(refused.Text().View()); }
  return "";
}

TEST_F(Repository, SaysWhatIsNotThere) {
  Conditions conditions;
  EXPECT_EQ(Refused([&] { conditions.Get("Fix"); }), "There is no \"Fix\" in the repository.");
  EXPECT_EQ(Refused([&] { conditions.ConstGet("Fix"); }), "There is no \"Fix\" in the repository.");
  ddr_Model model;
  EXPECT_EQ(Refused([&] { model.Get<Conditions>("nothing"); }), "There is no \"nothing\" in the model.");
  EXPECT_EQ(Refused([&] { model.ConstGet<Conditions>("nothing"); }), "There is no \"nothing\" in the model.");
  EXPECT_THROW(model.ConstGet<Conditions>(ddr_Model::stepsCmd()), std::bad_cast);
  EXPECT_EQ(ddr_ModelContainer().Get("Frame"), nullptr);
}

}  // namespace
