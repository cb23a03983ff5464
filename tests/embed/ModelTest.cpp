#include "embed/Commands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "command/Check.h"
#include "command/Session.h"
#include "store/ModelPath.h"
#include "text/JsonText.h"

namespace gattr {
namespace {

std::string TextOf(std::string const& file) {
  std::ifstream in(GATTR_SOURCE_DIR + ("/" + file));
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Readme, ShowsTheExampleThatIsBuilt) {
  std::string const example = TextOf("examples/embed.cpp");
  ASSERT_FALSE(example.empty());
  EXPECT_NE(TextOf("README.md").find("```cpp\n" + example + "```"), std::string::npos);
}

class Embedded : public ::testing::Test {
protected:
  void SetUp() override {
    for (char const* step : {"S1", "S2", "S3"}) { model_.StaticStep(step, {.initialInc = 0.1}); }
    model_.Set("Top");
  }
  std::string LastLine() const { return JsonText(model_.Edits().Journal().back()); }

  Model model_;
};

TEST_F(Embedded, SaysInTypesWhatTheJournalSays) {
  auto fix = model_.DisplacementBC("Fix", "S1", {.region = "Top", .u1 = 0.0, .u2 = UNSET});
  EXPECT_EQ(LastLine(), R"({"command":"DisplacementBC","name":"Fix","createStepName":"S1","region":"Top","u1":0.0,"u2":"UNSET"})");
  fix.In("S2").Set({.u1 = FREED, .u2 = 1.5});
  EXPECT_EQ(LastLine(), R"({"command":"setValuesInStep","boundaryCondition":"Fix","stepName":"S2","u1":"FREED","u2":1.5})");
  fix.setValues({.u1 = 2.0});
  EXPECT_EQ(LastLine(), R"({"command":"setValues","boundaryCondition":"Fix","u1":2.0})");
  fix.move("S2", "S3");
  EXPECT_EQ(LastLine(), R"({"command":"move","boundaryCondition":"Fix","fromStepName":"S2","toStepName":"S3"})");
  model_.ContactProperty("Dry", {.tangentialBehavior = {{.formulation = "PENALTY", .table = {{0.1}, {0.2}}}}});
  EXPECT_EQ(LastLine(),
            R"({"command":"ContactProperty","name":"Dry","tangentialBehavior":{"formulation":"PENALTY","table":[[0.1],[0.2]]}})");
  model_.FieldOutputRequest("Out", "S1", {.variables = {"S", "U"}});
  EXPECT_EQ(LastLine(), R"({"command":"FieldOutputRequest","name":"Out","createStepName":"S1","variables":["S","U"]})");
  model_.Find<args::StaticStep>("S3").replace(args::ViscoStep{.initialInc = 0.2, .cetol = 0.1}, {.maintainAttributes = true});
  EXPECT_EQ(LastLine(),
            R"({"command":"replace","step":"S3","maintainAttributes":true,"procedure":"ViscoStep","initialInc":0.2,"cetol":0.1})");
  EXPECT_EQ(fix.copy("Fix too").Name(), "Fix too");
}

TEST_F(Embedded, ReadsWhatIsInForce) {
  auto const fix = model_.DisplacementBC("Fix", "S1", {.region = "Top", .u1 = 1.0});
  fix.In("S2").Set({.u1 = FREED, .u2 = 1.5});
  EXPECT_EQ(fix.In("S1").Values().u1.Get(), 1.0);
  EXPECT_EQ(fix.In("S3").Values().u1.Get(), std::nullopt);
  EXPECT_EQ(fix.In("S3").Values().u2.Get(), 1.5);
  EXPECT_EQ(fix.Member("distributionType"), cls_Value("UNIFORM"));
  EXPECT_EQ(fix.In("Initial").Values().u1.Get(), std::nullopt);
  EXPECT_EQ(fix.In("S2").Status(), 3);
  EXPECT_EQ(fix.Member("region"), cls_Value("Top"));
  EXPECT_EQ(model_.Find<args::StaticStep>("S1").Member("initialInc"), cls_Value(0.1));
  EXPECT_THROW(fix.In("S9").Status(), std::out_of_range);
  EXPECT_THROW(fix.MemberIn("S1", "u7"), std::out_of_range);
}

TEST_F(Embedded, HandlesResolveByNameAndSayWhenTheirObjectIsGone) {
  std::optional<Model> other(std::in_place);
  auto const set = other->Set("Rim");
  other.reset();
  EXPECT_THROW(set.rename("Edge"), Gone) << "with its model";

  auto const fix = model_.DisplacementBC("Fix", "S1", {.region = "Top", .u1 = 1.0});
  fix.rename("Clamp");
  EXPECT_EQ(fix.In("S1").Values().u1.Get(), 1.0);
  model_.Undo();
  EXPECT_EQ(fix.Name(), "Fix");
  fix.delete_();
  EXPECT_FALSE(fix.Exists());
  EXPECT_THROW(fix.suppress(), Gone);
  model_.DisplacementBC("Fix", "S2", {.region = "Top", .u1 = 3.0});
  EXPECT_EQ(fix.In("S2").Values().u1.Get(), 3.0) << "made again";
  try {
    fix.In("S1").Set({.u1 = 1.0});
    FAIL() << "before its creation";
  } catch (Refused const& refused) {
    EXPECT_EQ(refused.step, "S1");
    EXPECT_EQ(refused.refusal.module, "kbc");
  }
}

TEST_F(Embedded, LongWorkIsToldAndCanBeCancelledAtAnyMoment) {
  ddr_Model const small = model_.Edits().Model();
  for (int i = 0; i < 300; ++i) { model_.DisplacementBC("Fix" + std::to_string(i), "S1", {.region = "Top", .u1 = 1.0 * i}); }
  ddr_Model const large = model_.Edits().Model();
  // runs the work whole, counting the calls, and then stops it at each of them
  auto const tryAll = [](auto&& work, auto&& isAsBefore) {
    std::size_t calls = 0, last = 0;
    auto const count = [&](std::size_t done, std::size_t total) {
      EXPECT_GE(done, last);
      EXPECT_TRUE(total == 0 || done <= total) << done << " of " << total;
      last = done;
      ++calls;
      return true;
    };
    for (std::size_t stop = 1; calls == 0 || stop <= 4; ++stop) {
      std::size_t left = stop;
      EXPECT_THROW(work([&left](std::size_t, std::size_t) { return --left > 0; }), Cancelled);
      isAsBefore();
      if (stop == 4) { work(count); }
    }
    EXPECT_GT(calls, 4U);
    EXPECT_GE(last, 256U);
  };
  for (std::string const name : {"progress.gadb", "progress.gattr.json"}) {
    std::string const file = ::testing::TempDir() + name;
    std::filesystem::remove(file);
    ModelPath(file).Save(small);
    tryAll([&](Progress const& progress) { ModelPath(file).Save(large, Changed::Overwrite, progress); },
           [&] { EXPECT_TRUE(ModelPath(file).Open().Equals(small)) << name; });
    Model other;
    ddr_Model const empty = other.Edits().Model();
    tryAll([&](Progress const& progress) { other.Open(file, progress); }, [&] { EXPECT_TRUE(other.Edits().Model().Equals(empty)); });
    EXPECT_TRUE(other.Edits().Model().Equals(large)) << name;
  }
  tryAll([&](Progress const& progress) { Check(large, progress); }, [] {});
  std::string const journal = ::testing::TempDir() + "progress.jsonl";
  std::ofstream lines(journal);
  for (cls_Value const& command : model_.Edits().Journal()) { lines << JsonText(command) << '\n'; }
  lines.close();
  Model replayed;
  ddr_Model const empty = replayed.Edits().Model();
  tryAll([&](Progress const& progress) { replayed.Replay(journal, progress); },
         [&] { EXPECT_TRUE(replayed.Edits().Model().Equals(empty)); });
  EXPECT_TRUE(replayed.Edits().Model().Equals(large));
}

}  // namespace
}  // namespace gattr
