#include <malloc.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

/// Commands at random, most of which succeed and some of which do not.
class Script {
public:
  explicit Script(unsigned seed) : random_(seed) {}

  Json Next() {
    std::string const step = "S" + std::to_string(Below(8)), other = "S" + std::to_string(Below(8)), bc = "B" + std::to_string(Below(5));
    double const value = Below(3);
    switch (Below(18)) {
      case 0: return With(NewStep("GGGPFMECX"[Below(9)], step), {{"previous", Below(2) == 0 ? "Initial" : other}});
      case 1: return NewStep("GGGE"[Below(4)], step);
      case 2: return {{"command", "delete"}, {"step", step}};
      case 3: return {{"command", "rename"}, {"step", step}, {"newName", other}};
      case 4: {
        char const letter = "GPFE"[Below(4)];
        return With({{"command", "replace"}, {"step", step}, {"procedure", StepCommand(letter)}}, StepArguments(letter));
      }
      case 5: return {{"command", "setValues"}, {"step", step}, {"maxNumInc", Below(50)}};
      case 6:
      case 7: return {{"command", "DisplacementBC"}, {"name", bc}, {"createStepName", step}, {"u1", value}, {"region", "Set-1"}};
      case 8: return {{"command", "PinnedBC"}, {"name", bc}, {"createStepName", Below(3) == 0 ? "Initial" : step}};
      case 9: return {{"command", "setValuesInStep"}, {"boundaryCondition", bc}, {"stepName", step}, {"u1", value}};
      case 10: return {{"command", "setValuesInStep"}, {"boundaryCondition", bc}, {"stepName", step}, {"u1", "FREED"}, {"u2", 0}};
      case 11: return {{"command", "deactivate"}, {"boundaryCondition", bc}, {"stepName", step}};
      case 12: return {{"command", "reset"}, {"boundaryCondition", bc}, {"stepName", step}};
      case 13: return {{"command", "remove"}, {"boundaryCondition", bc}, {"stepName", step}};
      case 14: return {{"command", "move"}, {"boundaryCondition", bc}, {"fromStepName", step}, {"toStepName", other}};
      case 15: return {{"command", Below(2) == 0 ? "suppress" : "resume"}, {"boundaryCondition", bc}};
      case 16: return {{"command", "setValues"}, {"region", "Set-1"}, {"dimension", Below(4)}};
      default:
        return {{"command", Below(4) == 0 ? "delete" : "rename"}, {"boundaryCondition", bc}, {"newName", "B" + std::to_string(Below(5))}};
    }
  }
  int Below(int end) { return std::uniform_int_distribution(0, end - 1)(random_); }

private:
  static Json With(Json command, Json const& arguments) {
    command.update(arguments);
    return command;
  }

  std::mt19937 random_;
};

/// The names of a model's steps and boundary conditions as a listener knows them who is told of every edit.
class Follower {
public:
  explicit Follower(Session& session) : subscription_(session.Subscribe([this](ChangeEvent const& event) { Take(event); })) {}

  void AssertKnows(Session const& session) const {
    std::set<std::string> names;
    kprC_StepTable const& steps = BoundaryConditions(session).Steps();
    for (std::size_t i = 1; i < steps.Size(); ++i) { names.insert("step " + std::string(steps.Name(i).View())); }
    BoundaryConditions(session).ForEach(
        [&names](cow_String const& name, auto const&) { names.insert("boundaryCondition " + std::string(name.View())); });
    ASSERT_EQ(names_, names);
  }

private:
  void Take(ChangeEvent const& event) {
    EXPECT_FALSE(event.objects.empty()) << event.label;
    std::set<std::string> come;  // behind what goes: names may have been exchanged
    for (ObjectChange const& change : event.objects) {
      if (change.kind != "step" && change.kind != "boundaryCondition") { continue; }
      std::string const now = change.kind + " " + change.name;
      switch (change.change) {
        case ChangeKind::Created: come.insert(now); break;
        case ChangeKind::Changed: EXPECT_TRUE(names_.contains(now)) << now; break;
        case ChangeKind::Renamed:
          EXPECT_EQ(names_.erase(change.kind + " " + change.before), 1U);
          come.insert(now);
          break;
        case ChangeKind::Deleted: EXPECT_EQ(names_.erase(now), 1U) << now;
      }
    }
    names_.merge(come);
  }

  std::set<std::string> names_;
  Subscription subscription_;
};

/// What holds of every model: one creation to a history, statuses of the family, and a further pass changes nothing.
void AssertSound(Session const& session) {
  std::set<int> const known = {0, 1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 12};
  BoundaryConditions(session).ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
    auto const history = item.History();
    EXPECT_LE(std::ranges::count(history, mdl_PropagationStatusEnm::Created), 1) << name.View();
    for (mdl_PropagationStatusEnm const status : history) { EXPECT_TRUE(known.contains(static_cast<int>(status))) << name.View(); }
    std::unique_ptr<cls_Object> const copy = item.Copy();
    auto& again = dynamic_cast<kprC_StepDependent&>(*copy);
    if (!item.IsSuppressed()) {
      again.UpdateStates();
      EXPECT_TRUE(again.Equals(item)) << name.View() << ": a second pass changes nothing";
    }
  });
}

/// The statuses of boundary conditions by name and step; 0 goes without saying.
using Statuses = std::map<std::pair<std::string, std::string>, int>;
Statuses StatusesOf(Session const& session) {
  Statuses statuses;
  BoundaryConditions(session).ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
    for (std::size_t i = 0; i < item.Steps().Size(); ++i) {
      int const status = static_cast<int>(item.StatusAt(i));
      if (status != 0) { statuses[{std::string(name.View()), std::string(item.Steps().Name(i).View())}] = status; }
    }
  });
  return statuses;
}

/// What a dry run tells of statuses is every difference between those before and those that the command then gives.
void AssertForeseen(Effects const& effects, Statuses const& before, Statuses const& after) {
  auto const nameBefore = [&](std::string_view kind, std::string const& name) {
    auto const renamed = std::ranges::find_if(effects.objects, [&](ObjectChange const& change) {
      return change.change == ChangeKind::Renamed && change.kind == kind && change.name == name;
    });
    return renamed == effects.objects.end() ? name : renamed->before;
  };
  auto const at = [](Statuses const& statuses, std::string const& name, std::string const& step) {
    auto const found = statuses.find({name, step});
    return found == statuses.end() ? 0 : found->second;
  };
  std::set<std::tuple<std::string, int, int>> told, differing;
  for (StatusChange const& change : effects.statuses) {
    int const was = static_cast<int>(change.before.value_or(mdl_PropagationStatusEnm::NotYetCreated));
    int const is = static_cast<int>(change.after.value_or(mdl_PropagationStatusEnm::NotYetCreated));
    told.emplace(change.name, was, is);
    for (std::string const& step : {change.firstStep, change.lastStep}) {
      EXPECT_EQ(at(before, nameBefore("boundaryCondition", change.name), nameBefore("step", step)), was) << change.name << " in " << step;
      EXPECT_EQ(at(after, change.name, step), is) << change.name << " in " << step;
    }
  }
  Statuses was = before;
  for (auto const& [place, status] : after) {
    auto const& [name, step] = place;
    std::pair const old(nameBefore("boundaryCondition", name), nameBefore("step", step));
    if (int const one = at(before, old.first, old.second); one != status) { differing.emplace(name, one, status); }
    was.erase(old);
  }
  for (auto const& [place, status] : was) {  // what is nowhere any more, by the names of today
    std::string name = place.first;
    for (ObjectChange const& change : effects.objects) {
      if (change.change == ChangeKind::Renamed && change.kind == "boundaryCondition" && change.before == name) {
        name = change.name;
        break;
      }
    }
    differing.emplace(name, status, 0);
  }
  ASSERT_EQ(told, differing);
}

class RandomScripts : public CommandTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(RandomScripts, LeaveSoundModelsAndAreUndoneAndRedoneWhole) {
  Script script(GetParam());
  Session session;
  ddr_Model const initial = session.Model();
  Follower const follower(session);
  RunJournal(session, {R"({"command": "Set", "name": "Set-1"})", R"({"command": "StaticStep", "name": "S1", "initialInc": 0.1})"});
  int succeeded = 2;
  for (int i = 0; i < 150; ++i) {
    Json const command = script.Next();
    ddr_Model const before = session.Model();
    std::size_t const changes = session.Changes().Size();
    Json trial = command;
    trial["dryRun"] = true;
    Outcome const dry = session.Execute(CommandOf(trial));
    ASSERT_TRUE(session.Model().Equals(before)) << "a dry run changes nothing: " << command;
    ASSERT_EQ(session.Changes().Size(), changes);
    Statuses const statuses = StatusesOf(session);
    session.SetTrace(true);
    Outcome const outcome = session.Execute(CommandOf(command));
    ASSERT_EQ(dry.ok, outcome.ok) << command;
    ASSERT_EQ(dry.message, outcome.message) << command;
    ASSERT_EQ(dry.history, outcome.history) << command;
    if (outcome.ok) {
      ++succeeded;
      AssertForeseen(dry.effects, statuses, StatusesOf(session));
    } else {
      ASSERT_TRUE(session.Model().Equals(before)) << command;
      ASSERT_EQ(session.Changes().Size(), changes) << command;
    }
    AssertSound(session);
    follower.AssertKnows(session);
    if (::testing::Test::HasFailure()) { FAIL() << "after " << command; }
    while (script.Below(8) == 0 && session.CanUndo()) {  // wander, and come back
      ddr_Model const here = session.Model();
      ASSERT_TRUE(session.Undo());
      ASSERT_TRUE(session.Redo());
      ASSERT_TRUE(session.Model().Equals(here));
    }
  }
  EXPECT_GT(succeeded, 30) << "the script is worth its while";

  ddr_Model const final = session.Model();
  std::vector<cls_Value> const journal = session.Journal();
  std::size_t const changes = session.Changes().Size();
  while (session.Undo()) { follower.AssertKnows(session); }
  EXPECT_TRUE(session.Model().Equals(initial));
  EXPECT_EQ(session.Changes().Size(), 0U);
  while (session.Redo()) {}
  EXPECT_TRUE(session.Model().Equals(final));
  EXPECT_EQ(session.Changes().Size(), changes);

  Session replayed;
  for (cls_Value const& command : journal) { ASSERT_TRUE(replayed.Execute(command).ok) << JsonText(command); }
  EXPECT_TRUE(replayed.Model().Equals(final)) << "the journal gives the model again";
  EXPECT_EQ(replayed.Changes().Size(), changes);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomScripts, ::testing::Range(1U, 21U));

class Undo : public CommandTest {};

TEST_F(Undo, NamesWhatItTakesBackAndForgetsWhatWasUndoneAtTheNextEdit) {
  Session session;
  session.SetTrace(true);
  AppendSteps(session, "IGG");
  RunJournal(session, {R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "u1": 0})",
                       R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S2"})"});
  EXPECT_EQ(session.UndoLabel(), "deactivate boundaryCondition \"Fix\"");
  Outcome const undone = session.Execute(Line(R"({"command": "undo"})"));
  ASSERT_EQ(undone.history.size(), 1U) << "tells of what the undone command touched";
  EXPECT_EQ(undone.history[0].second, (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(session.RedoLabel(), "deactivate boundaryCondition \"Fix\"");
  EXPECT_FALSE(session.Execute(Line(R"({"command": "reset", "boundaryCondition": "Fix", "stepName": "S1"})")).ok);
  EXPECT_TRUE(session.CanRedo()) << "a refusal is no edit";
  RunJournal(session, {R"({"command": "suppress", "boundaryCondition": "Fix"})"});
  EXPECT_FALSE(session.Redo());
  EXPECT_EQ(session.Journal().size(), 6U);
}

TEST_F(Undo, OfADryRunStaysWithoutEffect) {
  Session session;
  session.SetTrace(false);
  AppendSteps(session, "IG");
  RunJournal(session, {R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "u1": 0})"});
  ddr_Model const before = session.Model();
  EXPECT_TRUE(session.Execute(Line(R"({"command": "undo", "dryRun": true})")).ok);
  EXPECT_TRUE(session.Model().Equals(before));
  EXPECT_EQ(session.Journal().size(), 2U);
  EXPECT_TRUE(session.CanUndo());
  EXPECT_FALSE(session.CanRedo());
}

TEST_F(Undo, SharesWhatTheEditLeftAlone) {
  Session session;
  AppendSteps(session, "IGG");
  RunJournal(session, {R"({"command": "DisplacementBC", "name": "A", "createStepName": "S1", "u1": 0})",
                       R"({"command": "DisplacementBC", "name": "B", "createStepName": "S1", "u1": 0})"});
  kprC_StepDependent const* const a = BoundaryConditions(session).ConstItem("A");
  kprC_StepDependent const* const b = BoundaryConditions(session).ConstItem("B");
  RunJournal(session, {R"({"command": "deactivate", "boundaryCondition": "B", "stepName": "S2"})"});
  EXPECT_EQ(BoundaryConditions(session).ConstItem("A"), a);
  EXPECT_NE(BoundaryConditions(session).ConstItem("B"), b);
  session.Undo();
  EXPECT_EQ(BoundaryConditions(session).ConstItem("B"), b) << "the very object comes back";
}

TEST_F(Undo, ForgetsTheOldestEditsWhenTheyFillTheMemory) {
  Session session;
  session.SetUndoMemory(1 << 20);
  constexpr int kSteps = 300;
  for (int i = 1; i <= kSteps; ++i) { RunJournal(session, {NewStep('G', std::to_string(i)).dump()}); }
  int undone = 0;
  while (session.Undo()) { ++undone; }
  EXPECT_LT(undone, kSteps);
  EXPECT_GT(undone, kSteps / 8);
  EXPECT_EQ(BoundaryConditions(session).Steps().Size(), static_cast<std::size_t>(kSteps - undone + 1));
  while (session.Redo()) {}
  EXPECT_EQ(BoundaryConditions(session).Steps().Size(), static_cast<std::size_t>(kSteps + 1));
}

/// Bytes in use on the heap.
std::size_t HeapBytes() {
  auto const info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

TEST_F(Undo, TakesTheMemoryThatItMayWhateverAnEditKeeps) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer's heap cannot be measured";
#endif
  constexpr std::size_t kMemory = 8 << 20;
  struct Row {
    char const* what;
    int own;    ///< records that each of ten conditions has of its own
    int edits;  ///< more than the memory holds
    Json (*edit)(int number);
  };
  Row const rows[] = {
      {"a value of a long history", 300, 400,
       [](int i) {
         return Json{{"command", "setValuesInStep"}, {"boundaryCondition", "A0"}, {"stepName", "S1"}, {"u1", 1.0 + i}};
       }},
      {"a value of a short one", 2, 8000,
       [](int i) {
         return Json{
             {"command", "setValuesInStep"}, {"boundaryCondition", "A" + std::to_string(i % 10)}, {"stepName", "S1"}, {"u1", 1.0 + i}};
       }},
      {"what all refer to", 2, 4000,
       [](int i) {
         return Json{{"command", "rename"}, {"region", i % 2 == 0 ? "R" : "Q"}, {"newName", i % 2 == 0 ? "Q" : "R"}};
       }},
      {"a condition that goes, and comes again", 2, 8000,
       [](int i) {
         return i % 2 == 0 ? Json{{"command", "delete"}, {"boundaryCondition", "A0"}}
                           : Json{{"command", "DisplacementBC"}, {"name", "A0"}, {"createStepName", "S1"}, {"region", "R"}, {"u1", 1.0}};
       }},
      {"a list of what is referred to", 2, 600,
       [](int i) {
         Json table = Json::array();
         for (int row = 0; row < 1000; ++row) { table.push_back({1.0 + i, static_cast<double>(row)}); }
         return Json{{"command", "setValues"}, {"interactionProperty", "P"}, {"table", table}};
       }},
      {"a list of a state", 2, 600,
       [](int i) {
         Json pairs;
         for (int row = 0; row < 100; ++row) { pairs.push_back({{"region1", "S"}, {"region2", "S" + std::to_string(row)}}); }
         return Json{{"command", i % 2 == 0 ? "addPairs" : "removePairs"}, {"interaction", "G"}, {"stepName", "S1"}, {"pairs", pairs}};
       }},
  };
  for (Row const& row : rows) {
    Session session;
    session.SetUndoMemory(kMemory);
    AppendSteps(session, "I" + std::string(static_cast<std::size_t>(row.own), 'X'));
    RunJournal(session, {R"({"command": "Set", "name": "R"})", R"({"command": "Surface", "name": "S"})",
                         R"({"command": "FilmConditionProp", "name": "P", "temperatureDependency": true})",
                         R"({"command": "ContactExp", "name": "G", "createStepName": "S1"})"});
    for (int i = 0; i < 100; ++i) { session.Execute(CommandOf({{"command", "Surface"}, {"name", "S" + std::to_string(i)}})); }
    for (std::string const name : {"A0", "A1", "A2", "A3", "A4", "A5", "A6", "A7", "A8", "A9"}) {
      ASSERT_TRUE(
          session
              .Execute(CommandOf({{"command", "DisplacementBC"}, {"name", name}, {"createStepName", "S1"}, {"region", "R"}, {"u1", 1.0}}))
              .ok);
      for (int step = 2; step <= row.own; ++step) {
        ASSERT_TRUE(session
                        .Execute(CommandOf({{"command", "setValuesInStep"},
                                            {"boundaryCondition", name},
                                            {"stepName", "S" + std::to_string(step)},
                                            {"u2", static_cast<double>(step)}}))
                        .ok);
      }
    }
    session = Session(session.Model());
    session.SetUndoMemory(kMemory);
    std::size_t const before = HeapBytes();
    for (int i = 0; i < row.edits; ++i) {
      Outcome const outcome = session.Execute(CommandOf(row.edit(i)));
      ASSERT_TRUE(outcome.ok) << row.what << ": " << outcome.message;
    }
    std::size_t taken = HeapBytes() - before;
    {  // of the journal nothing is forgotten
      std::vector<cls_Value> const commands = session.Journal();
      std::size_t const beside = HeapBytes();
      KeptJournal journal;
      for (cls_Value const& command : commands) { journal.Append(command); }
      taken -= HeapBytes() - beside;
    }
    EXPECT_LT(taken, kMemory + kMemory / 2) << row.what;  // the changes are kept too
    EXPECT_GT(taken, kMemory / 5) << row.what << ": it has room for more";
  }
}

TEST_F(Undo, IsNotKeptWhereThePastIsForgotten) {
  Session session;
  AppendSteps(session, "IGG");
  RunJournal(session, {R"({"command": "DisplacementBC", "name": "A", "createStepName": "S1", "u1": 0})"});
  ASSERT_TRUE(session.CanUndo());
  session.ForgetPast();
  RunJournal(session, {R"({"command": "deactivate", "boundaryCondition": "A", "stepName": "S2"})"});
  EXPECT_FALSE(session.Undo());
  EXPECT_TRUE(session.Journal().empty());
  EXPECT_TRUE(session.Changes().IsEmpty());
  ddr_Model const before = session.Model();
  EXPECT_FALSE(session.Execute(Line(R"({"command": "reset", "boundaryCondition": "A", "stepName": "S1"})")).ok);
  EXPECT_TRUE(session.Model().Equals(before)) << "a refusal leaves the model alone all the same";
}

TEST_F(Undo, KeepsTheChangesOfSessionsApart) {
  Session one, other;
  AppendSteps(one, "IG");
  AppendSteps(other, "IG");
  RunJournal(one, {R"({"command": "DisplacementBC", "name": "A", "createStepName": "S1"})"});
  ASSERT_EQ(one.Changes().Size(), other.Changes().Size() + 1);
  EXPECT_EQ(one.Changes()[one.Changes().Size() - 1], (omu_PrimTuple{cow_String("Insert"), cow_String("A"), -99}));
  EXPECT_EQ(thr_ThreadSingleton<omu_ChangeHistory>::Instance().Size(), 0U) << "nothing is left in the thread's own";
}

}  // namespace
}  // namespace gattr
