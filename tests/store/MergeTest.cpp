#include <sys/wait.h>

#include <functional>

#include "tests/store/Models.h"

namespace {

using Edit = std::function<void(ddr_Model&)>;

/// What git makes of two branches that both come from \p base.
std::string Merged(ddr_Model const& base, ddr_Model const& ours, ddr_Model const& theirs) {
  ScratchFolder folder;
  gattr::WriteTextFile(base, folder / "base");
  gattr::WriteTextFile(ours, folder / "ours");
  gattr::WriteTextFile(theirs, folder / "theirs");
  std::string const path = (folder / "").string();
  std::string const command = "git merge-file " + path + "ours " + path + "base " + path + "theirs";
  int const status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 0) << "conflicts";
  std::ostringstream merged;
  merged << std::ifstream(folder / "ours", std::ios::binary).rdbuf();
  return merged.str();
}

/// Three conditions with neighbouring values and records, loads, a region that two of them share.
ddr_Model Base() {
  ddr_Model model = SmallModel();
  SetInStep(model, "Move", "Step-1", {{"u1", 0.1}, {"u2", 0.2}, {"u3", 0.3}});
  GetBCs(model).Insert("Slide", Displacement("Step-1", 0.1));
  SetInStep(model, "Slide", "Step-3", {{"u1", 0.5}});
  return model;
}

Edit Set(char const* name, char const* step, char const* member, cls_Value const& value) {
  return [=](ddr_Model& model) { SetInStep(model, name, step, {{member, value}}); };
}
Edit SetParameter(char const* step, char const* member, cls_Value const& value) {
  return [=](ddr_Model& model) {
    kprC_StepHandle changed(std::unique_ptr<kprC_Step>(static_cast<kprC_Step*>(kprC_Steps(model).Find(step)->Copy().release())));
    ASSERT_TRUE(changed.Get().SetMember(member, value));
    kprC_ReplaceStep(model, step, changed);
  };
}
Edit InsertStep(char const* after, char const* name) {
  return [=](ddr_Model& model) { kprC_InsertStep(model, after, name, StaticStep(0.25)); };
}
Edit Off(char const* name, char const* step) {
  return [=](ddr_Model& model) { GetBCs(model).Get(name).Deactivate(step); };
}

TEST(Text, OfTwoBranchesThatEditDifferentValuesMergesWithoutAConflict) {
  struct Row {
    char const* what;
    Edit ours, theirs;
  };
  Row const rows[] = {
      {"neighbouring values of a record", Set("Move", "Step-1", "u1", 7.0), Set("Move", "Step-1", "u2", 8.0)},
      {"the last value, and one behind it", Set("Move", "Step-1", "u3", 7.0), Set("Move", "Step-1", "ur1", 8.0)},
      {"the first value, and one before it", Set("Move", "Step-1", "u1", 7.0), Set("Move", "Step-1", "amplitude", "Ramp")},
      {"a value, and its neighbour freed", Set("Move", "Step-3", "u1", 7.0), Set("Move", "Step-3", "u2", "FREED")},
      {"a value that is carried, and a later change", Set("Slide", "Step-1", "u1", 7.0), Set("Slide", "Step-3", "u2", 8.0)},
      {"a value, and a record behind it", Set("Move", "Step-1", "u3", 7.0), Set("Move", "Step-2", "u1", 8.0)},
      {"a value, and a record before it", Set("Move", "Step-3", "amplitude", ""), Set("Move", "Step-2", "u1", 8.0)},
      {"the same step of neighbouring conditions", Set("Move", "Step-2", "u1", 7.0), Set("Slide", "Step-2", "u1", 8.0)},
      {"a value, and a switch-off behind it", Set("Slide", "Step-3", "u1", 7.0), Off("Slide", "Step-5")},
      {"a switch-off before a change", Set("Slide", "Step-3", "u1", 7.0), Off("Slide", "Step-2")},
      {"a switch-off before another", Off("Slide", "Step-5"), Off("Slide", "Step-2")},
      {"a condition, and a value of its neighbour", [](ddr_Model& model) { GetBCs(model).Insert("Next", Displacement("Step-1", 1.0)); },
       Set("Slide", "Step-1", "u1", 8.0)},
      {"a condition that goes, and a value of its neighbour", [](ddr_Model& model) { GetBCs(model).Remove("Move"); },
       Set("Slide", "Step-1", "u1", 8.0)},
      {"a step, and a value in the one before it", InsertStep("Step-2", "Between"), Set("Move", "Step-2", "u1", 8.0)},
      {"a step, and a value in the one behind it", InsertStep("Step-2", "Between"), Set("Move", "Step-3", "u1", 8.0)},
      {"a step, and a parameter of the one before it", InsertStep("Step-2", "Between"), SetParameter("Step-2", "maxInc", 0.5)},
      {"a step, and a parameter of the one behind it", InsertStep("Step-2", "Between"), SetParameter("Step-3", "initialInc", 0.5)},
      {"a step, and the last one's last parameter", InsertStep("Step-5", "Last"), SetParameter("Step-5", "maxInc", 0.5)},
      {"two steps", InsertStep("Step-2", "Between"), InsertStep("Step-4", "Late")},
      {"neighbouring parameters of a step", SetParameter("Step-2", "minInc", 1e-6), SetParameter("Step-2", "maxInc", 0.5)},
      {"the model's name, and its space", [](ddr_Model& model) { model.SetName("Other"); },
       [](ddr_Model& model) { model.SetSpace(ddr_Model::AXISYMMETRIC); }},
      {"a region's text, and a value of what acts on it",
       [](ddr_Model& model) {
         auto const& regions = model.ConstGet<ddr_RegionMap>(ddr_Model::regionsCmd());
         cow_Handle<rgnC_Region> region = cow_Handle<rgnC_Region>::Make(*regions.ConstGet("Surf-1"));
         region.Get().SetMember("dimension", 2);
         model.Get<ddr_RegionMap>(ddr_Model::regionsCmd()).Insert("Surf-2", region);
       },
       Set("Hold", "Step-2", "u1", 8.0)},
  };
  if (std::system("git --version > /dev/null") != 0) { GTEST_SKIP() << "git is not installed"; }
  ddr_Model const base = Base();
  for (Row const& row : rows) {
    SCOPED_TRACE(row.what);
    ddr_Model ours = base, theirs = base;
    row.ours(ours);
    row.theirs(theirs);
    ddr_Model both = ours;
    row.theirs(both);
    ASSERT_NE(Dump(both), Dump(ours));
    ASSERT_NE(Dump(both), Dump(theirs));
    for (std::string const& merged : {Merged(base, ours, theirs), Merged(base, theirs, ours)}) {
      EXPECT_EQ(merged, Dump(both));
      EXPECT_EQ(Refusal([&] { EXPECT_TRUE(Parse(merged).Equals(both)); }), "");
    }
  }
}

}  // namespace
