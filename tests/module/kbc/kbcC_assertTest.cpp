#include "module/kbc/kbcC_assert.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/Thrown.h"

namespace {

std::string Thrown(int code) { return test::Thrown(&kbcC_Assert, code); }

// Which codes throw which exception is interface: this list changes on purpose only.
TEST(BoundaryConditionRefusals, AreValueErrorsForTheCodesThatRefuseAValueOnly) {
  std::set<int> const valueErrors = {0, 5, 6, 23, 24, 25, 34, 35, 36, 37, 43, 46, 51};
  ASSERT_EQ(kbcC_Errors().size(), 61U);
  for (nex_ErrorRow const& row : kbcC_Errors()) {
    bool const isValue = valueErrors.contains(row.code);
    EXPECT_EQ(Thrown(row.code), std::string(isValue ? "value " : "text ") + row.text + "|generated/module/kbc/com/impl/kbcC_assert:" +
                                    (isValue ? "193" : "199") + "|kbc" + std::to_string(row.code));
  }
}

TEST(BoundaryConditionRefusals, KeepTheirTextsWithTheirMistakes) {
  auto const text = [](kbcC_ErrorEnm code) { return std::string(kbcC_Errors()[static_cast<std::size_t>(code)].text); };
  EXPECT_EQ(text(kbcC_ErrorEnm::NotInStepOrInactive),
            "The boundary condition does not exist in the specifed step or is suppressed or inactive.");
  EXPECT_EQ(text(kbcC_ErrorEnm::RegionMixedDimensions),
            "The selected region contains mixed dimensionalities.\nApplying Temperature BCs on such a region is not supported.");
  EXPECT_EQ(text(kbcC_ErrorEnm::TypedEditedInPropagatedStep), "A Symmetry/Antisymmetry/Encastre BC cannot be edited in a propagated step");
  EXPECT_EQ(text(kbcC_ErrorEnm::FieldUnknown), "A field referred to by a boundary condition cannot be found in the current model.");
}

TEST(BoundaryConditionRefusals, AreEmptyForANumberOutsideTheTable) {
  EXPECT_EQ(Thrown(61), "text |generated/module/kbc/com/impl/kbcC_assert:199|kbc61");
  EXPECT_EQ(Thrown(-1), "text |generated/module/kbc/com/impl/kbcC_assert:199|kbc-1");
}

TEST(BoundaryConditionRefusals, AreNotRaisedWhereTheConditionHolds) {
  EXPECT_NO_THROW(kbcC_Assert(true, kbcC_ErrorEnm::Suppressed));
  EXPECT_NO_THROW(kbcC_AssertContent(true, kbcC_ContentErrorEnm::UnavailableComponents, "u1"));
}

TEST(BoundaryConditionRefusals, NameTheComponentsThatAConnectorLacks) {
  try {
    kbcC_AssertContent(false, kbcC_ContentErrorEnm::UnavailableComponents, "u1, ur2");
    FAIL() << "not refused";
  } catch (nex_TextException const& e) { EXPECT_EQ(e.Text(), "Unavailable connector components have been specified (CORM: u1, ur2)."); }
}

}  // namespace
