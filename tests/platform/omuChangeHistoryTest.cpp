#include <gtest/gtest.h>

#include <cstddef>
#include <thread>

#include "platform/CaeUtils/omu_ChangeHistory.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace {

TEST(ChangeHistory, GoesBackToARememberedSize) {
  omu_ChangeHistory history;
  history.Append({"Insert", "BC-1", -99});
  std::size_t const before = history.Size();
  history.Append({"Modify", "BC-1"});
  history.Append({"Remove", "BC-1"});
  history.TruncateTo(before);
  EXPECT_EQ(history.Size(), 1u);
  history.TruncateTo(5);
  EXPECT_EQ(history.Size(), 1u);
}

TEST(ChangeHistory, IsEachThreadsOwnAndCanBeSwapped) {
  using Current = thr_ThreadSingleton<omu_ChangeHistory>;
  Current::Finalize();
  Current::Instance().Append({"RedoSummary"});
  std::size_t elsewhere = 1;
  std::thread([&elsewhere] { elsewhere = Current::Instance().Size(); }).join();
  EXPECT_EQ(elsewhere, 0u);

  omu_ChangeHistory ofOtherModel;
  Current::Instance().Swap(ofOtherModel);
  EXPECT_TRUE(Current::Instance().IsEmpty());
  EXPECT_EQ(ofOtherModel.Size(), 1u);
  Current::Finalize();
}

}  // namespace
