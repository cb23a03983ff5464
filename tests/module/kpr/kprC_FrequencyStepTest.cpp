#include "module/kpr/steps/kprC_FrequencyStep.h"

#include "tests/module/kpr/kprTestMembers.h"

namespace {

constexpr unsigned kFrequency = kprC_ProcedureType::Frequency;

struct Case {
  char const* what;
  Edits edits;
  int code;
};

void Check(std::vector<Case> const& rows, Edits const& valid = {}) {
  for (Case const& row : rows) { EXPECT_EQ(CodeOf(kFrequency, valid + row.edits), row.code) << row.what; }
}

cls_Value const kNone = cls_Value();
cls_Value const kTwoBoundaries = cls_Value::List{10.0, 20.0};

struct Step {
  int code;
  Edits repair;
};

// Starts with every fault at once and repairs them one by one.
void CheckInTurn(Edits const& faults, std::vector<Step> const& steps) {
  kprC_FrequencyStep step;
  Apply(step, faults);
  for (Step const& one : steps) {
    EXPECT_EQ(RefusalOf([&] { step.AssertValid(); }), one.code);
    Apply(step, one.repair);
  }
  EXPECT_EQ(RefusalOf([&] { step.AssertValid(); }), -1);
}

Edits const kCommonFaults = {{"maxEigen", 0.0},
                             {"numEigen", 0},
                             {"matrixSolver", "SYMMETRIC"},
                             {"propertyEvaluationFrequency", -1.0},
                             {"secondCutoffMultiplier", 1.0},
                             {"firstCutoffMultiplier", 6.0},
                             {"residualModeRegion", cls_Value::List{"", "B"}},
                             {"residualModeDof", cls_Value::List{0}}};
std::vector<Step> const kCommonRepairs = {{1, {{"maxEigen", kNone}}},
                                          {2, {{"numEigen", "ALL"}}},
                                          {140, {{"matrixSolver", "SOLVER_DEFAULT"}}},
                                          {91, {{"propertyEvaluationFrequency", 0.0}}},
                                          {237, {{"secondCutoffMultiplier", 7.0}}},
                                          {238, {{"substructureCutoffMultiplier", 6.0}}},
                                          {239, {{"secondCutoffMultiplier", 6.0}}},
                                          {240, {{"residualModeDof", cls_Value::List{0, 0}}}},
                                          {243, {{"residualModeRegion", cls_Value::List{"A", "B"}}}},
                                          {244, {{"residualModeDof", cls_Value::List{1, 0}}}},
                                          {244, {{"residualModeDof", cls_Value::List{1, 2}}}}};

std::vector<Step> Behind(std::vector<Step> const& steps) {
  std::vector<Step> all = kCommonRepairs;
  all.insert(all.end(), steps.begin(), steps.end());
  return all;
}

TEST(FrequencyStep, ChecksLanczosAfterWhatAllEigensolversShare) {
  CheckInTurn(kCommonFaults + Edits{{"acousticCoupling", "AC_PROJECTION"},
                                    {"blockSize", 0},
                                    {"maxBlocks", 0},
                                    {"numberInterval", 0},
                                    {"intervalBias", 1.2},
                                    {"intervalBoundaries", cls_Value::List{10.0, 0.0}}},
              Behind({{247, {{"acousticCoupling", "AC_ON"}}},
                      {155, {{"numEigen", 10}}},
                      {84, {{"blockSize", 1}}},
                      {85, {{"maxBlocks", 1}}},
                      {92, {{"numberInterval", 2}}},
                      {95, {{"intervalBias", 1.0}}},
                      {94, {{"numberInterval", 3}}},
                      {93, {{"intervalBoundaries", kTwoBoundaries}}}}));
}

TEST(FrequencyStep, ChecksTheSubspaceIteration) {
  CheckInTurn(kCommonFaults + Edits{{"eigensolver", "SUBSPACE"}, {"maxIterations", 0}, {"blockSize", 0}, {"numberInterval", 0}},
              Behind({{154, {{"maxEigen", 100.0}}}, {154, {{"numEigen", 10}}}, {3, {{"vectors", 1}}}, {4, {{"maxIterations", 1}}}}));
}

TEST(FrequencyStep, ChecksTheMultilevelSolver) {
  CheckInTurn(kCommonFaults + Edits{{"eigensolver", "AMS"}, {"acousticRangeFactor", 0.0}, {"residualModes", true}},
              Behind({{247, {{"acousticCoupling", "AC_PROJECTION"}}},
                      {248, {{"acousticRangeFactor", 1.0}}},
                      {241, {{"normalization", "MASS"}}},
                      {156, {{"maxEigen", 100.0}, {"residualModeRegion", cls_Value::List{}}, {"residualModeDof", cls_Value::List{}}}},
                      {245, {{"residualModes", false}}}}));
}

TEST(FrequencyStep, KeepsToTheLimitsOfItsChecks) {
  Edits const ten = {{"numEigen", 10}};
  Check({{"all defaults", {}, 155},
         {"all up to a frequency", {{"maxEigen", 100.0}}, -1},
         {"ten, other defaults", ten, -1},
         {"equal multipliers",
          ten + Edits{{"substructureCutoffMultiplier", 2.0}, {"firstCutoffMultiplier", 2.0}, {"secondCutoffMultiplier", 2.0}}, -1},
         {"two boundaries of three intervals", ten + Edits{{"numberInterval", 3}, {"intervalBoundaries", kTwoBoundaries}}, -1},
         {"the same biased", ten + Edits{{"numberInterval", 3}, {"intervalBoundaries", kTwoBoundaries}, {"intervalBias", 1.2}}, 95},
         {"a bias alone", ten + Edits{{"numberInterval", 3}, {"intervalBias", 1.2}}, -1},
         {"subspace, all", {{"eigensolver", "SUBSPACE"}, {"maxEigen", 100.0}}, 154}});
  Check({{"acoustic coupling", {}, 247},
         {"normalization", {{"acousticCoupling", "AC_OFF"}}, 241},
         {"no largest frequency", {{"acousticCoupling", "AC_OFF"}, {"normalization", "MASS"}}, 156},
         {"valid", {{"acousticCoupling", "AC_OFF"}, {"normalization", "MASS"}, {"maxEigen", 100.0}}, -1}},
        {{"eigensolver", "AMS"}});
}

TEST(FrequencyStep, TakesAllForANumberOfEigenvalues) {
  kprC_FrequencyStep step;
  EXPECT_EQ(step.Member("numEigen"), cls_Value("ALL"));
  Apply(step, {{"numEigen", 7}});
  EXPECT_EQ(step.Member("numEigen"), cls_Value(7));
  Apply(step, {{"numEigen", "ALL"}});
  EXPECT_EQ(step.numEigen, 2147483647);
  EXPECT_THROW(step.SetMember("numEigen", "all"), nex_TextException);
  Apply(step, {{"blockSize", 7}});
  Apply(step, {{"blockSize", "DEFAULT"}});
  EXPECT_EQ(step.blockSize, 2147483647);
  EXPECT_EQ(step.Member("blockSize"), cls_Value("DEFAULT"));
}

}  // namespace
