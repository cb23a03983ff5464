#include "platform/BasicUtils/cls_Uid.h"

#include <gtest/gtest.h>

#include <thread>
#include <unordered_set>
#include <vector>

namespace {

TEST(Uid, IsUniqueInTheProcessWhateverItIsOf) {
  constexpr std::size_t kThreads = 4, kEach = 10000;
  std::vector<std::vector<cls_Uid>> made(kThreads);
  std::vector<std::thread> threads;
  for (std::vector<cls_Uid>& uids : made) {
    threads.emplace_back([&uids] {
      cls_Uid const list = cls_Uid::OfObject(cls_Uid::AllocateNumber());
      for (std::size_t i = 0; i < kEach; ++i) {
        uids.push_back(cls_Uid::OfObject(cls_Uid::AllocateNumber()));
        uids.push_back(cls_Uid::OfMember(cls_Uid::AllocateNumber()));
        uids.push_back(cls_Uid::OfElement(list, cls_Uid::AllocateNumber()));
      }
    });
  }
  for (std::thread& thread : threads) { thread.join(); }
  std::unordered_set<cls_Uid> all;
  for (std::vector<cls_Uid> const& uids : made) { all.insert(uids.begin(), uids.end()); }
  EXPECT_EQ(all.size(), 3 * kThreads * kEach);
  EXPECT_FALSE(all.contains(cls_Uid()));
  std::uint64_t const number = cls_Uid::AllocateNumber();
  EXPECT_NE(cls_Uid::OfMember(number), cls_Uid::OfMember(number + 1));
  EXPECT_FALSE(cls_Uid::OfMember(number).IsNull());
}

}  // namespace
