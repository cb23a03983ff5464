#include "module/kpr/kprC_assert.h"

#include "tests/module/kpr/kprTestSteps.h"

namespace {

TEST(StepRefusals, AreTextExceptionsThatNameTheirCode) {
  ASSERT_EQ(kprC_Errors().size(), 251U);
  for (nex_ErrorRow const& row : kprC_Errors()) {
    try {
      kprC_Assert(false, static_cast<kprC_ErrorEnm>(row.code));
      ADD_FAILURE() << row.code << " is not raised";
    } catch (nex_TextException const& e) {
      EXPECT_EQ(e.Text(), row.text);
      EXPECT_EQ(e.Code(), row.code);
      EXPECT_STREQ(e.SourceName(), "generated/module/kpr/com/impl/kprC_assert");
    }
  }
}

TEST(StepRefusals, KeepTheirTextsWithTheirMistakes) {
  std::pair<int, char const*> const rows[] = {
      {0, "Change rate must be greater than zero"},
      {31, "Riks monitor displacment cannot be zero"},
      {50, "Invalid sequence of steps"},
      {51, "Invalid step index"},
      {143, "The Initial step cannot be replaced."},
      {163, "Each time point in the 2D sequence must contain one or three entries, for example ((.4,),(.5,))."},
      {166, "Frequency and number of intervals cannot both be used together.  One must have a value of zero."},
      {180, "Equipotential smoothing weight must be greater than or equal to zero And less than or equal to one."},
      {203, "Cannot reset a adaptive mesh constraint in the step it was created."},
      {250, "Adaptive stabilization ratio must be specified when using damping factors from a previous step."},
  };
  for (auto const& [code, text] : rows) { EXPECT_STREQ(kprC_Errors()[static_cast<std::size_t>(code)].text, text); }
}

TEST(StepRefusals, AreEmptyForANumberOutsideTheTable) {
  for (int const code : {-1, 251}) {
    try {
      kprC_Assert(false, static_cast<kprC_ErrorEnm>(code));
      ADD_FAILURE() << code << " is not raised";
    } catch (nex_TextException const& e) { EXPECT_EQ(e.Text(), ""); }
  }
}

TEST(StepRefusals, AreNotRaisedWhereTheConditionHolds) { EXPECT_NO_THROW(kprC_Assert(true, kprC_ErrorEnm::Step)); }

}  // namespace
