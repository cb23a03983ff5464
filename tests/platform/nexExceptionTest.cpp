#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CaeUtils/omu_KeyErrorException.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace {

template <class E> class Exceptions : public testing::Test {};
using AllExceptions = testing::Types<nex_TextException, omu_ValueErrorException, omu_KeyErrorException>;
TYPED_TEST_SUITE(Exceptions, AllExceptions);

TYPED_TEST(Exceptions, CarryWhatWasRefusedAndWhere) {
  try {
    nex_Exception::Throw(TypeParam("No such step.", nex_Origin{.module = "kpr", .code = 191}), "kprC_assert", 193);
  } catch (TypeParam const& refusal) {
    EXPECT_EQ(refusal.Text(), "No such step.");
    EXPECT_STREQ(refusal.what(), "No such step.");
    EXPECT_STREQ(refusal.SourceName(), "kprC_assert");
    EXPECT_EQ(refusal.Line(), 193);
    EXPECT_STREQ(refusal.Module(), "kpr");
    EXPECT_EQ(refusal.Code(), 191);
    return;
  }
  FAIL() << "caught as another class";
}

TYPED_TEST(Exceptions, HaveNoModuleAndNoCodeUnlessTheyAreNumbered) {
  TypeParam const refusal("No such step.");
  EXPECT_STREQ(refusal.Module(), "");
  EXPECT_EQ(refusal.Code(), -1);
}

TYPED_TEST(Exceptions, CanBeCopiedWithoutThrowing) { EXPECT_TRUE(std::is_nothrow_copy_constructible_v<TypeParam>); }

TYPED_TEST(Exceptions, AreNotCaughtAsOneAnother) {
  EXPECT_EQ((std::is_convertible_v<TypeParam*, nex_TextException*>), (std::is_same_v<TypeParam, nex_TextException>));
  EXPECT_EQ((std::is_convertible_v<TypeParam*, omu_ValueErrorException*>), (std::is_same_v<TypeParam, omu_ValueErrorException>));
  EXPECT_EQ((std::is_convertible_v<TypeParam*, omu_KeyErrorException*>), (std::is_same_v<TypeParam, omu_KeyErrorException>));
}

TEST(ErrorTable, IsDenseOnlyInCodeOrderWithNothingMissingOrEmpty) {
  constexpr nex_ErrorRow kGood[] = {{3, true, "a", "A"}, {4, false, "b", "B"}};
  constexpr nex_ErrorRow kGap[] = {{0, true, "a", "A"}, {2, false, "b", "B"}};
  constexpr nex_ErrorRow kTwice[] = {{0, true, "a", "A"}, {0, false, "b", "B"}};
  constexpr nex_ErrorRow kNoText[] = {{0, true, "", "A", "File"}};  // reserved, and yet raised
  constexpr nex_ErrorRow kNoName[] = {{0, true, "a", ""}};
  static_assert(nex_CodesAreDense(kGood));
  static_assert(!nex_CodesAreDense(kGap));
  static_assert(!nex_CodesAreDense(kTwice));
  static_assert(!nex_CodesAreDense(kNoText));
  static_assert(!nex_CodesAreDense(kNoName));

  EXPECT_EQ(nex_FindRow(kGood, 3), &kGood[0]);
  EXPECT_EQ(nex_FindRow(kGood, 4), &kGood[1]);
  EXPECT_EQ(nex_FindRow(kGood, 2), nullptr);
  EXPECT_EQ(nex_FindRow(kGood, 5), nullptr);
  EXPECT_EQ(nex_FindRow({}, 0), nullptr);
}

TEST(Catalogues, ListTheStartedModulesInTheOrderOfTheirStart) {
  static constexpr nex_ErrorRow kRows[] = {{0, true, "a", "A"}, {1, false, "b", "B"}};
  nex_Catalogues catalogues;
  auto const modules = [&catalogues] {
    std::vector<std::string> names;
    for (nex_Catalogue const& one : catalogues.All()) { names.push_back(one.module + std::string(" ") + std::to_string(one.rows.size())); }
    return names;
  };
  catalogues.Register({"kpr", {kRows, 1}});
  catalogues.Register({"kbc", kRows});
  catalogues.Register({"kpr", kRows});
  EXPECT_EQ(modules(), (std::vector<std::string>{"kpr 2", "kbc 2"}));
  catalogues.Withdraw("kpr");
  catalogues.Withdraw("klo");
  EXPECT_EQ(modules(), (std::vector<std::string>{"kbc 2"}));
}

}  // namespace
