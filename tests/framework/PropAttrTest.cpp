#include "framework/mdl_PropAttr.h"

#include <gtest/gtest.h>

#include <set>

#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/klo/kloC_Point.h"
#include "platform/BasicUtils/cow_1DArrayList.h"
#include "platform/BasicUtils/cow_2DArray.h"
#include "platform/BasicUtils/cow_List.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"

namespace {

using StateEnm = mdl_PropAttributeStateEnm;
constexpr auto kNoState = static_cast<StateEnm>(7);

TEST(PropAttr, KeepsItsIdentityInCopiesAndThroughChanges) {
  mdl_PropAttr<double> member(2.5);
  cls_Uid const uid = member.Uid();
  mdl_PropAttr<double> copy = member;
  EXPECT_EQ(copy.Uid(), uid);
  for (StateEnm const state : {StateEnm::Freed, StateEnm::Unset, StateEnm::PropagatedValue, StateEnm::Set, kNoState}) {
    copy.ForceState(state);
    EXPECT_EQ(copy.State(), state);
    EXPECT_EQ(copy.ConstGet(), 2.5);
    EXPECT_EQ(copy.Uid(), uid);
  }
  copy = 3.5;
  copy.Propagate();
  EXPECT_EQ(copy, StateEnm::PropagatedValue);
  EXPECT_EQ(copy.Uid(), uid);
  copy.NewUid();
  EXPECT_NE(copy.Uid(), uid);
  EXPECT_EQ(copy, StateEnm::PropagatedValue) << "the member state stays";
  EXPECT_EQ(copy, 3.5);

  copy.Modify(member);
  EXPECT_EQ(copy.Uid(), uid) << "with value and state the identity is taken";
  EXPECT_EQ(copy, member);
  EXPECT_NE(mdl_PropAttr<double>().Uid(), mdl_PropAttr<double>().Uid());
}

TEST(PropAttr, HasATypeForEachTypeOfValue) {
  std::set<unsigned> const types = {mdl_PropAttr<bool>::TypeId(),          mdl_PropAttr<int>::TypeId(),
                                    mdl_PropAttr<double>::TypeId(),        mdl_PropAttr<cow_String>::TypeId(),
                                    mdl_PropAttr<cow_List<int>>::TypeId(), mdl_PropAttr<cow_2DArray<double>>::TypeId(),
                                    mdl_PropAttr<kloC_Point>::TypeId(),    mdl_PropAttr<dtmC_DatumRef>::TypeId()};
  EXPECT_EQ(types.size(), 8U);
  EXPECT_EQ(*types.begin() >> 16, mdl_moduleNumber);
  EXPECT_EQ(mdl_PropAttr<int>().DynTypeId(), mdl_PropAttr<int>::TypeId());
}

TEST(PropAttr, RefusesAMemberStateThatDoesNotExist) {
  kbcC_DisplacementBCState sound, broken;
  broken.u2.ForceState(kNoState);
  auto const expectRefused = [](auto&& edit) {
    try {
      edit();
      ADD_FAILURE() << "not refused";
    } catch (nex_TextException const& refused) {
      EXPECT_EQ(refused.Text(), "Invalid propagation status for 'u2' attribute.");
      EXPECT_STREQ(refused.SourceName(), "generated/include/mdl_PropagatingAttribute");
    }
  };
  expectRefused([&] { broken.Propagate(); });
  expectRefused([&] { broken.Modify(sound); });
  expectRefused([&] { sound.Modify(broken); });
  EXPECT_NO_THROW(sound.Propagate());
}

}  // namespace
