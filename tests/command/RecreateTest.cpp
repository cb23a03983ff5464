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

/// Makes the model again from its own journal.
void ExpectMade(ddr_Model const& model, std::string const& what) {
  Session again;
  std::string journal;
  std::vector<Unmade> const unmade = Recreate(model, [&](cls_Value const& command) {
    Outcome const outcome = again.Execute(command);
    EXPECT_TRUE(outcome.ok) << what << ": " << outcome.message;
    journal += JsonText(command) + "\n";
  });
  for (Unmade const& one : unmade) { ADD_FAILURE() << what << ": " << one.Text(); }
  EXPECT_EQ(DumpOf(again.Model()), DumpOf(model)) << what << "\n" << journal;
}

class Recreating : public test::madeup::WithMadeUpFamily {};

TEST_F(Recreating, MakesWhatAnyCommandsMade) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    Session session;
    BeginAny(session, seed);
    AnyCommands commands(session, seed);
    for (int i = 1; i <= 600; ++i) {
      session.Execute(CommandOf(commands.Next()));
      if (i % 40 != 0) { continue; }
      ExpectMade(session.Model(), "seed " + std::to_string(seed) + ", " + std::to_string(i));
      ASSERT_FALSE(HasFailure());
    }
  }
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
