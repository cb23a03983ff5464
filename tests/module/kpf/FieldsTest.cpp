#include "module/kpf/kpfC_Fields.h"
#include "module/kpf/kpfC_ResultsFiles.h"
#include "tests/support/OneAttribute.h"

namespace {

using List = cls_Value::List;
using Space = ddr_Model::SpaceEnm;

class Fields : public test::OneAttribute<kpfC_Field> {
protected:
  int ResetToInitial(char const* step) {
    return test::CodeOf([&] { Item().ResetToInitial(step); });
  }
  /// Creates one in a region, with a field name; answers what it refuses, at last of a model in \p space.
  int Make(char const* command, kprC_Arguments const& members, char const* steps = "IG", char const* step = "Initial",
           Space space = Space::THREE_D) {
    int const code = Create(command, steps, step, members, {{"region", "Bar"}, {"fieldName", "Depth"}});
    if (code >= 0) { return code; }
    ddr_Model model;
    model.SetSpace(space);
    return test::CodeOf([&] { Item().AssertInModel(model); });
  }
};

kprC_Arguments const kWarm = {{"magnitudes", 20.0}};

TEST_F(Fields, HaveTheHistoriesThatTheirStepsGive) {
  ASSERT_EQ(Make("Temperature", kWarm, "IGPG"), -1);
  EXPECT_EQ(History(), "1 2 8 2");
  EXPECT_EQ(ResetToInitial("S1"), -1);
  EXPECT_EQ(History(), "1 15 13 13");
  EXPECT_EQ(Reset("S1"), -1);
  EXPECT_EQ(History(), "1 2 8 2");
  ASSERT_EQ(Make("Temperature", kWarm, "IGTG", "S1"), -1);
  EXPECT_EQ(History(), "0 1 6 2");
  ASSERT_EQ(Make("Temperature", kWarm, "IGTG"), -1);
  EXPECT_EQ(History(), "1 2 14 2");
  EXPECT_EQ(Edit("S1", {{"magnitudes", 30.0}}), -1);
  EXPECT_EQ(History(), "1 3 6 2");
  ASSERT_EQ(Make("Velocity", {{"velocity1", 1.0}}, "IGPG"), -1);
  EXPECT_EQ(History(), "1 14 8 14");
}

TEST_F(Fields, AreResetAndMovedByRulesOfTheirOwn) {
  ASSERT_EQ(Make("Temperature", kWarm, "IGGPTG", "S1"), -1);
  EXPECT_EQ(ResetToInitial("S9"), 24);
  EXPECT_EQ(ResetToInitial("S1"), 11);
  EXPECT_EQ(ResetToInitial("Initial"), -1) << "nothing there";
  EXPECT_EQ(ResetToInitial("S3"), 5);
  EXPECT_EQ(ResetToInitial("S4"), 6);
  EXPECT_EQ(Reset("S9"), 24);
  EXPECT_EQ(Reset("S1"), 11);
  EXPECT_EQ(Reset("Initial"), 89);
  EXPECT_EQ(Reset("S4"), 89);
  EXPECT_EQ(Move("S2", "S5"), 10);
  EXPECT_EQ(Move("S1", "S3"), 18);
  EXPECT_EQ(Move("S1", "S4"), 26);
  EXPECT_EQ(Move("Initial", "S2"), 15);
  EXPECT_EQ(Move("S4", "S5"), 9);
  EXPECT_EQ(ResetToInitial("S2"), -1);
  EXPECT_EQ(History(), "0 1 15 13 6 13");
  EXPECT_EQ(ResetToInitial("S5"), -1) << "it is so already";
  EXPECT_EQ(Move("S1", "S2"), 16);
  EXPECT_EQ(Move("S1", "S5"), 15);
  EXPECT_EQ(Reset("S2"), -1);
  EXPECT_EQ(Edit("S4", {{"magnitudes", 30.0}}), 68);
  EXPECT_EQ(History(), "0 1 2 8 6 2");
  ASSERT_EQ(Make("Velocity", {{"velocity1", 1.0}}, "IGG"), -1);
  EXPECT_EQ(ResetToInitial("S1"), 4);
  EXPECT_EQ(Move("S1", "S2"), 10);
  struct {
    char const* steps;
    int code;
  } const targets[] = {{"IXXA", 19}, {"IGFM", 20}, {"IGFS", -1}, {"IGFP", 18}};
  for (auto const& [steps, code] : targets) {
    ASSERT_EQ(Make("GeneralField", kWarm, steps, "S1"), -1);
    EXPECT_EQ(Move("S1", "S3"), code) << steps;
  }
  ASSERT_EQ(Make("Temperature", kWarm, "IGPG", "S2"), -1);
  EXPECT_EQ(History(), "0 0 1 7");
  EXPECT_EQ(Move("S2", "S3"), 17);
}

TEST_F(Fields, RefuseStepsAndValues) {
  kprC_Arguments const geostatic = {{"distribution", "GEOSTATIC"}, {"mag1", 0.0}, {"mag2", -1e5}, {"vCoord1", 10.0}, {"vCoord2", -5.0},
                                    {"lateralCoeff1", 0.4}};
  auto const without = [](kprC_Arguments members, std::string_view name) {
    std::erase_if(members, [name](auto const& member) { return member.first == name; });
    return members;
  };
  auto const with = [](kprC_Arguments members, char const* name, cls_Value value) {
    members.emplace_back(name, std::move(value));
    return members;
  };
  cls_Value const tensor = List{1.0, 1.0, 1.0, 0.0, 0.0, 0.0};
  kprC_Arguments const stress = {{"sectionType", "SOLID"}, {"stressTensor", tensor}};
  kprC_Arguments const linear = {{"distribution", "LINEAR"}, {"mag1", 0.0}, {"mag2", 98.0}, {"vCoord1", 10.0}, {"vCoord2", 0.0}};
  cls_Value const two = List{20.0, 0.5}, three = List{20.0, 0.5, 0.1};
  auto const over = [](char const* section, cls_Value values) {
    return kprC_Arguments{{"crossSectionDistribution", section}, {"magnitudes", std::move(values)}};
  };
  kprC_Arguments const file = {{"distribution", "FROM_FILE"}, {"fileName", "job.odb"}};
  std::string const longest = std::string(28, 'a') + ".odb";
  struct {
    char const* command;
    kprC_Arguments members;
    int code;
    char const* steps = "IG";
    char const* step = "Initial";
    Space space = Space::THREE_D;
  } const rows[] = {
      {"GeneralField", kWarm, 14, "IXA", "S2"},
      {"Temperature", kWarm, 14, "IXA", "S2"},
      {"Temperature", kWarm, 68, "IH", "S1"},
      {"Temperature", kWarm, 27, "IGF", "S2"},
      {"Temperature", kWarm, -1, "IGP", "S2"},
      {"MassFlowRate", {{"magnitude", 1.0}}, -1, "IH", "S1"},
      {"MassFlowRate", {{"magnitude", 1.0}}, 27, "IG", "S1"},
      {"Velocity", {{"velocity1", 1.0}}, 27, "IG", "S1"},
      {"Temperature", {{"magnitudes", 0.0}}, 28},
      {"Temperature", {{"magnitudes", 0.0}, {"distribution", "FIELD"}}, -1},
      {"Saturation", {{"magnitude", 0.0}}, 28},
      {"Saturation", {}, 62},
      {"Temperature", {{"distribution", "LINEAR"}}, 29},
      {"PressureStress", {{"distribution", "GEOSTATIC"}}, 30},
      {"MassFlowRate", {{"distribution", "FROM_FILE"}}, 31},
      {"GeneralField", {{"distribution", "GEOSTATIC"}}, 32},
      {"GeneralField", over("CONSTANT_THROUGH_THICKNESS", two), 33},
      {"GeneralField", over("GRADIENTS_THROUGH_SHELL_CS", three), 34},
      {"GeneralField", over("GRADIENTS_THROUGH_SHELL_CS", two), -1},
      {"GeneralField", over("GRADIENTS_THROUGH_BEAM_CS", 20.0), 35},
      {"GeneralField", over("GRADIENTS_THROUGH_BEAM_CS", three), -1},
      {"GeneralField", over("GRADIENTS_THROUGH_BEAM_CS", three), 36, "IG", "Initial", Space::TWO_D_PLANAR},
      {"GeneralField", over("GRADIENTS_THROUGH_BEAM_CS", two), -1, "IG", "Initial", Space::TWO_D_PLANAR},
      {"Temperature", over("GRADIENTS_THROUGH_BEAM_CS", two), 37, "IG", "Initial", Space::AXISYMMETRIC},
      {"Temperature", over("POINTS_THROUGH_SECTION", List{}), 38},
      {"Temperature", {{"distribution", "USER_DEFINED"}}, 94},
      {"Temperature", {{"distribution", "USER_DEFINED"}}, -1, "IG", "S1"},
      {"Velocity", {{"velocity1", 1.0}, {"distribution", "USER_DEFINED"}}, 39},
      {"PorePressure", {{"distribution", "GEOSTATIC"}}, 40},
      {"SDV", {{"distribution", "FIELD"}}, 42},
      {"Velocity", {{"velocity1", 0.0}, {"velocity2", 0.0}, {"velocity3", 0.0}, {"omega", 0.0}}, 43},
      {"Velocity", {{"omega", 1.0}}, 44},
      {"Velocity", {{"omega", 1.0}, {"axisBegin", List{}}}, 7},
      {"Velocity", {{"omega", 1.0}, {"axisBegin", List{0.0, 1.0}}}, 72},
      {"Velocity", {{"omega", 1.0}, {"axisBegin", List{0.0, 1.0, 0.0}}, {"axisEnd", List{0.0, 1.0, 1.0}}}, -1},
      {"Velocity", {{"omega", 1.0}, {"axisBegin", List{0.0}}}, 71, "IG", "Initial", Space::TWO_D_PLANAR},
      {"Velocity", {{"omega", 1.0}, {"axisBegin", List{0.0, 1.0}}}, -1, "IG", "Initial", Space::TWO_D_PLANAR},
      {"Velocity", {{"omega", 1.0}, {"axisBegin", List{0.0, 1.0}}}, 70, "IG", "Initial", Space::AXISYMMETRIC},
      {"PorePressure", {{"magnitude", 1.0}, {"mag1", 1.0}}, 45},
      {"PorePressure", {{"magnitude", 1.0}, {"vCoord2", 1.0}}, 46},
      {"VoidsRatio", without(linear, "mag2"), 47},
      {"VoidsRatio", without(linear, "vCoord1"), 48},
      {"VoidsRatio", linear, -1},
      {"Stress", {{"distribution", "LINEAR"}}, 49},
      {"Stress", with(stress, "mag1", 1.0), 50},
      {"Stress", with(stress, "vCoord1", 1.0), 51},
      {"Stress", with(stress, "lateralCoeff2", 1.0), 52},
      {"Stress", with(geostatic, "stressTensor", tensor), 53},
      {"Stress", with(geostatic, "sectionType", "SOLID"), 54},
      {"Stress", without(geostatic, "mag1"), 55},
      {"Stress", without(geostatic, "vCoord2"), 56},
      {"Stress", without(geostatic, "lateralCoeff1"), 57},
      {"Stress", geostatic, -1},
      {"Stress", {}, 58},
      {"StressTensor", {{"stressTensor", tensor}}, 59},
      {"StressTensor", with(stress, "distribution", "USER_DEFINED"), 60},
      {"StressTensor", stress, -1},
      {"StressTensor", stress, 61, "IG", "Initial", Space::TWO_D_PLANAR},
      {"Hardening", {{"equivPlasticStrain", 0.0}, {"distribution", "USER_DEFINED"}}, 63},
      {"Hardening", {}, 64},
      {"Hardening", {{"equivPlasticStrain", 0.0}}, -1},
      {"SDV", {{"magnitudes", two}, {"distribution", "USER_DEFINED"}}, 65},
      {"SDV", {}, 66},
      {"Temperature", with(file, "fileName", longest), -1},
      {"Temperature", with(file, "fileName", "a" + longest), 95},
      {"Temperature", with(file, "fileName", "runs/job.odb"), 90},
      {"Temperature", with(file, "beginStep", 0), 91},
      {"Temperature", with(file, "endStep", "LAST_STEP"), -1},
      {"Temperature", with(file, "endIncrement", 0), 92},
      {"Temperature", with(file, "endInc", -1), 92},
      {"Temperature", with(file, "beginInc", "STEP_END"), -1},
      {"Temperature", with(file, "exteriorTolerance", 0.0), 87},
      {"Temperature", with(with(file, "fileName", "job.fil"), "absoluteExteriorTolerance", 0.1), 88},
      {"Temperature", with(with(file, "fileName", "job.RES"), "exteriorTolerance", 0.1), 88},
      {"Temperature", with(with(file, "fileName", "job.ODB"), "exteriorTolerance", 0.1), -1},
      {"Temperature", with(file, "absoluteExteriorTolerance", 0.1), -1},
      {"InitialState", {{"fileName", "job.odb"}}, -1},
  };
  for (auto const& row : rows) {
    std::string told;
    for (auto const& [name, value] : row.members) { told += " " + name; }
    EXPECT_EQ(Make(row.command, row.members, row.steps, row.step, row.space), row.code) << row.command << told;
  }
  EXPECT_EQ(Create("Temperature", "IG", "Initial", file), -1) << "a file needs no region";
  EXPECT_EQ(Create("Temperature", "IG", "Initial", kWarm), 77);
  EXPECT_EQ(Create("GeneralField", "IG", "Initial", over("GRADIENTS_THROUGH_BEAM_CS", 20.0)), 35) << "no space has it";
  EXPECT_EQ(Create("Temperature", "IG", "Initial", {{"magnitudes", 20.0}, {"distribution", "FIELD"}}, {{"region", "Bar"}}), 96);
}

TEST_F(Fields, RefuseTemperaturesInAdiabaticStepsBeforeThoseThatSolveForThem) {
  auto sequence = test::StepsOf("IGTG");
  auto const made = Made("Temperature");
  made->SetMember("region", "Bar");
  kprC_StepTable const steps(sequence);
  cow_Handle<kprC_Step> adiabatic = kprC_MakeStep(kprC_ProcedureType::Static);
  adiabatic.Get().SetMember("adiabatic", true);
  repository = {};
  repository.UpdateSteps(steps.WithReplaced(3, {"S3", adiabatic}));
  std::string unknown;
  made->SetInStep("S1", kWarm, &unknown);
  made->Suppress();
  repository.Insert("A", *made);
  EXPECT_EQ(History(), "0 1 6 6");
  EXPECT_EQ(Edit("S2", kWarm), -1) << "nothing is asked of a suppressed one";
  EXPECT_EQ(Edit("S3", kWarm), -1);
  EXPECT_EQ(test::CodeOf([&] { Item().Resume(); }), 67);
  Item().Remove("S3");
  EXPECT_EQ(test::CodeOf([&] { Item().Resume(); }), 68);
}

/// An application's results files: two steps of eleven frames and three.
class ResultsFiles final : public kpfC_ResultsFiles {
public:
  std::optional<kpfC_ResultsFile> Find(std::string_view fileName) const override {
    if (fileName != "job.odb") { return {}; }
    return kpfC_ResultsFile{true, {11, 3}, {{"Plate-1", true}, {"Die-1", false}}};
  }
};

class FieldsFromFiles : public Fields {
protected:
  FieldsFromFiles() { kpfC_ResultsFiles::Set(std::make_shared<ResultsFiles>()); }
  ~FieldsFromFiles() override { kpfC_ResultsFiles::Set(nullptr); }
};

TEST_F(FieldsFromFiles, AreAskedWhatTheFilesHold) {
  auto const read = [this](kprC_Arguments members) {
    members.emplace_back("distribution", "FROM_FILE");
    return Make("Temperature", members);
  };
  EXPECT_EQ(read({{"fileName", "job.odb"}}), -1);
  EXPECT_EQ(read({{"fileName", "job.odb"}, {"beginStep", 3}}), 84);
  EXPECT_EQ(read({{"fileName", "job.odb"}, {"beginStep", "FIRST_STEP"}, {"endStep", 2}, {"endInc", 3}}), -1);
  EXPECT_EQ(read({{"fileName", "job.odb"}, {"endStep", "LAST_STEP"}, {"endInc", 4}}), 84);
  read({{"fileName", "other.fil"}});
  EXPECT_THROW(Item().AssertInModel(ddr_Model()), nex_TextException);
  EXPECT_EQ(Make("Temperature", {{"magnitudes", 20.0}, {"fileName", "other.fil"}}), -1) << "not read";
  auto const state = [this](char const* instance) {
    EXPECT_EQ(Create("InitialState", "IG", "Initial", {{"fileName", "job.odb"}}, {{"instanceNames", List{instance}}}), -1);
    return test::CodeOf([&] { Item().AssertInModel(ddr_Model()); });
  };
  EXPECT_EQ(state("Plate-1"), -1);
  EXPECT_EQ(state("Punch-1"), 83);
  EXPECT_EQ(state("Die-1"), 86);
}

TEST_F(Fields, HaveAnInstanceInOneInitialStateOnly) {
  ASSERT_EQ(Create("InitialState", "IG", "Initial", {}, {{"instanceNames", List{"Plate-1", "Die-1"}}}), -1);
  Item().SetMember("fieldName", "");
  auto const second = Made("InitialState");
  std::string unknown;
  second->SetMember("instanceNames", List{"Punch-1", "Die-1"});
  second->SetInStep("Initial", {}, &unknown);
  repository.Insert("B", *second);
  ddr_Model model;
  model.Get<kprC_PropagatingContainer<kpfC_Field>>(kpfC_Field::predefinedFieldsCmd()) = repository;
  EXPECT_EQ(test::CodeOf([&] { Item().AssertInModel(model); }), 85);
  repository.Get("B").Suppress();
  model.Get<kprC_PropagatingContainer<kpfC_Field>>(kpfC_Field::predefinedFieldsCmd()) = repository;
  EXPECT_EQ(test::CodeOf([&] { Item().AssertInModel(model); }), -1);
}

}  // namespace
