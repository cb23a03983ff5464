#include "module/klo/kloC_assert.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/Thrown.h"

namespace {

std::string Thrown(int code) { return test::Thrown(&kloC_Assert, code); }

// Which codes throw which exception is interface: this list changes on purpose only.
TEST(LoadRefusals, AreTextsForTheCodesOfThisListOnly) {
  std::set<int> const texts = {2, 5, 17, 19, 20, 21, 31, 32, 37, 38, 39, 40, 42};
  ASSERT_EQ(kloC_Errors().size(), 73U);
  for (nex_ErrorRow const& row : kloC_Errors()) {
    bool const isText = texts.contains(row.code);
    EXPECT_EQ(Thrown(row.code), std::string(isText ? "text " : "value ") + row.text + "|generated/module/klo/com/impl/kloC_assert:" +
                                    (isText ? "271" : "277") + "|klo" + std::to_string(row.code));
  }
  EXPECT_EQ(Thrown(73), "text |generated/module/klo/com/impl/kloC_assert:271|klo73");
  EXPECT_NO_THROW(kloC_Assert(true, kloC_ErrorEnm::Suppressed));
}

TEST(LoadRefusals, KeepTheirTextsWithTheirMistakes) {
  auto const text = [](kloC_ErrorEnm code) { return std::string(kloC_Errors()[static_cast<std::size_t>(code)].text); };
  EXPECT_EQ(text(kloC_ErrorEnm::NotInStepOrInactive), "The load does not exist in the specifed step or is suppressed or inactive.");
  EXPECT_EQ(text(kloC_ErrorEnm::DofOutOfRange), "DOF for concentrated heat flux must between 11 and 31.");
  EXPECT_EQ(text(kloC_ErrorEnm::PipeDiameter), "Effective pipe diameter must be greater than zero");
  EXPECT_EQ(text(kloC_ErrorEnm::RotationKind),
            "Rotational Inertial load sub-category must be atleast either centrifugal or\nrotary acceleration, but not both.");
  EXPECT_EQ(text(kloC_ErrorEnm::OrientationInAllDirections),
            "Local orientation cannot be used when inertia relief load is specified \nin all free directions.");
}

}  // namespace
