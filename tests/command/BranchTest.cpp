#include <gmock/gmock.h>

#include <map>
#include <stdexcept>

#include "command/Difference.h"
#include "tests/command/CommandTest.h"
#include "tests/support/AnyCommands.h"
#include "tests/support/MadeUpFamily.h"

namespace gattr {
namespace {

using ::testing::ElementsAre;

class Branches : public test::madeup::WithMadeUpFamily {};

/// At random: edits, undo, new branches and switches. Each branch is what a session of its own would be, and what its journal makes.
TEST_F(Branches, AreSessionsOfTheirOwnThatShareTheirBeginning) {
  for (unsigned seed = 1; seed <= 12; ++seed) {
    Session session;
    BeginAny(session, seed);
    std::size_t const begun = session.Journal().size();
    ddr_Model const origin = session.Model();
    AnyCommands commands(session, seed);
    std::map<std::string, ddr_Model> plain{{"main", origin}};
    std::map<std::string, std::vector<ddr_Model>> undone;
    Subscription const heard = session.Subscribe([&](ChangeEvent const& event) { EXPECT_FALSE(event.objects.empty()); });
    for (int i = 0; i < 400; ++i) {
      int const what = commands.Below(12);
      if (what == 0 && plain.size() < 5) {
        std::string const name = "branch-" + std::to_string(plain.size());
        plain.emplace(name, session.Model());
        session.Branch(name);
      } else if (what == 1) {
        auto const one = std::next(plain.begin(), commands.Below(static_cast<int>(plain.size())));
        session.Switch(one->first);
        ASSERT_TRUE(session.Model().Equals(one->second)) << seed << ", " << i << ": " << one->first;
      } else if (what == 2) {
        session.Execute(Line(commands.Below(2) == 0 ? R"({"command": "undo"})" : R"({"command": "redo"})"));
      } else {
        session.Execute(CommandOf(commands.Next()));
      }
      plain.insert_or_assign(session.CurrentBranch(), session.Model());
    }
    for (auto const& [name, model] : plain) {
      ASSERT_TRUE(session.ModelOf(name).Equals(model)) << seed << ": " << name;
      session.Switch(name);
      auto const journal = session.Journal();
      Session again(Session().Model());
      for (cls_Value const& command : journal) { ASSERT_TRUE(again.Execute(command).ok); }
      EXPECT_TRUE(DifferencesBetween(again.Model(), session.Model()).empty()) << seed << ": the journal of " << name;
      EXPECT_GE(journal.size(), begun);
      EXPECT_EQ(again.Changes().Size(), session.Changes().Size());
      while (session.Undo()) {}
      EXPECT_TRUE(session.Model().Equals(Session().Model())) << seed << ": " << name;
    }
  }
}

TEST_F(Branches, AreLeftWithNamesThatFollowAndOneEventAndNeverInATransaction) {
  Session session;
  RunJournal(session, {R"({"command": "Set", "name": "Rim"})", R"({"command": "Set", "name": "Top"})"});
  auto const rim = session.Follow("region", "Rim");
  std::vector<std::string> events;
  Subscription const heard = session.Subscribe([&](ChangeEvent const& event) {
    std::string text = event.label + ":";
    for (ObjectChange const& one : event.objects) { text += " " + std::string(ChangeText(one.change)) + " " + one.before + one.name; }
    events.push_back(event.cause == ChangeEvent::Cause::Switch ? text : "edit");
  });
  session.Branch("softer");
  RunJournal(session, {R"({"command": "rename", "region": "Rim", "newName": "Edge"})",
                       R"({"command": "setValues", "region": "Top", "dimension": 2})"});
  EXPECT_EQ(rim->name, "Edge");
  session.Switch("main");
  EXPECT_EQ(rim->name, "Rim");
  session.Switch("main");
  session.Switch("softer");
  EXPECT_EQ(rim->name, "Edge");
  EXPECT_THAT(events, ElementsAre("edit", "edit", "switch \"main\": renamed EdgeRim changed Top",
                                  "switch \"softer\": renamed RimEdge changed Top"));
  EXPECT_EQ(session.Compare("softer", "main").size(), 3U);
  EXPECT_THAT(session.Branches(), ElementsAre("main", "softer"));

  for (char const* name : {"main", "softer", "", "\xff"}) { EXPECT_THROW(session.Branch(name), std::invalid_argument) << name; }
  EXPECT_THROW(session.DeleteBranch("softer"), std::invalid_argument) << "worked in";
  EXPECT_THROW(session.Switch("sofer"), std::invalid_argument);
  EXPECT_THROW(session.ModelOf("none"), std::invalid_argument);
  session.Begin();
  EXPECT_THROW(session.Switch("main"), std::logic_error);
  EXPECT_THROW(session.Branch("third"), std::logic_error);
  session.Rollback();
  session.ForgetPast();
  session.Switch("main");
  EXPECT_FALSE(session.CanUndo());
  EXPECT_TRUE(session.Journal().empty());
  session.DeleteBranch("softer");
  EXPECT_THAT(session.Branches(), ElementsAre("main"));
}

}  // namespace
}  // namespace gattr
