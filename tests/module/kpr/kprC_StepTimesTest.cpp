#include "module/kpr/model/kprC_StepTimes.h"

#include <gtest/gtest.h>

#include "tests/support/StepLetters.h"

namespace {

TEST(StepTimes, LetTheGeneralStepsMoveTheClock) {
  kprC_StepContainer steps;
  std::pair<char, double> const added[] = {{'G', 2.0}, {'P', 0.0}, {'M', 5.0}, {'A', 0.0}, {'E', 0.5}};
  std::string after = "Initial";
  for (auto const& [letter, period] : added) {
    kprC_StepHandle step = test::StepOf(letter);
    if (period > 0.0) { step.Get().SetMember("timePeriod", period); }
    std::string const name(1, letter);
    steps.Insert(after, cow_String(name), step);
    after = name;
  }
  kprC_StepTimes const times(steps);
  std::pair<double, double> const expected[] = {{0, 0}, {0, 2}, {2, 0}, {2, 5}, {2, 0}, {2, 0.5}};  // beginning and period
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    EXPECT_EQ(std::pair(times.Start(i), times.Period(i)), expected[i]) << steps.Name(i).View();
  }
  std::pair<double, std::pair<std::size_t, double>> const rows[] = {{-1, {0, -1}},     {0, {1, 0}},     {1.5, {1, 1.5}}, {2, {1, 2}},
                                                                    {2.25, {5, 0.25}}, {2.5, {5, 0.5}}, {9, {5, 7}}};
  for (auto const& [total, at] : rows) { EXPECT_EQ(times.At(total), at) << total; }

  ampC_TabularAmplitude ramp;
  ramp.SetMember("points", cls_Value::List{cls_Value::List{0.0, 0.0}, cls_Value::List{10.0, 10.0}});
  EXPECT_EQ(times.ValueAt(ramp, 5, 0.25), 0.25);
  ramp.SetMember("timeSpan", "TOTAL");
  EXPECT_EQ(times.ValueAt(ramp, 5, 0.25), 2.25);
  EXPECT_EQ(times.ValueAt(ramp, 3, 0.25), 2.25) << "time of its own behind the state that it looks at";
}

}  // namespace
