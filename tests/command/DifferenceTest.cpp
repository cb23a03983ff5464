#include "command/Difference.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "command/Merge.h"
#include "store/TextStore.h"
#include "tests/command/CommandTest.h"
#include "tests/support/AnyCommands.h"
#include "tests/support/MadeUpFamily.h"

namespace gattr {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string TextOfModel(ddr_Model const& model) {
  std::ostringstream out;
  WriteText(model, out);
  return out.str();
}
ddr_Model ReadAgain(ddr_Model const& model) {
  std::istringstream in(TextOfModel(model));
  return ReadText(in, "again");
}

/// Five static steps, two conditions, a load and what they name.
ddr_Model Beginning() {
  Session session;
  AppendSteps(session, "IGGGGG");
  RunJournal(
      session,
      {R"({"command": "Set", "name": "Rim"})", R"({"command": "Set", "name": "Top"})", R"({"command": "Amplitude", "name": "Ramp"})",
       R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "region": "Rim", "u1": 0, "u2": 0, "ur1": 0, "ur2": 0})",
       R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S3", "u2": 1, "ur2": 1})",
       R"({"command": "DisplacementBC", "name": "Lid", "createStepName": "Initial", "region": "Top", "u3": 0})",
       R"({"command": "deactivate", "boundaryCondition": "Lid", "stepName": "S5"})",
       R"({"command": "ConcentratedForce", "name": "Push", "createStepName": "S2", "region": "Top", "cf1": 5})"});
  return session.Model();
}
ddr_Model After(ddr_Model const& model, std::vector<std::string> const& lines) {
  Session session(model);
  RunJournal(session, lines);
  return session.Model();
}

class Differences : public test::madeup::WithMadeUpFamily {};

/// The lines of the text, blanks as one.
std::vector<std::string> Told(ddr_Model const& before, ddr_Model const& now) {
  std::vector<ObjectDifference> const differences = DifferencesBetween(before, now);
  std::vector<std::string> lines;
  for (ObjectDifference const& one : differences) {
    std::string head = std::string(ChangeText(one.change)) + " " + one.kind + " " + one.name;
    if (!one.before.empty()) { head += " from " + one.before; }
    if (!one.previous.empty()) { head += " behind " + one.previous; }
    auto const members = [](std::vector<MemberDifference> const& all) {
      std::string text;
      for (MemberDifference const& member : all) { text += " " + member.member + " " + JsonText(member.was) + ">" + JsonText(member.is); }
      return text;
    };
    lines.push_back(head + members(one.members));
    for (RecordDifference const& record : one.records) {
      constexpr char const* kSays[] = {"-", "values", "created", "created off", "off"};
      std::string const from = record.movedFrom.empty() ? kSays[static_cast<int>(record.was)] : "from " + record.movedFrom;
      lines.push_back("  " + record.step + ": " + from + ">" + kSays[static_cast<int>(record.is)] + members(record.members));
    }
  }
  return lines;
}

TEST_F(Differences, TellWhatWasEditedAndNotWhatFollows) {
  ddr_Model const base = Beginning();
  struct Row {
    std::vector<std::string> commands, told;
  };
  Row const rows[] = {
      {{R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u2": 7})"},
       {"changed boundaryCondition Fix", "  S2: ->values u2 null>7.0"}},
      {{R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S3", "u2": "FREED"})"},
       {"changed boundaryCondition Fix", "  S3: values>values u2 1.0>\"FREED\""}},
      {{R"({"command": "setValues", "boundaryCondition": "Fix", "u1": "UNSET", "ur3": 2})"},
       {"changed boundaryCondition Fix", "  S1: created>created u1 0.0>null ur3 null>2.0"}},
      {{R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S3"})"},
       {"changed boundaryCondition Fix", "  S3: values>off u2 1.0>null ur2 1.0>null"}},
      {{R"({"command": "move", "boundaryCondition": "Fix", "fromStepName": "S3", "toStepName": "S4"})"},
       {"changed boundaryCondition Fix", "  S4: from S3>values"}},
      {{R"({"command": "suppress", "boundaryCondition": "Lid"})"}, {"changed boundaryCondition Lid suppress false>true"}},
      {{R"({"command": "rename", "boundaryCondition": "Lid", "newName": "Cap"})"}, {"renamed boundaryCondition Cap from Lid"}},
      {{R"({"command": "rename", "step": "S3", "newName": "Mid"})",
        R"({"command": "setValuesInStep", "load": "Push", "stepName": "Mid", "cf2": 1})"},
       {"renamed step Mid from S3", "changed load Push", "  Mid: ->values cf2 null>1.0"}},
      {{R"({"command": "StaticStep", "name": "More", "previous": "S1", "initialInc": 0.1})"},
       {R"(created step More behind S1 initialInc null>0.1 minInc null>1e-05 maxInc null>1.0)"}},
      {{R"({"command": "delete", "step": "S3"})"},
       {"deleted step S3 initialInc 0.1>null minInc 1e-05>null maxInc 1.0>null", "changed boundaryCondition Fix",
        "  S3: values>- u2 1.0>null ur2 1.0>null"}},
      {{R"({"command": "replace", "step": "S4", "procedure": "ImplicitDynamicsStep", "haftol": 1})"}, {"changed step S4 haftol null>1.0"}},
      {{R"({"command": "setValues", "region": "Rim", "dimension": 2})"}, {"changed region Rim dimension null>2"}},
      {{R"({"command": "rename", "region": "Rim", "newName": "Edge"})"},
       {"changed boundaryCondition Fix region \"Rim\">\"Edge\"", "created region Edge", "deleted region Rim"}},
      {{R"({"command": "setModel", "name": "Press"})", R"({"command": "setModelSpace", "space": "AXISYMMETRIC"})"},
       {R"(changed model Press name "Model-1">"Press" space "THREE_D">"AXISYMMETRIC")"}},
  };
  for (Row const& row : rows) {
    ddr_Model const now = After(base, row.commands);
    EXPECT_EQ(Told(base, now), row.told) << row.commands[0];
    EXPECT_EQ(Told(ReadAgain(base), ReadAgain(now)), row.told) << row.commands[0] << ", of models that share nothing";
  }
  EXPECT_THAT(Told(base, ReadAgain(base)), IsEmpty());
}

TEST_F(Differences, OfStepsInAnotherOrderNameAsFewAsCanBe) {
  auto const steps = [](std::vector<std::string> const& names) {
    Session session;
    for (std::string const& name : names) { RunJournal(session, {NewStep('G', name).dump()}); }
    return session.Model();
  };
  EXPECT_THAT(Told(steps({"A", "B", "C", "D"}), steps({"D", "A", "B", "C"})), ElementsAre("changed step D behind Initial"));
  EXPECT_THAT(Told(steps({"A", "B", "C", "D"}), steps({"B", "A", "D", "C"})).size(), 2);
}

// ---- both at once

/// All that any two edits of a model lead to: nothing to tell only of equal models, the laws of a merge, and which side is which does
/// not count.
TEST_F(Differences, AndMergesOfAnyModelsAreSound) {
  int whole = 0, all = 0;
  for (unsigned seed = 1; seed <= 40; ++seed) {
    Session begin;
    BeginAny(begin, seed);
    AnyCommands commands(begin, seed);
    for (int i = 0; i < 150; ++i) { begin.Execute(CommandOf(commands.Next())); }
    ddr_Model const base = begin.Model();
    auto const side = [&](unsigned other) {
      Session session(base);
      AnyCommands edits(session, other);
      for (int i = 0; i < 25; ++i) { session.Execute(CommandOf(edits.Next())); }
      return session.Model();
    };
    ddr_Model const ours = side(seed + 1000), theirs = seed % 2 == 0 ? side(seed + 2000) : ReadAgain(side(seed + 2000));
    std::string const dumps[] = {TextOfModel(base), TextOfModel(ours), TextOfModel(theirs)};
    ddr_Model const* const models[] = {&base, &ours, &theirs};
    for (std::size_t i = 0; i < 3; ++i) {
      for (std::size_t j = 0; j < 3; ++j) {
        EXPECT_EQ(DifferencesBetween(*models[i], *models[j]).empty(), dumps[i] == dumps[j]) << "seed " << seed << ": " << i << j;
      }
    }
    EXPECT_EQ(TextOfModel(Merge(base, ours, base).model), dumps[1]);
    EXPECT_EQ(TextOfModel(Merge(base, base, ours).model), dumps[1]);
    EXPECT_EQ(TextOfModel(Merge(base, ours, ReadAgain(ours)).model), dumps[1]);
    Merged const merged = Merge(base, ours, theirs), reverse = Merge(base, theirs, ours);
    ++all;
    std::string told;
    for (MergeConflict const& one : merged.conflicts) {
      told += one.Text() + "\n";
      EXPECT_FALSE(one.kind.empty()) << one.Text();
    }
    EXPECT_EQ(merged.IsWhole(), reverse.IsWhole()) << "seed " << seed << "\n" << told;
    if (!merged.IsWhole()) {
      EXPECT_EQ(TextOfModel(merged.model), dumps[1]);
      continue;
    }
    ++whole;
    EXPECT_EQ(TextOfModel(merged.model), TextOfModel(reverse.model)) << "seed " << seed;
    EXPECT_EQ(TextOfModel(Merge(base, merged.model, theirs).model), TextOfModel(merged.model)) << "merged again, seed " << seed;
  }
  EXPECT_GE(whole, all / 2) << "too few of them show anything";
  RecordProperty("whole", whole);
  RecordProperty("all", all);
}

TEST_F(Differences, OfOtherObjectsStepsAndMembersMergeAsIfBothHadBeenDone) {
  ddr_Model const base = Beginning();
  std::vector<std::string> const ours = {
      R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S3", "u1": 3})",
      R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u2": "FREED"})",
      R"({"command": "setValues", "boundaryCondition": "Fix", "u1": 4})",
      R"({"command": "setValuesInStep", "boundaryCondition": "Lid", "stepName": "S2", "u3": 2})",
      R"({"command": "StaticStep", "name": "X", "previous": "S1", "initialInc": 0.1})",
      R"({"command": "EncastreBC", "name": "New", "createStepName": "S2", "region": "Top"})",
      R"({"command": "setValues", "region": "Rim", "dimension": 2})",
      R"({"command": "setValues", "step": "S2", "maxNumInc": 7})",
      R"({"command": "rename", "load": "Push", "newName": "Shove"})",
      R"({"command": "setModel", "name": "Press"})",
      R"({"command": "rename", "step": "S4", "newName": "Four"})",
  };
  std::vector<std::string> const theirs = {
      R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S3", "ur1": 3})",
      R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S4", "ur2": "FREED"})",
      R"({"command": "setValues", "boundaryCondition": "Fix", "ur3": 4})",
      R"({"command": "setValuesInStep", "boundaryCondition": "Lid", "stepName": "S3", "u1": 2})",
      R"({"command": "setValuesInStep", "load": "Push", "stepName": "S3", "cf2": 2})",
      R"({"command": "StaticStep", "name": "Y", "previous": "S4", "initialInc": 0.1})",
      R"({"command": "PinnedBC", "name": "Hinge", "createStepName": "S3", "region": "Rim"})",
      R"({"command": "setValues", "step": "S2", "timePeriod": 2})",
      R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S5", "amplitude": "Ramp"})",
      R"({"command": "reset", "boundaryCondition": "Lid", "stepName": "S5"})",
  };
  std::mt19937 random(1);
  for (int i = 0; i < 60; ++i) {
    auto const some = [&](std::vector<std::string> lines) {
      std::ranges::shuffle(lines, random);
      lines.resize(1 + random() % lines.size());
      return lines;
    };
    std::vector<std::string> const a = some(ours), b = some(theirs);
    ddr_Model const first = After(base, a), second = After(base, b);
    Merged const merged = Merge(base, first, ReadAgain(second));
    std::string script;
    for (auto const& lines : {b, a}) {
      for (std::string const& line : lines) { script += line + "\n"; }
    }
    ASSERT_TRUE(merged.IsWhole()) << merged.conflicts.front().Text() << "\n" << script;
    ASSERT_EQ(TextOfModel(merged.model), TextOfModel(After(After(base, b), a))) << script;
  }
}

TEST_F(Differences, ThatBothCannotHaveAreNamed) {
  ddr_Model const base = Beginning();
  auto const in = [](char const* name, char const* step, std::string const& more) {
    return R"({"command": "setValuesInStep", "boundaryCondition": ")" + std::string(name) + R"(", "stepName": ")" + step + "\", " + more +
           "}";
  };
  std::string const deactivate = R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S3"})",
                    remove = R"({"command": "delete", "boundaryCondition": "Fix"})";
  struct Row {
    std::string ours, theirs, told;
  };
  Row const rows[] = {
      {in("Fix", "S3", R"("u2": 2)"), in("Fix", "S3", R"("u2": 3)"),
       R"(boundaryCondition "Fix" in step "S3", "u2": 1.0 in base, 2.0 in ours, 3.0 in theirs)"},
      {in("Fix", "S2", R"("u1": 2)"), in("Fix", "S2", R"("u1": 3)"),
       R"(boundaryCondition "Fix" in step "S2", "u1": nothing in base, 2.0 in ours, 3.0 in theirs)"},
      {remove, in("Fix", "S2", R"("u1": 3)"),
       R"(boundaryCondition "Fix": "DisplacementBC" in base, nothing in ours, "DisplacementBC" in theirs: deleted in ours, edited in theirs)"},
      {deactivate, in("Fix", "S3", R"("u1": 3)"),
       R"(boundaryCondition "Fix" in step "S3", "u1": nothing in base, "off" in ours, 3.0 in theirs)"},
      {R"({"command": "remove", "boundaryCondition": "Fix", "stepName": "S3"})", in("Fix", "S3", R"("u2": 3)"),
       R"(boundaryCondition "Fix" in step "S3", "u2": 1.0 in base, nothing in ours, 3.0 in theirs)"},
      {R"({"command": "deactivate", "boundaryCondition": "Fix", "stepName": "S4"})", in("Fix", "S5", R"("u1": 3)"), ""},
      {R"({"command": "delete", "step": "S3"})", in("Fix", "S3", R"("u1": 3)"),
       R"(boundaryCondition "Fix" in step "S3", "u1": nothing in base, nothing in ours, 3.0 in theirs)"},
      {R"({"command": "delete", "step": "S4"})", in("Fix", "S4", R"("u1": 3)"),
       R"(boundaryCondition "Fix" in step "S4": nothing in base, nothing in ours, "values" in theirs: the edits of both sides together make something else of it)"},
      {R"({"command": "delete", "step": "S4"})", R"({"command": "setValues", "step": "S4", "maxNumInc": 9})",
       R"(step "S4": "StaticStep" in base, nothing in ours, "StaticStep" in theirs: deleted in ours, edited in theirs)"},
      {R"({"command": "rename", "step": "S4", "newName": "Four"})", R"({"command": "rename", "step": "S4", "newName": "Fore"})",
       R"(step "S4", "name": "S4" in base, "Four" in ours, "Fore" in theirs)"},
      {R"({"command": "StaticStep", "name": "X", "previous": "S2", "initialInc": 0.1})",
       R"({"command": "StaticStep", "name": "Y", "previous": "S2", "initialInc": 0.1})",
       R"(step "S2": nothing in base, "X" in ours, "Y" in theirs: both insert a step behind it: which one comes first?)"},
      {R"({"command": "StaticStep", "name": "X", "previous": "S2", "initialInc": 0.1})",
       R"({"command": "StaticStep", "name": "X", "previous": "S4", "initialInc": 0.1})",
       R"(step "X", "previous": nothing in base, "S2" in ours, "S4" in theirs: both insert it, in different places)"},
      {R"({"command": "delete", "load": "Push"})", R"({"command": "rename", "load": "Push", "newName": "Pull"})",
       R"(load "Push", "name": "Push" in base, nothing in ours, "Pull" in theirs: There are no loads defined. [klo 3])"},
      {R"({"command": "Set", "name": "A", "dimension": 1})", R"({"command": "Set", "name": "A", "dimension": 2})",
       R"(region "A", "dimension": nothing in base, 1 in ours, 2 in theirs)"},
      {R"({"command": "delete", "amplitude": "Ramp"})", in("Fix", "S2", R"("amplitude": "Ramp")"),
       R"(boundaryCondition "Fix": Invalid value for boundary condition amplitude. [kbc 35] There is no amplitude "Ramp".)"},
      {R"({"command": "replace", "step": "S5", "procedure": "FrequencyStep", "numEigen": 5})",
       R"({"command": "setValuesInStep", "load": "Push", "stepName": "S5", "cf1": 3})", R"(load "Push" in step "S5")"},
  };
  auto const texts = [](Merged const& merged) {
    std::string text;
    for (MergeConflict const& one : merged.conflicts) { text += (text.empty() ? "" : "\n") + one.Text(); }
    return text;
  };
  for (Row const& row : rows) {
    ddr_Model const ours = After(base, {row.ours}), theirs = After(base, {row.theirs});
    Merged const merged = Merge(base, ours, theirs), reverse = Merge(base, theirs, ours);
    EXPECT_THAT(texts(merged), ::testing::StartsWith(row.told)) << row.ours << "\n" << row.theirs;
    ASSERT_EQ(merged.conflicts.size(), reverse.conflicts.size()) << texts(merged) << "\n" << texts(reverse);
    for (std::size_t i = 0; i < merged.conflicts.size(); ++i) {
      MergeConflict const &one = merged.conflicts[i], &other = reverse.conflicts[i];
      EXPECT_EQ(std::tie(one.kind, one.name, one.step, one.member, one.base, one.ours, one.theirs, one.refusal.message),
                std::tie(other.kind, other.name, other.step, other.member, other.base, other.theirs, other.ours, other.refusal.message))
          << one.Text() << "\n"
          << other.Text();
    }
    EXPECT_EQ(TextOfModel(merged.model) == TextOfModel(ours), !row.told.empty());
  }
}

TEST_F(Differences, ThatAreMergedAreCheckedAsAWhole) {
  ddr_Model const base = Beginning();
  std::string const begin = R"({"command": "DisplacementBC", "createStepName": "S2", "region": "Rim", "u3": )";
  Merged const merged = Merge(base, After(base, {begin + R"(1, "name": "A"})"}), After(base, {begin + R"(2, "name": "B"})"}));
  ASSERT_TRUE(merged.IsWhole());
  ASSERT_EQ(merged.findings.size(), 1U);
  EXPECT_EQ(merged.findings[0].Row().id, "GA011") << "both prescribe the same, which neither did alone";
}

}  // namespace
}  // namespace gattr
