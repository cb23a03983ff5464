#include "command/Explain.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

#include "command/InForce.h"
#include "command/Replay.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "tests/support/AnyCommands.h"
#include "tests/support/MadeUpFamily.h"

namespace gattr {
namespace {

using Status = mdl_PropagationStatusEnm;

/// What a link says of an attribute, held against the statuses and what the records say.
class LinkOf {
public:
  LinkOf(FoundAttribute const& attribute, Link const& link, std::string_view member)
      : family_(*attribute.family), item_(*attribute.item), link_(link), member_(member) {}

  void ExpectTrue() const {
    using enum LinkKind;
    std::string const sentence = SentenceOf(link_, item_.Steps());
    EXPECT_EQ(sentence.find('%'), std::string::npos) << sentence;
    for (std::size_t step = link_.begin; step < link_.end; ++step) { EXPECT_TRUE(IsTrueIn(step)) << step << ": " << sentence; }
  }

private:
  bool Is(std::size_t step, std::set<Status> const& statuses) const { return statuses.contains(item_.StatusAt(step)); }
  bool IsActive(std::size_t step) const { return IsInForce(family_, item_.StatusAt(step)); }
  bool IsPerturbation(std::size_t step) const { return kprC_perturbationProcedures.Contains(item_.Steps().ProcedureType(step)); }
  bool Takes(std::size_t step) const { return item_.Admits(item_.Steps().Facts(step), true); }
  bool IsOff(std::size_t step) const { return static_cast<kprC_State const*>(item_.StateAt(step))->SwitchedOff(); }
  bool Caused(std::set<Status> const& by) const { return link_.cause != kNoStep && Is(link_.cause, by); }
  bool Says(std::size_t step) const {
    for (cls_MemberRow const& row : item_.StateAt(step)->MemberRows()) {
      bool const isMeant = member_.empty() || ArgumentName(row) == member_;
      if (isMeant && row.ops->isModified != nullptr && row.ops->isModified(row.In(static_cast<void const*>(item_.StateAt(step))))) {
        return true;
      }
    }
    return false;
  }
  /// Whether the values that the link tells are those of the state.
  bool Tells(std::size_t step) const {
    return std::ranges::all_of(link_.said, [&](Link::Said const& said) {
      cls_Value const there = item_.StateAt(step)->Member(said.member);
      return said.value.IsNull() ? there.As<cls_Value::List>() != nullptr || there == cls_Value("FREED") : there == said.value;
    });
  }
  /// The next step in which it is in force, and whether that is the cause.
  bool Resumes(std::size_t step) const {
    while (step < item_.Steps().Size() && !IsActive(step)) { ++step; }
    return link_.cause == (step == item_.Steps().Size() ? kNoStep : step);
  }
  bool IsTrueIn(std::size_t step) const {
    using enum LinkKind;
    std::size_t const create = item_.Steps().Find(item_.CreateStepName());
    switch (link_.kind) {
      case NotYet: return Is(step, {Status::NotYetCreated}) && link_.cause == create;
      case Created: return step == create && Tells(step);
      case Changed: return Says(step) && Tells(step) && IsActive(step);
      case ChangedHere:
      case SetHere:
      case FreedHere: return Says(step) && Tells(step) && IsActive(step) && IsPerturbation(step);
      case Carried:
      case Again:
      case BackToNone: return IsActive(step) && (!Says(step) || step != link_.begin);
      case BackTo: return IsActive(step) && !Says(step) && Tells(step);
      case BaseState:
      case BuiltIn: return IsActive(step) && IsPerturbation(step) && link_.cause < step && !IsPerturbation(link_.cause);
      case KeptFromInitial: return IsActive(step) && !Takes(step) && link_.cause == 0 && create == 0;
      case Off: return Caused({Status::Deactivated}) && IsOff(step) && !IsActive(step) && link_.cause <= step;
      case Reset: return Caused({Status::Status15}) && IsOff(step) && !IsActive(step) && link_.cause <= step;
      case OffHere: return Is(step, {Status::Inactive11}) && IsPerturbation(step);
      case OffInModes: return Caused({Status::Inactive11}) && !IsActive(step) && link_.cause < step;
      case PassedOver: return !Takes(step) && !IsActive(step) && Resumes(step);
      case PassedOverOff: return !Takes(step) && IsOff(step) && Caused({Status::Deactivated, Status::Status15});
      case OwnStepsOnly: return !IsActive(step) && link_.cause < step && (IsActive(link_.cause) || link_.cause == create);
      case NotInPerturbation: return IsPerturbation(step) && !IsActive(step) && Resumes(step);
      case Held: {
        bool const frequency = link_.cause == kNoStep || item_.Steps().ProcedureType(link_.cause) == kprC_frequencyStepType;
        return Is(step, {Status::BuiltIn}) && frequency;
      }
      case Suppressed: return item_.IsSuppressed();
      case Set:
      case ChangedTo:
      case Freed: return Tells(step) && (Says(step) || step == create);
      case SetForLater:
      case FreedForLater: return Tells(step) && Says(step) && IsOff(step);
      case Unsaid: return true;
      case Always:
      case AlwaysDefault:
      case AlwaysUnset: return link_.begin == 0 && link_.end == item_.Steps().Size();
    }
    return false;
  }

  kprC_StepAwareRepository const& family_;
  kprC_StepDependent const& item_;
  Link const& link_;
  std::string_view member_;
};

/// Links are true, lead from the creation to the step without a gap, and the last says whether it is in force there.
void ExpectExplained(FoundAttribute const& attribute, std::size_t step, std::string_view member, std::set<LinkKind>& seen) {
  kprC_StepDependent const& item = *attribute.item;
  Explanation const explanation = Explain(attribute, step, member);
  std::string const sentence = item.ConstructionName() + ": " + SentenceOf(explanation, item.Steps());
  SCOPED_TRACE(sentence);
  ASSERT_FALSE(explanation.links.empty());
  std::size_t end = std::min(step, item.Steps().Find(item.CreateStepName()));
  if (end == step && item.StateAt(step) == nullptr) { end = 0; }
  bool said = false;
  for (Link const& link : explanation.links) {
    seen.insert(link.kind);
    LinkOf(attribute, link, member).ExpectTrue();
    if (link.kind == LinkKind::Suppressed || link.kind >= LinkKind::Always) { return; }
    bool const follows = link.begin == end || link.begin + 1 == end;  // two links may be of one step
    EXPECT_TRUE(follows || !member.empty()) << end;
    EXPECT_GE(link.end, end);
    end = link.end;
    said = said || !link.said.empty();
  }
  if (member.empty() || said) { EXPECT_EQ(end, step + 1); }
}

class Explaining : public test::madeup::WithMadeUpFamily {
protected:
  /// Models that commands at random have made.
  template <class Look> void ForEachModel(unsigned seeds, Look&& look) {
    for (unsigned seed = 1; seed <= seeds; ++seed) {
      Session session;
      BeginAny(session, seed);
      AnyCommands commands(session, seed);
      for (int i = 1; i <= 300; ++i) {
        session.Execute(CommandOf(commands.Next()));
        if (i % 20 != 0) { continue; }
        look(session.Model());
        ASSERT_FALSE(HasFailure()) << "seed " << seed << ", " << i;
      }
    }
  }
};

TEST_F(Explaining, TellsWhatTheRecordsSayWhateverTheEdits) {
  std::set<LinkKind> seen;
  auto const explain = [&seen](ddr_Model const& model) {
    ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
      family.ForEach([&](cow_String const&, kprC_StepDependent const& item) {
        for (std::size_t step = 0; step < item.Steps().Size(); ++step) {
          ExpectExplained({&family, &item}, step, "", seen);
          for (Origin const& origin : OwnMembers(item)) { ExpectExplained({&family, &item}, step, origin.Member(), seen); }
          if (item.StateAt(step) == nullptr) { continue; }
          for (cls_MemberRow const& row : item.StateAt(step)->MemberRows()) {
            if (IsTold(row)) { ExpectExplained({&family, &item}, step, ArgumentName(row), seen); }
          }
          if (::testing::Test::HasFailure()) { return; }
        }
      });
    });
  };
  ForEachModel(16, explain);
  Session session;
  AppendSteps(session, "IGPG");
  RunJournal(session, {R"({"command": "Set", "name": "Rim"})",
                       R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "region": "Rim", "u1": 1.0})",
                       R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "u1": 2.0})"});
  explain(session.Model());
  for (char const* const example : {"prestressed_modes", "bolted_flange"}) {  // what edits at random hardly come to
    session = Session();
    ASSERT_FALSE(Replay(session, std::string(GATTR_SOURCE_DIR "/examples/") + example + ".jsonl"));
    explain(session.Model());
  }
  for (int kind = 0; kind <= static_cast<int>(LinkKind::AlwaysUnset); ++kind) {
    EXPECT_TRUE(seen.contains(static_cast<LinkKind>(kind))) << Link{static_cast<LinkKind>(kind), 0, 1}.Id();
  }
}

/// Key and value of what is in force in a step, by the states alone.
using Held = std::map<std::string, cls_Value>;
std::map<std::string, Held> HeldIn(ddr_Model const& model, std::size_t step) {
  std::map<std::string, Held> held;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      if (item.IsSuppressed() || !item.IsActiveIn(item.Steps().Name(step))) { return; }
      Held& members = held[std::string(family.ItemCmd()).append(":").append(name.View())];
      for (cls_MemberRow const& row : item.StateAt(step)->MemberRows()) {
        if (!IsTold(row)) { continue; }
        cls_Value const value = row.ToValue(item.StateAt(step));
        auto const isNothing = [](cls_Value const& one) { return one == cls_Value("UNSET") || one == cls_Value("FREED"); };
        auto const* const list = value.As<cls_Value::List>();
        bool const isEmpty = list != nullptr && row.ops->isModified != nullptr && std::ranges::all_of(*list, isNothing);
        if (!isNothing(value) && !isEmpty && !value.IsNull()) { members.emplace(ArgumentName(row), value); }
      }
    });
  });
  return held;
}

TEST_F(Explaining, IteratesOverWhatIsInForceStepByStep) {
  int told = 0;
  ForEachModel(8, [&](ddr_Model const& model) {
    std::size_t const last = kprC_Steps(model).Size() - 1;
    std::map<std::string, Held> before;
    InForce walk(model), changes(model, {1, last, false});
    InForceAttribute const* one = walk.Next();
    InForceAttribute const* change = last == 0 ? nullptr : changes.Next();
    for (std::size_t step = 0; step <= last; ++step) {
      std::map<std::string, Held> const now = HeldIn(model, step);
      std::set<std::string> seen;
      for (; one != nullptr && one->step == step; one = walk.Next(), ++told) {
        std::string const key = std::string(one->attribute.family->ItemCmd()) + ":" + std::string(one->attribute.item->Name().View());
        EXPECT_TRUE(seen.insert(key).second) << key;
        bool const is = now.contains(key), was = before.contains(key);
        EXPECT_EQ(one->what == InForceChange::New, is && !was) << key;
        EXPECT_EQ(one->what == InForceChange::Gone, !is) << key;
        Held values, were = was ? before.at(key) : Held();
        bool differs = false;
        for (InForceMember const& member : one->members) {
          std::string const name(member.origin.Member());
          if (member.what != InForceChange::Gone) { values.emplace(name, member.origin.Value()); }
          bool const had = were.contains(name);
          EXPECT_EQ(member.what == InForceChange::Still, had && values.contains(name) && were[name] == values[name]) << key << name;
          EXPECT_EQ(member.what == InForceChange::Changed, had && values.contains(name) && were[name] != values[name]) << key << name;
          differs = differs || member.what != InForceChange::Still;
        }
        EXPECT_EQ(values, is ? now.at(key) : Held()) << key << " in " << step;
        if (is && was) { EXPECT_EQ(one->what == InForceChange::Changed, differs) << key; }
        if (step == 0 || one->what == InForceChange::Still) { continue; }
        ASSERT_NE(change, nullptr);
        EXPECT_EQ(ValueOf(*change), ValueOf(*one));
        change = changes.Next();
      }
      for (auto const& [key, members] : now) { EXPECT_TRUE(seen.contains(key)) << key << " in " << step; }
      for (auto const& [key, members] : before) { EXPECT_TRUE(seen.contains(key)) << key << " in " << step; }
      before = now;
    }
    EXPECT_EQ(change, nullptr);
  });
  EXPECT_GT(told, 1000);
}

TEST_F(Explaining, GivesValuesTimesTheirCurves) {
  Session session;
  AppendSteps(session, "ITT");
  RunJournal(
      session,
      {R"({"command": "Set", "name": "Rim"})", R"({"command": "Surface", "name": "Top"})", R"({"command": "Amplitude", "name": "Name"})",
       R"({"command": "TabularAmplitude", "name": "Ramp", "points": [[0, 0], [1, 1]]})",
       R"({"command": "TabularAmplitude", "name": "Total", "timeSpan": "TOTAL", "points": [[0, 0], [2, 2]]})",
       R"({"command": "DisplacementBC", "name": "Fix", "createStepName": "S1", "region": "Rim", "u1": 4.0, "amplitude": "Ramp"})",
       R"({"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "S2", "amplitude": "Total"})",
       R"({"command": "ConcentratedForce", "name": "Pull", "createStepName": "S1", "region": "Rim", "cf2": 8.0, "amplitude": "Ramp"})",
       R"({"command": "Pressure", "name": "Push", "createStepName": "S1", "region": "Top", "magnitude": 2.0, "amplitude": "Name"})",
       R"({"command": "FilmCondition", "name": "Film", "createStepName": "S1", "surface": "Top", "filmCoefficient": 6.0,
                           "filmCoefficientAmplitude": "Ramp", "sinkTemperature": 20.0})"});
  struct {
    std::string_view attribute, member;
    double time;
    std::vector<cls_Value> values;  // in S1 and S2
  } const rows[] = {
      {"Fix", "u1", 0.5, {2.0, 6.0}},
      {"Fix", "u1", 9.0, {4.0, 8.0}},
      {"Fix", "amplitude", 0.5, {"Ramp", "Total"}},
      {"Pull", "cf2", 0.25, {2.0, 2.0}},
      {"Push", "magnitude", 0.5, {2.0, 2.0}},
      {"Film", "filmCoefficient", 0.5, {3.0, 3.0}},
      {"Film", "sinkTemperature", 0.5, {20.0, 20.0}},
  };
  for (auto const& [name, member, time, values] : rows) {
    FoundAttribute const attribute = FindAttribute(session.Model(), name);
    AtTime const at(session.Model(), time);
    ForEachOriginRun(*attribute.family, *attribute.item, [&](OriginRun const& run) {
      for (Origin const& origin : run.members) {
        for (std::size_t step = run.begin; step < run.end && origin.Member() == member; ++step) {
          EXPECT_EQ(at.Of(origin, run.members, step), values[step - 1]) << name << " " << member << " in " << step;
        }
      }
    });
  }
}

}  // namespace
}  // namespace gattr
