#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "framework/ddr_ModelMembers.h"
#include "module/DDB_GeometricAttributes.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "module/klo/kloC_Loads.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "store/ModelFile.h"
#include "store/StoreError.h"
#include "store/TextStore.h"

/// The library, started for the time of a test program.
class LibraryEnvironment : public testing::Environment {
public:
  void SetUp() override { DDB_GeometricAttributes_initialize(count_); }
  void TearDown() override { DDB_GeometricAttributes_finalize(count_); }

private:
  int count_ = 0;
};

inline auto* const libraryEnvironment = testing::AddGlobalTestEnvironment(new LibraryEnvironment);

inline void PutBytes(std::filesystem::path const& path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }
inline std::string BytesOf(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A folder of its own for one test, gone afterwards.
class ScratchFolder {
public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "gattr-store-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ScratchFolder(ScratchFolder const&) = delete;
  ScratchFolder& operator=(ScratchFolder const&) = delete;
  ~ScratchFolder() { std::filesystem::remove_all(path_); }

  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

private:
  std::filesystem::path path_;
};

/// A store, for tests of what both must do.
struct Store {
  char const* fileName;
  void (*write)(ddr_Model const&, std::filesystem::path const&);
  ddr_Model (*read)(std::filesystem::path const&);
};
inline bool IsText(Store const& store) { return std::string_view(store.fileName).ends_with("json"); }
inline Store const kText{"Model.gattr.json", &gattr::WriteTextFile, &gattr::ReadTextFile};
inline Store const kModelFile{"Model.gadb",
                              [](ddr_Model const& model, std::filesystem::path const& path) { gattr::ModelFile(path).Save(model); },
                              [](std::filesystem::path const& path) { return gattr::ModelFile(path).Open(); }};
inline Store const kStores[] = {kText, kModelFile};

inline ddr_Model WrittenAndRead(Store const& store, ddr_Model const& model) {
  ScratchFolder folder;
  store.write(model, folder / store.fileName);
  return store.read(folder / store.fileName);
}

/// The model's canonical text.
inline std::string Dump(ddr_Model const& model) {
  std::ostringstream out;
  gattr::WriteText(model, out);
  return out.str();
}
inline ddr_Model Parse(std::string const& text) {
  std::istringstream in(text);
  return gattr::ReadText(in, "Model.gattr.json");
}

/// What the first version of the text form made of SmallModel.
inline std::string FirstVersion() {
  std::ostringstream text;
  text << std::ifstream(GATTR_SOURCE_DIR "/tests/store/data/first_version.gattr.json", std::ios::binary).rdbuf();
  return text.str();
}

/// What \p action refuses; empty when it refuses nothing.
template <class Action> std::string Refusal(Action&& action) {
  try {
    action();
  } catch (gattr::StoreError const& error) { return error.what(); }
  return "";
}

using BCs = kprC_PropagatingContainer<kbcC_BC>;
inline BCs& GetBCs(ddr_Model& model) { return model.Get<BCs>(ddr_Model::bcCmd()); }
inline BCs const& ConstBCs(ddr_Model const& model) { return model.ConstGet<BCs>(ddr_Model::bcCmd()); }

inline kprC_StepHandle StaticStep(double initialInc = 0.1) {
  auto step = cow_Handle<kprC_StaticStep>::Make();
  step.Get().initialInc = initialInc;
  step.Get().minInc = 1e-5;
  step.Get().maxInc = 1.0;
  return step;
}

/// Appends the steps "Step-1" to "Step-<count>".
inline void AppendSteps(ddr_Model& model, int count) {
  std::vector<kprC_StepContainer::NamedStep> steps;
  for (int i = 1; i <= count; ++i) { steps.push_back({"Step-" + std::to_string(i), StaticStep()}); }
  auto& container = model.Get<kprC_StepContainer>(ddr_Model::stepsCmd());
  container.Insert(container.Name(container.Size() - 1).View(), steps);
  kprC_UpdateRepositories(model);
}

inline kbcC_DisplacementBC Displacement(std::string const& step, double u1, std::string const& region = "Set-1") {
  kbcC_DisplacementBC bc;
  kbcC_DisplacementBCState state;
  state.u1 = u1;
  bc.SetMember("region", cls_Value(region));
  bc.Insert(cow_String(step), state);
  return bc;
}

inline void SetInStep(ddr_Model& model, std::string const& name, std::string const& step, kprC_Arguments const& members) {
  std::string unknown;
  BCs& bcs = GetBCs(model);
  ASSERT_TRUE(bcs.Get(name).SetInStep(cow_String(step), members, &unknown)) << unknown;
  bcs.RecordModify(name);
}

using Loads = kprC_PropagatingContainer<kloC_Load>;

/// Loads with a history, and with a state over each of the bases: one value, spread or not, components, points, a traction.
inline void AddLoads(ddr_Model& model) {
  Loads& loads = model.Get<Loads>(kloC_Load::loadRepositoryCmd());
  std::string unknown;
  auto const set = [&](kloC_Load& load, char const* step, kprC_Arguments const& members) {
    ASSERT_TRUE(load.SetInStep(step, members, &unknown)) << unknown;
  };
  auto const add = [&](char const* name, kloC_Load&& load, kprC_Arguments const& members) {
    set(load, "Step-1", members);
    loads.Insert(name, load);
  };
  using List = cls_Value::List;
  kloC_Pressure pressure;
  pressure.SetMember("region", cls_Value("Surf-1"));
  add("Press", std::move(pressure), {{"magnitude", 0.1}, {"distType", "HYDROSTATIC"}, {"hZero", 3.0}, {"hReference", -1.0 / 7.0}});
  add("Pipe", kloC_PipePressure(), {{"magnitude", -2.0}, {"diameter", 0.3}});
  add("Pull", kloC_ConcentratedForce(), {{"useComplex", true}, {"complexC2Imag", 1e-9}, {"cf1", "FREED"}});
  add("Spin", kloC_RotationalBodyForce(),
      {{"magnitude", 100.0}, {"centrifugal", true}, {"coordAxisPt1", List{0.0, 0.5}}, {"coordAxisPt2", List{0.0, 0.5, 1.0}}});
  add("Shear", kloC_SurfaceTraction(), {{"magnitude", 5.0}, {"directionVector", List{List{0.0, 0.0}, List{0.0, 2.5}}}});
  add("Bolt", kloC_BoltLoad(), {{"magnitude", 9e4}});
  set(loads.Get("Bolt"), "Step-3", {{"boltMethod", "FIXED"}});
  set(loads.Get("Pull"), "Step-3", {{"amplitude", "Ramp"}, {"complexC1Real", 2.0}});
  loads.Get("Pull").Deactivate("Step-4");
  loads.Get("Pipe").Suppress();
}

/// Five steps in the plane; conditions that are created, changed, freed, switched off, suppressed; loads; regions, amplitudes,
/// connectors.
inline ddr_Model SmallModel() {
  ddr_Model model;
  model.SetName("Bracket \"A\"\n\xC3\xA4");
  model.SetSpace(ddr_Model::TWO_D_PLANAR);
  AppendSteps(model, 5);
  auto& regions = model.Get<ddr_RegionMap>(ddr_Model::regionsCmd());
  regions.Insert("Set-1", cow_Handle<rgnC_Region>::Make("Set-1"));
  regions.Insert("Surf-1", cow_Handle<rgnC_Region>::Make("Surf-1", rgnC_Surface));
  model.Get<ddr_AmplitudeMap>(ddr_Model::amplitudesCmd()).Insert("Ramp", cow_Handle<ampC_Amplitude>::Make());
  auto hinge = cow_Handle<conC_Connector>::Make();
  hinge.Get().SetMember("components", cls_Value(cls_Value::List{1, 4}));
  model.Get<ddr_ConnectorMap>(ddr_Model::connectorsCmd()).Insert("Hinge", hinge);
  BCs& bcs = GetBCs(model);
  bcs.Insert("Fix", Displacement("Initial", 0.0));
  bcs.Insert("Move", Displacement("Step-1", 0.1));
  bcs.Insert("Hold", Displacement("Step-2", 1e-300, "Surf-1"));
  kbcC_TypeBC clamp(kbcC_TypeBC::ENCASTRE);
  clamp.Insert("Step-1", *clamp.NewState());
  bcs.Insert("Clamp", clamp);
  SetInStep(model, "Move", "Step-3", {{"u1", 1.0 / 3.0}, {"u2", -2.5e10}, {"amplitude", "Ramp"}});
  SetInStep(model, "Move", "Step-4", {{"u1", "FREED"}});
  bcs.Get("Hold").Deactivate("Step-4");
  bcs.Get("Clamp").Suppress();
  AddLoads(model);
  return model;
}
