#include "embed/Commands.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>

#include "command/Session.h"
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

}  // namespace
}  // namespace gattr
