#include <limits>
#include <random>

#include <nlohmann/json.hpp>

#include "module/kbc/kbcC_ConnectorBC.h"
#include "tests/store/Models.h"

namespace {

class EitherStore : public testing::TestWithParam<Store> {};
INSTANTIATE_TEST_SUITE_P(Stores, EitherStore, testing::ValuesIn(kStores),
                         [](auto const& store) { return IsText(store.param) ? "Text" : "ModelFile"; });

TEST_P(EitherStore, GivesBackAnEqualModel) {
  ddr_Model initial;
  kprC_UpdateRepositories(initial);
  for (ddr_Model const& model : {ddr_Model(), initial, SmallModel()}) {
    ddr_Model const read = WrittenAndRead(GetParam(), model);
    EXPECT_TRUE(read.Equals(model));
    EXPECT_EQ(Dump(read), Dump(model));
    EXPECT_EQ(read.Name(), model.Name());
    EXPECT_EQ(read.Space(), model.Space());
  }
}

TEST_P(EitherStore, GivesBackEveryRecordOfAHistory) {
  ddr_Model const model = SmallModel();
  ddr_Model const read = WrittenAndRead(GetParam(), model);
  std::size_t compared = 0;
  for (auto const& [name, extension] : model.Extensions()) {
    auto const* const repository = dynamic_cast<kprC_StepAwareRepository const*>(extension.ConstGet());
    if (repository == nullptr) { continue; }
    cow_String const& member = name;
    repository->ForEach([&](cow_String const& itsName, kprC_StepDependent const& item) {
      auto const* const other = read.ConstGet<kprC_StepAwareRepository>(member).ConstItem(itsName.View());
      ASSERT_NE(other, nullptr) << itsName.View();
      EXPECT_EQ(other->Name(), itsName);
      EXPECT_EQ(other->History(), item.History()) << itsName.View();
      for (std::size_t i = 0; i < item.Steps().Size(); ++i) {
        cls_Object const* const state = item.StateAt(i);
        ASSERT_EQ(other->StateAt(i) != nullptr, state != nullptr);
        if (state != nullptr) { EXPECT_TRUE(other->StateAt(i)->Equals(*state)) << itsName.View() << i; }
      }
      ++compared;
    });
  }
  EXPECT_GE(compared, 10U);
}

TEST_P(EitherStore, MakesEachStepOnce) {
  ddr_Model const read = WrittenAndRead(GetParam(), SmallModel());
  kprC_StepContainer const& steps = kprC_Steps(read);
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    cls_Object const* const step = &steps.Step(i);
    EXPECT_EQ(ConstBCs(read).Steps()[i].procedure.ConstGet(), step);
    EXPECT_EQ(ConstBCs(read).ConstItem("Move")->Steps()[i].procedure.ConstGet(), step);
  }
}

TEST_P(EitherStore, TakesAModelThatCanBeEditedOn) {
  ddr_Model model = SmallModel();
  ddr_Model read = WrittenAndRead(GetParam(), model);
  for (ddr_Model* const one : {&model, &read}) {
    kprC_InsertStep(*one, "Step-2", "Between", StaticStep());
    kprC_RemoveStep(*one, "Step-4");
    GetBCs(*one).Get("Hold").Deactivate("Between");
    SetInStep(*one, "Fix", "Step-5", {{"u1", "FREED"}});
  }
  EXPECT_EQ(Dump(read), Dump(model));
}

TEST_P(EitherStore, KeepsNamesOfEveryKind) {
  ddr_Model model;
  auto& regions = model.Get<ddr_RegionMap>(ddr_Model::regionsCmd());
  std::string const names[] = {"",
                               " ",
                               "same",
                               "class",
                               "map",
                               "a/b\\c\"d",
                               std::string("zero\0inside", 11),
                               "\x01\x1F\x7F\n\t\r",
                               "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA9"};
  for (std::string const& name : names) { regions.Insert(name, cow_Handle<rgnC_Region>::Make(cow_String(name))); }
  ddr_Model const read = WrittenAndRead(GetParam(), model);
  for (std::string const& name : names) {
    auto const* const region = read.ConstGet<ddr_RegionMap>(ddr_Model::regionsCmd()).ConstGet(name);
    ASSERT_NE(region, nullptr) << name;
    EXPECT_EQ(region->Name(), name);
  }
}

TEST_P(EitherStore, KeepsObjectsThatSayManyTextsTwice) {
  ddr_Model model;
  AppendSteps(model, 1);
  kbcC_ConnDisplacementBC bc;
  cls_Value::List connectors;
  for (int i = 0; i < 200; ++i) { connectors.emplace_back("Hinge-" + std::to_string(i % 100)); }
  ASSERT_TRUE(bc.SetMember("connectors", connectors));
  bc.Insert("Step-1", kbcC_ConnDisplacementBCState());
  GetBCs(model).ForcedInsert("Hinges", bc);
  EXPECT_EQ(Dump(WrittenAndRead(GetParam(), model)), Dump(model));
}

TEST_P(EitherStore, KeepsStepsThatAreCalledLikeItsOwnWords) {
  ddr_Model model;
  std::vector<kprC_StepContainer::NamedStep> const steps = {
      {"same", StaticStep(0.1)}, {"null", StaticStep(0.2)}, {"procedure", StaticStep(0.3)}};
  model.Get<kprC_StepContainer>(ddr_Model::stepsCmd()).Insert("Initial", steps);
  kprC_UpdateRepositories(model);
  GetBCs(model).Insert("same", Displacement("same", 1.0));
  EXPECT_EQ(Dump(WrittenAndRead(GetParam(), model)), Dump(model));
}

TEST_P(EitherStore, ReadsBackNumbersExactly) {
  ddr_Model model;
  AppendSteps(model, 1);
  double const numbers[] = {
      0.1,  1.0 / 3.0, 1e23,         5e-324, 2.2250738585072014e-308, -1.7976931348623155e308, 9007199254740993.0, 123456789012345680000.0,
      1e15, -1.0,      cls_unsetReal};
  int count = 0;
  for (double const number : numbers) {
    kbcC_DisplacementBC bc;
    kbcC_DisplacementBCState state;
    state.u1 = number;
    bc.Insert("Step-1", state);
    GetBCs(model).Insert("BC-" + std::to_string(count++), bc);
  }
  ddr_Model const read = WrittenAndRead(GetParam(), model);
  for (int i = 0; i < count; ++i) {
    auto const* const state = ConstBCs(read).ConstItem("BC-" + std::to_string(i))->StateAt(1);
    EXPECT_EQ(dynamic_cast<kbcC_DisplacementBCState const&>(*state).u1.ConstGet(), numbers[i]);
  }
}

TEST_P(EitherStore, KeepsTheLargestNumberWhereItIsOne) {
  constexpr int kLargest = std::numeric_limits<int>::max();
  ddr_Model model;
  kprC_StepHandle step = StaticStep();
  EXPECT_TRUE(step.Get().SetMember("maxNumInc", kLargest));
  EXPECT_TRUE(step.Get().SetMember("stabilizationMagnitude", cls_unsetReal));  // can be unset, and is
  model.Get<kprC_StepContainer>(ddr_Model::stepsCmd()).Insert("Initial", "Step-1", step);
  kprC_UpdateRepositories(model);
  GetBCs(model).Insert("Fix", Displacement("Step-1", 1.0));
  SetInStep(model, "Fix", "Step-1", {{"u1", cls_unsetReal}});
  ddr_Model const read = WrittenAndRead(GetParam(), model);
  kprC_Step const& readStep = kprC_Steps(read).Step(1);
  EXPECT_EQ(readStep.Member("maxNumInc"), cls_Value(kLargest));
  EXPECT_EQ(readStep.Member("stabilizationMagnitude"), cls_Value());
  auto const* const state = ConstBCs(read).ConstItem("Fix")->StateAt(1);
  EXPECT_EQ(state->Member("u1"), cls_Value(cls_unsetReal));
  std::string const text = Dump(read);
  EXPECT_NE(text.find("1.7976931348623157e+308"), std::string::npos);
  EXPECT_NE(text.find("2147483647"), std::string::npos);
}

TEST_P(EitherStore, LeavesTheOldFileWhenAModelCannotBeWritten) {
  struct Row {
    double number;
    char const* region;
    char const* object;
    char const* expected;
  };
  for (Row const& row : {Row{std::numeric_limits<double>::quiet_NaN(), "Set-1", "Bad / states[", "u1: expected a finite number"},
                         Row{-std::numeric_limits<double>::infinity(), "Set-1", "Bad / states[", "u1: expected a finite number"},
                         Row{1.0, "bad \xFF text", "Bad / region / name", ": expected a text in UTF-8"}}) {
    ScratchFolder folder;
    auto const path = folder / GetParam().fileName;
    ddr_Model const good = SmallModel();
    GetParam().write(good, path);
    ddr_Model bad = good;
    GetBCs(bad).ForcedInsert("Bad", Displacement("Step-1", row.number, row.region));
    std::string const refusal = Refusal([&] { GetParam().write(bad, path); });
    EXPECT_TRUE(refusal.starts_with(path.string() + ": boundaryConditions / " + row.object)) << refusal;
    EXPECT_TRUE(refusal.ends_with(row.expected)) << refusal;
    EXPECT_TRUE(GetParam().read(path).Equals(good));
  }
}

kprC_StepHandle Frequency() {
  auto step = cow_Handle<kprC_FrequencyStep>::Make();
  step.Get().SetMember("numEigen", 3);
  return step;
}

/// One edit at random, of any kind; what is refused changes nothing.
void EditAtRandom(ddr_Model& model, std::mt19937& random) {
  auto const below = [&random](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
  ddr_Model const before = model;
  auto const steps = kprC_Steps(model).Names();
  auto const names = ConstBCs(model).Keys();
  cow_String const step = steps[below(steps.Size())];
  std::string const fresh = "New-" + std::to_string(random() % 1000);
  try {
    if (names.IsEmpty() || below(4) == 0) {
      GetBCs(model).Insert(fresh, Displacement(std::string(step.View()), step == "Initial" ? 0.0 : 0.5));
      return;
    }
    cow_String const name = names[below(names.Size())];
    switch (below(12)) {
      case 0: {
        kprC_StepHandle const inserted[] = {StaticStep(0.01 * static_cast<double>(1 + below(50))),
                                            cow_Handle<kprC_StaticLinearPerturbationStep>::Make(), Frequency()};
        kprC_InsertStep(model, step, fresh, inserted[below(3)]);
        break;
      }
      case 1: kprC_RemoveStep(model, step); break;
      case 2: kprC_RenameStep(model, step, fresh); break;
      case 3: kprC_ReplaceStep(model, step, StaticStep(0.02)); break;
      case 4: GetBCs(model).Remove(name); break;
      case 5: GetBCs(model).RenameItem(name, fresh); break;
      case 6: GetBCs(model).Get(name).Deactivate(step); break;
      case 9: GetBCs(model).Get(name).Reset(step); break;
      case 7: model.Get<ddr_RegionMap>(ddr_Model::regionsCmd()).Insert(fresh, cow_Handle<rgnC_Region>::Make(cow_String(fresh))); break;
      case 8: model.SetName(fresh); break;
      default: {
        std::string unknown;
        char const* const member = below(2) == 0 ? "u1" : "u2";
        cls_Value const value = below(4) == 0 ? cls_Value("FREED") : cls_Value(static_cast<double>(below(5)));
        GetBCs(model).Get(name).SetInStep(step, {{member, value}}, &unknown);
      }
    }
  } catch (std::exception const&) { model = before; }
}

TEST(ModelFile, SavesAnyEditsSinceAnyStateThatItHeld) {
  ScratchFolder folder;
  std::mt19937 random(7);
  gattr::ModelFile file(folder / "Model.gadb");
  std::vector<ddr_Model> states{SmallModel()};
  ddr_Model model = states[0];
  for (int round = 0; round < 120; ++round) {
    if (random() % 8 == 0) { model = states[random() % states.size()]; }  // as undo does
    for (auto edits = random() % 4; edits > 0; --edits) { EditAtRandom(model, random); }
    states.push_back(model);
    if (random() % 10 == 0) { file = gattr::ModelFile(folder / "Model.gadb"); }  // knows nothing of the file
    if (random() % 10 == 0) { ASSERT_TRUE(file.Open().Equals(states[states.size() - 2])); }
    file.Save(model);
    ddr_Model const read = gattr::ModelFile(folder / "Model.gadb").Open();
    ASSERT_EQ(Dump(read), Dump(model)) << "round " << round;
  }
}

TEST_P(EitherStore, KeepsASwitchOffThatAnEarlierOneCovers) {
  ddr_Model model;
  AppendSteps(model, 4);
  GetBCs(model).Insert("Fix", Displacement("Step-1", 1.0));
  GetBCs(model).Get("Fix").Deactivate("Step-4");
  GetBCs(model).Get("Fix").Deactivate("Step-2");
  ddr_Model read = WrittenAndRead(GetParam(), model);
  GetBCs(read).Get("Fix").Reset("Step-2");
  EXPECT_EQ(static_cast<int>(ConstBCs(read).ConstItem("Fix")->StatusAt(4)), 4);
}

TEST(Text, IsTheSameForEqualModelsHoweverTheyWereMade) {
  ddr_Model const model = SmallModel();
  ddr_Model const other = SmallModel();  // shares nothing with it
  EXPECT_EQ(Dump(other), Dump(model));

  ddr_Model detour = model;
  kprC_InsertStep(detour, "Step-1", "Gone", StaticStep());
  SetInStep(detour, "Move", "Step-3", {{"u2", 7.0}});
  SetInStep(detour, "Move", "Step-3", {{"u2", -2.5e10}});
  GetBCs(detour).RenameItem("Fix", "Other");
  GetBCs(detour).RenameItem("Other", "Fix");
  kprC_RemoveStep(detour, "Gone");
  ASSERT_TRUE(detour.Equals(model));
  EXPECT_EQ(Dump(detour), Dump(model));

  ddr_Model zero = model;
  SetInStep(zero, "Fix", "Initial", {{"u1", -0.0}});
  EXPECT_EQ(Dump(zero), Dump(model));
}

TEST(Text, OfTheFirstVersionIsTaken) {
  EXPECT_TRUE(Parse(FirstVersion()).Equals(SmallModel()));
  EXPECT_EQ(Dump(Parse(FirstVersion())), Dump(SmallModel()));
  nlohmann::json old = nlohmann::json::parse(FirstVersion());  // before models knew their space, and connectors
  old.erase("space");
  old["extensions"].erase("connectors");
  ddr_Model model = SmallModel();
  model.SetSpace(ddr_Model().Space());
  model.Get<ddr_ConnectorMap>(ddr_Model::connectorsCmd()).Remove("Hinge");
  EXPECT_EQ(Dump(Parse(old.dump())), Dump(model));
  old["extensions"] = nlohmann::json::object();
  EXPECT_EQ(Refusal([&] { Parse(old.dump()); }), "Model.gattr.json: steps: expected an object of class kprC_StepContainer");
}

TEST(Text, MayHaveItsMembersInAnyOrderAndAnyLayout) {
  ddr_Model const model = SmallModel();
  std::string compact = nlohmann::json::parse(Dump(model)).dump();  // in the order of the names, on one line
  EXPECT_EQ(Dump(Parse(compact)), Dump(model));
}

TEST(Text, TellsWhatEachStepSaysOfItsOwn) {
  ddr_Model model;
  AppendSteps(model, 5);
  GetBCs(model).Insert("Fix", Displacement("Step-1", 0.0));
  SetInStep(model, "Fix", "Step-2", {{"u1", "FREED"}, {"u2", 1e23}});
  GetBCs(model).Get("Fix").Deactivate("Step-4");
  EXPECT_NE(Dump(model).find(R"(
 ,"map": {
   "Fix": {"class": "kbcC_DisplacementBC"

   ,"region":
    {"name": "Set-1"}

   ,"states": [
     {"step": "Step-1"

     ,"class":
      "kbcC_DisplacementBCState"

     ,"u1":
      0

     }
    ,{"step": "Step-2"

     ,"u1State":
      "FREED"

     ,"u2":
      1e+23

     }
    ,{"off": "Step-4"}
    ]
   }
  }
)"),
            std::string::npos)
      << Dump(model);
}

TEST(Text, GivesBackAnyEdits) {
  std::mt19937 random(8);
  ddr_Model model = SmallModel();
  for (int round = 0; round < 400; ++round) {
    EditAtRandom(model, random);
    ddr_Model const read = Parse(Dump(model));
    ASSERT_TRUE(read.Equals(model)) << "round " << round;
    ASSERT_EQ(Dump(read), Dump(model)) << "round " << round;
  }
}

}  // namespace
