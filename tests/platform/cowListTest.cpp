#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <cstddef>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/BasicUtils/cow_1DArrayList.h"
#include "platform/BasicUtils/cow_2DArray.h"
#include "platform/BasicUtils/cow_ArrayCOW.h"
#include "platform/BasicUtils/cow_List.h"
#include "platform/BasicUtils/cow_String.h"

namespace {

template <class List> class Sequences : public testing::Test {};
using AllSequences = testing::Types<cow_List<cow_String>, cow_1DArrayList<cow_String>, cow_ArrayCOW<cow_String>>;
TYPED_TEST_SUITE(Sequences, AllSequences);

template <class List> void ExpectHolds(List const& list, std::vector<std::string> const& expected) {
  ASSERT_EQ(list.Size(), expected.size());
  ASSERT_EQ(list.IsEmpty(), expected.empty());
  std::size_t i = 0;
  for (cow_String const& text : list) { ASSERT_EQ(text, expected[i++]); }
}

TYPED_TEST(Sequences, BehaveLikeAVectorWhileSnapshotsStayAsTheyWere) {
  std::mt19937 random(11);
  std::vector<std::pair<TypeParam, std::vector<std::string>>> snapshots;
  TypeParam list;
  std::vector<std::string> vector;
  for (int edit = 0; edit < 3000; ++edit) {
    std::string const text = "text " + std::to_string(edit);
    auto const at = static_cast<std::ptrdiff_t>(random() % (vector.size() + 1));
    auto const index = static_cast<std::size_t>(at);
    bool const exists = index < vector.size();
    switch (random() % 12) {
      case 0: snapshots.emplace_back(list, vector); break;
      case 1:
        list.TruncateTo(index + 2);
        vector.resize(std::min(vector.size(), index + 2));
        break;
      case 2:
      case 3:
        if (exists) {
          list.Remove(index);
          vector.erase(vector.begin() + at);
        }
        break;
      case 4:
      case 5:
        list.Insert(index, text);
        vector.insert(vector.begin() + at, text);
        break;
      case 6:
      case 7:
        if (exists) { list.Get(index) = vector[index] = text; }
        break;
      default: list.Append(text); vector.push_back(text);
    }
    ExpectHolds(list, vector);
  }
  for (auto const& [snapshot, content] : snapshots) { ExpectHolds(snapshot, content); }
}

TYPED_TEST(Sequences, RefuseAnIndexThatDoesNotExist) {
  TypeParam list{"a", "b"};
  TypeParam const before = list;
  EXPECT_THROW(list[2], std::out_of_range);
  EXPECT_THROW(list.Get(2), std::out_of_range);
  EXPECT_THROW(list.Remove(2), std::out_of_range);
  EXPECT_THROW(list.Insert(3, "c"), std::out_of_range);
  EXPECT_THROW(TypeParam()[0], std::out_of_range);
  EXPECT_TRUE(list.Same(before)) << "nothing is separated";
}

TYPED_TEST(Sequences, ShareTheirValuesUntilOneChanges) {
  TypeParam first{"a", "b"};
  TypeParam second = first;
  EXPECT_TRUE(first.Same(second));
  second.Get(1) = "c";
  EXPECT_FALSE(first.Same(second));
  EXPECT_NE(first, second);
  second.Get(1) = "b";
  EXPECT_EQ(first, second);
  EXPECT_EQ(sizeof(first), sizeof(void*));
}

TYPED_TEST(Sequences, AreTheSameWhenEmptyHoweverTheyBecameEmpty) {
  TypeParam list{"a"};
  list.Remove(0);
  EXPECT_EQ(list, TypeParam());
  list.Append("b");
  list.Clear();
  EXPECT_TRUE(list.Same(TypeParam()));
}

TEST(Table, KeepsRowsAndColumnsApart) {
  cow_2DArray<int> table(2, 3, 7);
  cow_2DArray<int> const before = table;
  table.Get(1, 0) = 1;
  table.Get(0, 2) = 2;
  EXPECT_EQ(std::vector<int>(table.begin(), table.end()), (std::vector<int>{7, 7, 2, 1, 7, 7}));
  EXPECT_EQ(before.ConstGet(1, 0), 7);
  EXPECT_NE(table, before);
  EXPECT_THROW(before.ConstGet(2, 0), std::out_of_range);
  EXPECT_THROW(table.Get(0, 3), std::out_of_range) << "the next row begins there";
  EXPECT_NE(cow_2DArray<int>(2, 3), cow_2DArray<int>(3, 2));
}

TEST(String, TakesTheSameTextFromEverySource) {
  using namespace std::string_view_literals;
  char const* const nothing = nullptr;
  EXPECT_EQ(cow_String("Set-1"), cow_String(std::string("Set-1")));
  EXPECT_EQ(cow_String("Set-1"), cow_String("Set-1, rest"sv.substr(0, 5)));
  EXPECT_STREQ(cow_String("Set-1, rest"sv.substr(0, 5)).c_str(), "Set-1");
  EXPECT_EQ(cow_String(nothing), cow_String(""));
  EXPECT_STREQ(cow_String().c_str(), "");
  EXPECT_EQ(cow_String("a\0b"sv).Size(), 3u);
}

}  // namespace
