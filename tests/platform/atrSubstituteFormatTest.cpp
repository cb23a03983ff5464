#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/CoreUtils/atr_String.h"
#include "platform/CoreUtils/omi_TimeCounter.h"
#include "platform/CoreUtils/omn_FixedString.h"

namespace {

struct Substitution {
  char const* format;
  std::initializer_list<std::string_view> arguments;
  char const* result;
};

TEST(Substitution, PutsEachArgumentInItsPlace) {
  Substitution const kRows[] = {
      {"", {"a"}, ""},
      {"plain", {"a"}, "plain"},
      // in turn
      {"%s and %s", {"a", "b"}, "a and b"},
      {"not allowed: %d  Permissible: %s", {"3", "A, B"}, "not allowed: 3  Permissible: A, B"},
      {"%s%d%s", {"a", "b", "c"}, "abc"},
      // by number: any order, any number of times, and without moving the turn on
      {"The boundary condition is %1$s in step: %2$s.", {"created", "Step-1"}, "The boundary condition is created in step: Step-1."},
      {"%2$s %1$s %2$s", {"a", "b"}, "b a b"},
      {"%2$s %s %s", {"a", "b"}, "b a b"},
      {"%12$s", {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}, "12"},
      // without an argument: as written
      {"%s and %s", {"a"}, "a and %s"},
      {"%1$s and %3$s", {"a", "b"}, "a and %3$s"},
      {"%0$s", {"a"}, "%0$s"},
      {"%99999999999999999999$s", {"a"}, "%99999999999999999999$s"},
      // a percent sign
      {"100%% of %s", {"a"}, "100% of a"},
      {"%%s", {"a"}, "%s"},
      {"50% of", {"a"}, "50% of"},
      {"%1$", {"a"}, "%1$"},
      {"%1s %", {"a"}, "%1s %"},
      // an argument is not searched again
      {"%s, %s", {"%s", "%1$s"}, "%s, %1$s"},
      {"%s|%s", {"", "b"}, "|b"},
  };
  for (Substitution const& row : kRows) { EXPECT_EQ(atr_SubstituteFormat(row.format, row.arguments), row.result) << row.format; }
}

TEST(MessageText, IsEmptyForANullPointer) {
  char const* const nothing = nullptr;
  EXPECT_TRUE(atr_String(nothing).IsEmpty());
  EXPECT_TRUE(atr_translate(nothing).IsEmpty());
  EXPECT_EQ(atr_translate("atleast"), "atleast");
}

TEST(TimeCounter, RisesWithEachCallInEveryThread) {
  constexpr std::size_t kCalls = 2000;
  std::vector<std::vector<unsigned long long>> taken(4, std::vector<unsigned long long>(kCalls));
  unsigned long long const before = omi_gettimecounter();
  std::vector<std::thread> threads;
  threads.reserve(taken.size());
  for (auto& mine : taken) {
    threads.emplace_back([&mine] { std::generate(mine.begin(), mine.end(), omi_gettimecounter); });
  }
  for (std::thread& thread : threads) { thread.join(); }

  std::vector<unsigned long long> all;
  for (auto const& mine : taken) {
    EXPECT_TRUE(std::is_sorted(mine.begin(), mine.end()));
    all.insert(all.end(), mine.begin(), mine.end());
  }
  std::sort(all.begin(), all.end());
  EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
  EXPECT_GT(all.front(), before);
  EXPECT_GT(omi_gettimecounter(), all.back());
}

}  // namespace
