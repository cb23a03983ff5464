#include "command/Recreate.h"

#include <gmock/gmock.h>

#include <sstream>

#include "command/Command.h"
#include "store/TextStore.h"
#include "tests/command/CommandTest.h"
#include "tests/support/AnyCommands.h"
#include "tests/support/MadeUpFamily.h"

namespace gattr {
namespace {

std::string DumpOf(ddr_Model const& model) {
  std::ostringstream out;
  WriteText(model, out);
  return out.str();
}

/// Makes the model again from its own journal; whether commands make all of it.
bool IsMade(ddr_Model const& model, std::string const& what) {
  Session again;
  std::string journal;
  std::vector<Unmade> const unmade = Recreate(model, [&](cls_Value const& command) {
    Outcome const outcome = again.Execute(command);
    EXPECT_TRUE(outcome.ok) << what << ": " << outcome.message;
    journal += JsonText(command) + "\n";
  });
  for (Unmade const& one : unmade) { EXPECT_FALSE(one.object.empty() || one.why.empty()) << one.Text(); }
  if (unmade.empty()) { EXPECT_EQ(DumpOf(again.Model()), DumpOf(model)) << what << "\n" << journal; }
  return unmade.empty();
}

class Recreating : public test::madeup::WithMadeUpFamily {};

// What is not made is told: attributes whose creation was taken back and that need more than any value to be created anew.
TEST_F(Recreating, MakesWhatAnyCommandsMade) {
  int made = 0, all = 0;
  for (unsigned seed = 1; seed <= 30; ++seed) {
    Session session;
    BeginAny(session, seed);
    AnyCommands commands(session, seed);
    for (int i = 1; i <= 600; ++i) {
      session.Execute(CommandOf(commands.Next()));
      if (i % 40 != 0) { continue; }
      ++all;
      made += IsMade(session.Model(), "seed " + std::to_string(seed) + ", " + std::to_string(i)) ? 1 : 0;
      ASSERT_FALSE(HasFailure());
    }
  }
  EXPECT_GE(made, all * 96 / 100) << all;
  RecordProperty("made", made);
  RecordProperty("models", all);
}

TEST_F(Recreating, TellsWhatNoCommandMakes) {
  Session session;
  RunJournal(session, {R"({"command": "StaticStep", "name": "S1", "initialInc": 0.1})", R"({"command": "Set", "name": "Rim"})",
                       R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "region": "Rim", "u1": 0})"});
  ddr_Model model = session.Model();
  auto& conditions = model.Get<kprC_StepAwareRepository>(ddr_Model::bcCmd());
  conditions.Item("Fix")->SetMember("region", cls_Value("Brim"));  // which the model does not have
  std::vector<Unmade> const unmade = Recreate(model, [](cls_Value const&) {});
  ASSERT_EQ(unmade.size(), 1U);
  EXPECT_THAT(unmade[0].Text(), ::testing::StartsWith("no command makes boundaryCondition \"Fix\" in step \"S1\", \"region\": "));
}

}  // namespace
}  // namespace gattr
