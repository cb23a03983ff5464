#include "module/kpr/kprC_StaticStep.h"

#include <algorithm>
#include <limits>

#include "tests/module/kpr/kprTestSteps.h"

namespace {

using Solver = kprC_Step::MatrixSolverEnm;
using Technique = kprC_Step::SolutionTechniqueEnm;
using Stabilization = kprC_StaticStep::StabilizationEnm;

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

struct Fault {
  int code;
  void (*commit)(kprC_StaticStep&);
};
// In the order of the checks; the bounds of the increments have a table of their own below.
constexpr Fault kFaults[] = {
    {151,
     [](kprC_StaticStep& step) { step.stabilizationMethod = Stabilization::DAMPING_FACTOR, step.matrixSolver = Solver::DDM_ITERATIVE; }},
    {74, [](kprC_StaticStep& step) { step.timePeriod = 0.0; }},
    {71, [](kprC_StaticStep& step) { step.initialInc = -0.1; }},
    {75, [](kprC_StaticStep& step) { step.initialInc = 1.5; }},
    {5, [](kprC_StaticStep& step) { step.maxNumInc = 0; }},
    {77, [](kprC_StaticStep& step) { step.maxInc = 1.5; }},
    {161, [](kprC_StaticStep& step) { step.applyContactIterations = true, step.matrixSolver = Solver::DDM_ITERATIVE; }},
    {236, [](kprC_StaticStep& step) { step.applyContactIterations = true, step.solutionTechnique = Technique::QUASI_NEWTON; }},
    {140, [](kprC_StaticStep& step) { step.solutionTechnique = Technique::QUASI_NEWTON, step.matrixSolver = Solver::DIRECT_UNSYMMETRIC; }},
    {249, [](kprC_StaticStep& step) { step.adaptiveDampingRatio = -0.05; }},
    {250, [](kprC_StaticStep& step) { step.continueDampingFactors = true; }},
};

TEST(StaticStep, RefusesEachFaultWithItsCode) {
  EXPECT_EQ(CodeOf(Valid()), -1);
  for (Fault const& fault : kFaults) {
    kprC_StaticStep step = Valid();
    fault.commit(step);
    EXPECT_EQ(CodeOf(step), fault.code);
  }
}

TEST(StaticStep, ReportsTheEarlierOfTwoFaults) {
  for (Fault const* earlier = std::begin(kFaults); earlier != std::end(kFaults); ++earlier) {
    for (Fault const* later = earlier + 1; later != std::end(kFaults); ++later) {
      kprC_StaticStep step = Valid();
      later->commit(step);
      earlier->commit(step);
      EXPECT_EQ(CodeOf(step), earlier->code) << "with " << later->code;
    }
  }
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

TEST(StaticStep, ListsEveryParameterUnderItsName) {
  std::vector<std::string> names;
  kprC_StaticStep::VisitMembers([&](std::string_view name, auto, cls_MemberText const& text) {
    names.emplace_back(name);
    EXPECT_NE(text.meaning, "") << name;
  });
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::string>{"adaptiveDampingRatio",
                                             "adiabatic",
                                             "amplitude",
                                             "applyContactIterations",
                                             "contactIterations",
                                             "contactSolutions",
                                             "continueDampingFactors",
                                             "convertSDI",
                                             "description",
                                             "extrapolation",
                                             "fullyPlastic",
                                             "initialInc",
                                             "matrixSolver",
                                             "maxInc",
                                             "maxNumInc",
                                             "minInc",
                                             "nlgeom",
                                             "noStop",
                                             "reformKernel",
                                             "solutionTechnique",
                                             "stabilization",
                                             "stabilizationMagnitude",
                                             "stabilizationMethod",
                                             "timeIncrementationMethod",
                                             "timePeriod",
                                             "useLongTermSolution"}));
}

}  // namespace
