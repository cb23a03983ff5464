#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

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

/// Made up names: "A0.", "A1." as they are read.
class Names final : public omu_ChangedNames {
public:
  Names(char letter, std::size_t size) : letter_(letter), size_(size) {}
  std::size_t Size() const override { return size_; }
  void ForEach(Visitor const& visit) const override {
    for (std::size_t i = 0; i < size_; ++i) { visit(letter_ + std::to_string(i)); }
  }

private:
  char letter_;
  std::size_t size_;
};

omu_PrimTuple Modified(std::string const& name) { return {"Modify", name + "."}; }

TEST(ChangeHistory, ReadsItsRecordsAsTuples) {
  omu_ChangeHistory history;
  history.Append(omu_ChangeKind::RedoSummary);
  history.Append(omu_ChangeKind::Insert, "Fix");
  history.AppendModifiedAll(cow_Handle<Names>::Make('A', 2U));
  history.Append({"Anything", 1, 2, 3});
  history.AppendModifiedAll(cow_Handle<Names>::Make('B', 0U));
  history.Append(omu_ChangeKind::Modify, "Fix");
  history.Append(omu_ChangeKind::Remove, "Fix");
  EXPECT_THAT(history,
              testing::ElementsAre(omu_PrimTuple{"RedoSummary"}, omu_PrimTuple{"Insert", "Fix", -99}, Modified("A0"), Modified("A1"),
                                   omu_PrimTuple{"Anything", 1, 2, 3}, Modified("Fix"), omu_PrimTuple{"Remove", "Fix"}));
  EXPECT_THROW(history[7], std::out_of_range);
}

void ExpectHolds(omu_ChangeHistory const& history, std::vector<omu_PrimTuple> const& expected) {
  ASSERT_EQ(history.Size(), expected.size());
  ASSERT_EQ(history.IsEmpty(), expected.empty());
  std::size_t i = 0;
  for (omu_PrimTuple const& record : history) {
    ASSERT_EQ(record, expected[i]);
    ASSERT_EQ(history[i], expected[i]);
    ++i;
  }
  ASSERT_EQ(i, expected.size());
}

TEST(ChangeHistory, BehavesLikeAListOfTuples) {
  std::mt19937 random(3);
  omu_ChangeHistory history;
  std::vector<omu_PrimTuple> tuples;
  for (int edit = 0; edit < 1000; ++edit) {
    std::string const name = "N" + std::to_string(edit);
    switch (random() % 8) {
      case 0: {
        std::size_t const size = random() % 6;
        auto const letter = static_cast<char>('A' + edit % 26);
        history.AppendModifiedAll(cow_Handle<Names>::Make(letter, size));
        for (std::size_t i = 0; i < size; ++i) { tuples.push_back(Modified(letter + std::to_string(i))); }
        break;
      }
      case 1:
        history.Append({"Other", name});
        tuples.push_back({"Other", name});
        break;
      case 2:
        history.Append(omu_ChangeKind::Insert, name);
        tuples.push_back({"Insert", name, -99});
        break;
      case 3: {
        std::size_t const size = tuples.size() - std::min<std::size_t>(tuples.size(), random() % 9);
        history.TruncateTo(size);
        tuples.resize(size);
        break;
      }
      case 4: {  // to and fro
        std::size_t const size = tuples.size() - std::min<std::size_t>(tuples.size(), random() % 9);
        omu_ChangeHistory rest;
        rest.AppendFrom(history, size);
        history.TruncateTo(size);
        ExpectHolds(rest, {tuples.begin() + static_cast<std::ptrdiff_t>(size), tuples.end()});
        history.AppendFrom(rest);
        break;
      }
      default:
        history.Append(omu_ChangeKind::Modify, name);
        tuples.push_back(Modified(name));
        break;
    }
    ExpectHolds(history, tuples);
  }
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
