#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/BasicUtils/cow_Map.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreUtils/omn_FixedString.h"

namespace {

/// Counts its comparisons: they show how deep a tree is. Some keys have a rank in common.
struct Key {
  std::uint64_t Rank() const { return static_cast<std::uint64_t>(number) / 4; }

  int number;
  static inline int comparisons = 0;
  friend std::strong_ordering operator<=>(Key const& left, Key const& right) {
    ++comparisons;
    return left.number <=> right.number;
  }
  friend bool operator==(Key const&, Key const&) = default;
};

/// Counts its copies: they show which nodes were copied.
struct Value {
  explicit Value(int initial) : number(initial) {}
  Value(Value const& other) : number(other.number) { ++copies; }
  Value(Value&&) = default;
  Value& operator=(Value const&) = default;
  Value& operator=(Value&&) = default;
  ~Value() = default;
  friend bool operator==(Value const&, Value const&) = default;

  int number;
  static inline int copies = 0;
};

using Map = cow_Map<Key, Value>;
using Reference = std::map<int, int>;

void ExpectHolds(Map const& map, Reference const& reference) {
  ASSERT_EQ(map.Size(), reference.size());
  auto expected = reference.begin();
  for (auto const& [key, value] : map) {
    ASSERT_NE(expected, reference.end());
    ASSERT_EQ(key.number, expected->first);
    ASSERT_EQ(value.number, expected->second);
    ++expected;
  }
  ASSERT_EQ(expected, reference.end());
}

/// The most comparisons that finding a key in a map of that size may take.
int SearchLimit(std::size_t size) { return static_cast<int>(1.5 * std::log2(static_cast<double>(size) + 2.0)) + 3; }

void ExpectShallow(Map const& map) {
  for (auto const& [key, value] : map) {
    Key::comparisons = 0;
    map.ConstFind(key);
    ASSERT_LE(Key::comparisons, SearchLimit(map.Size()));
  }
}

Map Filled(int size) {
  Map map;
  for (int key = 0; key < size; ++key) { map.Insert(Key{key}, Value(key)); }
  return map;
}

struct Script {
  unsigned seed;
  int greatestKey;
  unsigned insertShare;  ///< of ten edits
};

class MapScripts : public testing::TestWithParam<Script> {};

// Edits like std::map; snapshots taken on the way, and maps edited further from a snapshot, never see each other.
TEST_P(MapScripts, BehaveLikeAStandardMapWhileSnapshotsStayAsTheyWere) {
  auto const [seed, greatestKey, insertShare] = GetParam();
  std::mt19937 random(seed);
  auto const below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  std::vector<std::pair<Map, Reference>> snapshots;
  Map map;
  Reference reference;
  for (int edit = 0; edit < 4000; ++edit) {
    int const key = below(greatestKey + 1);
    if (below(50) == 0) {
      if (snapshots.size() < 8) {
        snapshots.emplace_back(map, reference);
      } else {
        std::swap(snapshots[static_cast<std::size_t>(below(8))], snapshots.back());
        std::tie(map, reference) = snapshots.back();
      }
    } else if (random() % 10 < insertShare) {
      ASSERT_EQ(map.Insert(Key{key}, Value(edit)), !reference.contains(key));
      reference[key] = edit;
    } else if (below(2) == 0) {
      ASSERT_EQ(map.Remove(Key{key}), reference.erase(key) == 1);
    } else {
      Value* const value = map.Get(Key{key});
      ASSERT_EQ(value != nullptr, reference.contains(key));
      if (value != nullptr) { value->number = reference[key] = -edit; }
    }
    Value const* const found = map.ConstFind(Key{key});
    ASSERT_EQ(found != nullptr, reference.contains(key));
    if (edit % 100 == 0) {
      ExpectHolds(map, reference);
      ExpectShallow(map);
      for (auto const& [snapshot, content] : snapshots) { ExpectHolds(snapshot, content); }
    }
  }
  for (auto const& [snapshot, content] : snapshots) { ExpectHolds(snapshot, content); }
}

INSTANTIATE_TEST_SUITE_P(Map, MapScripts,
                         testing::Values(Script{1, 6, 4}, Script{2, 50, 5}, Script{3, 300, 6}, Script{4, 300, 3}, Script{5, 2000, 8}));

TEST(Map, StaysShallowWhateverTheOrderOfTheKeys) {
  constexpr int kSize = 1000;
  Map rising = Filled(kSize);
  ExpectShallow(rising);
  Map falling;
  for (int key = kSize - 1; key >= 0; --key) { falling.Insert(Key{key}, Value(key)); }
  ExpectShallow(falling);
  EXPECT_EQ(rising, falling);
  for (int step = 0; step < kSize; ++step) {
    rising.Remove(Key{step * 387 % kSize});  // every key once, from all over the tree
    if (step % 10 == 0) { ExpectShallow(rising); }
  }
  EXPECT_TRUE(rising.IsEmpty());
}

TEST(Map, ChangesInPlaceWhatNoOtherMapHolds) {
  Map map = Filled(1000);
  Value::copies = 0;
  map.Get(Key{500})->number = -1;
  map.Insert(Key{2000}, Value(1));
  map.Insert(Key{3}, Value(1));
  for (int key = 200; key < 600; ++key) { map.Remove(Key{key}); }
  EXPECT_EQ(Value::copies, 0);
}

TEST(Map, CopiesOnlyThePathToAChangeAndThatOnlyOnce) {
  Map map = Filled(1000);
  constexpr int kInNode = 16;
  struct Edit {
    char const* name;
    void (*apply)(Map&);
  };
  for (Edit const& edit :
       {Edit{"get", [](Map& m) { m.Get(Key{500})->number = -1; }}, Edit{"insert", [](Map& m) { m.Insert(Key{2000}, Value(1)); }},
        Edit{"replace", [](Map& m) { m.Insert(Key{3}, Value(1)); }}, Edit{"remove", [](Map& m) { m.Remove(Key{511}); }}}) {
    SCOPED_TRACE(edit.name);
    Map const snapshot = map;
    Value::copies = 0;
    edit.apply(map);
    EXPECT_GT(Value::copies, 0);
    EXPECT_LE(Value::copies, 2 * kInNode);  // a removal may join two neighbours
    Value::copies = 0;
    map.Get(map.begin()->first)->number = 5;
    map.Get(map.begin()->first)->number = 6;
    EXPECT_LE(Value::copies, kInNode);
  }
}

using Differences = std::map<int, std::pair<int, int>>;  // key: value before and after, -1 for none

Differences DifferencesBetween(Map const& before, Map const& after) {
  Differences found;
  int last = -1;
  Map::ForEachDifference(before, after, [&](Key const& key, Value const* was, Value const* is) {
    EXPECT_LT(last, key.number);
    last = key.number;
    found[key.number] = {was == nullptr ? -1 : was->number, is == nullptr ? -1 : is->number};
  });
  return found;
}

Differences DifferencesBetween(Reference const& before, Reference const& after) {
  Differences found;
  for (auto const& [key, value] : before) { found[key] = {value, -1}; }
  for (auto const& [key, value] : after) {
    auto& [was, is] = found.try_emplace(key, -1, -1).first->second;
    is = value;
  }
  std::erase_if(found, [](auto const& difference) { return difference.second.first == difference.second.second; });
  return found;
}

TEST_P(MapScripts, TellWhatTwoOfTheirSnapshotsDifferIn) {
  auto const [seed, greatestKey, insertShare] = GetParam();
  std::mt19937 random(seed);
  std::vector<std::pair<Map, Reference>> snapshots(1);
  for (int round = 0; round < 60; ++round) {
    auto [map, reference] = snapshots[random() % snapshots.size()];
    for (auto edits = random() % 40; edits > 0; --edits) {
      int const key = static_cast<int>(random() % static_cast<unsigned>(greatestKey + 1));
      if (random() % 10 < insertShare) {
        map.Insert(Key{key}, Value(reference[key] = static_cast<int>(random() % 3)));
      } else {
        map.Remove(Key{key});
        reference.erase(key);
      }
    }
    snapshots.emplace_back(map, reference);
  }
  for (auto const& [before, referenceBefore] : snapshots) {
    for (auto const& [after, referenceAfter] : snapshots) {
      ASSERT_EQ(DifferencesBetween(before, after), DifferencesBetween(referenceBefore, referenceAfter));
    }
  }
}

TEST(Map, FindsTheDifferencesOfAnEditedCopyInTheTimeOfTheEdits) {
  constexpr int kSize = 100000;
  Map const before = Filled(kSize);
  std::mt19937 random(1);
  for (int edits : {1, 10, 100}) {
    Map after = before;
    for (int edit = 0; edit < edits; ++edit) {
      after.Insert(Key{kSize + edit}, Value(1));
      after.Remove(Key{static_cast<int>(random() % kSize)});
      after.Get(after.begin()->first)->number = -2;
    }
    Key::comparisons = 0;
    Differences const found = DifferencesBetween(before, after);
    EXPECT_GE(found.size(), static_cast<std::size_t>(2 * edits));
    EXPECT_LE(Key::comparisons, 3 * edits * 3 * SearchLimit(kSize));
  }
}

}  // namespace
