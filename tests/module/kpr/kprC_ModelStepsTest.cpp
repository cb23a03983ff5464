#include "module/kpr/model/kprC_ModelSteps.h"

#include "module/kpr/kprC_module.h"
#include "tests/module/kpr/kprTestMembers.h"

namespace {

using enum kprC_ProcedureType::Enm;

class ModelSteps : public ::testing::Test {
protected:
  ModelSteps() {
    kprC_initialize(count_);
    model_ = ddr_Model();
  }
  ~ModelSteps() override {
    model_ = {};
    kprC_finalize(count_);
  }

  static kprC_StepHandle Step(unsigned type, Edits const& edits = {}) {
    kprC_StepHandle step = kprC_MakeStep(type);
    Apply(step.Get(), edits);
    return step;
  }
  static kprC_StepHandle Static(char const* nlgeom) {
    return Step(kprC_ProcedureType::Static, {{"nlgeom", nlgeom}, {"initialInc", 0.1}, {"minInc", 0.1}, {"maxInc", 0.1}});
  }

  /// Runs an edit and returns its code. A refused one must have left the model alone.
  template <class Edit> int Try(Edit&& edit) {
    ddr_Model const before = model_;
    int const code = RefusalOf([&] { edit(model_); });
    if (code != -1) { EXPECT_TRUE(model_.Equals(before)); }
    return code;
  }
  int Insert(char const* previous, char const* name, kprC_StepHandle const& step) {
    return Try([&](ddr_Model& model) { kprC_InsertStep(model, previous, name, step); });
  }
  int Replace(char const* name, kprC_StepHandle const& step) {
    return Try([&](ddr_Model& model) { kprC_ReplaceStep(model, name, step); });
  }
  int Remove(char const* name) {
    return Try([&](ddr_Model& model) { kprC_RemoveStep(model, name); });
  }

  ddr_Model model_;

private:
  int count_ = 0;
};

TEST_F(ModelSteps, KeepNlgeomOnOnceItIsOn) {
  EXPECT_EQ(Insert("Initial", "A", Static("OFF")), -1);
  EXPECT_EQ(Insert("A", "B", Static("ON")), -1);
  EXPECT_EQ(Insert("B", "C", Static("OFF")), 53);
  EXPECT_EQ(Insert("B", "C", Static("ON")), -1);
  EXPECT_EQ(Insert("Initial", "Before", Static("OFF")), -1);
  EXPECT_EQ(Insert("Initial", "First", Static("ON")), 53) << "two steps behind it have it off";
  EXPECT_EQ(Replace("C", Static("OFF")), 53);
  EXPECT_EQ(Replace("A", Static("ON")), -1);
  EXPECT_EQ(Replace("A", Static("OFF")), -1);
  EXPECT_EQ(Remove("B"), -1);
  EXPECT_EQ(Replace("C", Static("OFF")), -1) << "nothing before it has it on any more";
}

TEST_F(ModelSteps, LookThroughStepsWithoutNlgeom) {
  EXPECT_EQ(Insert("Initial", "A", Static("ON")), -1);
  EXPECT_EQ(Insert("A", "Modes", Step(Frequency, {{"numEigen", 10}})), -1);
  EXPECT_EQ(Insert("Modes", "Linear", Step(StaticLinearPerturbation)), -1);
  EXPECT_EQ(Insert("Linear", "B", Static("OFF")), 53);
  EXPECT_EQ(Insert("Linear", "B", Step(Geostatic, {{"nlgeom", "OFF"}})), 53);
  EXPECT_EQ(Insert("Linear", "B", Step(Geostatic, {{"nlgeom", "ON"}})), -1);
}

TEST_F(ModelSteps, RefuseParametersBeforeTheSequenceAndThatBeforeNlgeom) {
  ASSERT_EQ(Insert("Initial", "A", Static("ON")), -1);
  kprC_StepHandle const unfinished = Step(kprC_ProcedureType::Static);
  EXPECT_EQ(Insert("A", "B", unfinished), 71);
  EXPECT_EQ(Replace("A", unfinished), 71);
  EXPECT_EQ(Insert("A", "B", Step(ExplicitDynamics)), 50);
  EXPECT_EQ(Insert("A", "B", Static("OFF")), 53);
}

}  // namespace
