#include "module/kpr/steps/kprC_StaticStep.h"

#include <limits>

#include "tests/module/kpr/kprTestSteps.h"

namespace {

kprC_StaticStep Valid() {
  kprC_StaticStep step;
  step.initialInc = 0.1;
  step.minInc = 0.01;
  step.maxInc = 0.5;
  return step;
}

int CodeOf(kprC_StaticStep const& step) {
  return RefusalOf([&] { step.AssertValid(); });
}

TEST(StaticStep, ChecksTheBoundsOfAutomaticIncrementsInTurn) {
  struct Row {
    double minInc, initialInc, maxInc;
    int code;
  };
  constexpr Row kRows[] = {
      {0.0, 0.1, -1.0, 72},  // also 79
      {0.4, 0.1, 0.2, 79},   // also 80
      {0.2, 0.1, 0.2, 80},  {0.01, 0.1, 0.05, 78}, {0.01, 0.1, 1.01, 77}, {0.1, 0.1, 0.1, -1}, {1.0, 1.0, 1.0, -1},
  };
  for (Row const& row : kRows) {
    kprC_StaticStep step = Valid();
    step.minInc = row.minInc;
    step.initialInc = row.initialInc;
    step.maxInc = row.maxInc;
    EXPECT_EQ(CodeOf(step), row.code);
    step.timeIncrementationMethod = kprC_Step::TimeIncrementationMethodEnm::FIXED;
    EXPECT_EQ(CodeOf(step), -1) << "fixed increments have no bounds";
  }
}

TEST(StaticStep, NeedsItsFirstIncrement) {
  EXPECT_EQ(CodeOf(kprC_StaticStep()), 71);
  kprC_StaticStep step = Valid();
  step.initialInc = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(CodeOf(step), 71);
}

}  // namespace
