#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "module/kpr/engine/kprC_State.h"
#include "tests/support/StepLetters.h"

/// The history of an attribute in the plainest form: one record per step, every state a list of members as texts, every
/// pass a walk over all records. The measure for the engine, which keeps runs and shares states, and for the members'
/// operations, which come from the lists of the types.
namespace test::plain {

struct Member {
  std::string value;
  int state = 0;      // 0 unset, 1 set, 2 propagated, 3 freed
  std::string blank;  // the value of a member that has none
  bool operator==(Member const&) const = default;

  void Drop(int to) {
    value = blank;
    state = to;
  }
};

struct State {
  bool off = false;
  std::map<std::string, Member> members;
  bool operator==(State const&) const = default;

  bool Modified() const {
    return std::ranges::any_of(members, [](auto const& member) { return member.second.state == 1 || member.second.state == 3; });
  }
  /// What a creation takes over from one that went.
  State Own() const {
    State own = *this;
    for (auto& [name, member] : own.members) {
      if (member.state == 2) { member.state = 1; }
      if (member.state == 3) { member.Drop(0); }
    }
    return own;
  }
  State Carried(bool switchedOff) const {
    State next = *this;
    next.off = switchedOff;
    for (auto& [name, member] : next.members) {
      if (member.state == 1) { member.state = 2; }
      if (member.state != 2) { member.Drop(0); }
    }
    return next;
  }
  State With(State const& own, bool switchedOff) const {
    State merged = *this;
    merged.off = switchedOff;
    for (auto const& [name, member] : own.members) {
      if (member.state != 1 && member.state != 3) { continue; }
      merged.members[name] = member;
      if (member.state == 3) { merged.members[name].Drop(3); }
    }
    return merged;
  }
};

/// Takes down what a state stores, member by member.
class Telling final : public cls_WriteVisitor {
public:
  static std::vector<std::pair<std::string, std::string>> Of(cls_Object const& object) {
    Telling const telling;
    object.DBWrite(telling);
    return telling.members_;
  }

  bool StartWrite(unsigned, cls_Uid const&) const override { return true; }
  void WriteBool(std::string_view member, bool value) const override { Put(member, value ? "true" : "false"); }
  void WriteInteger(std::string_view member, long long value) const override { Put(member, std::to_string(value)); }
  void WriteReal(std::string_view member, double value) const override { Put(member, std::to_string(value)); }
  void WriteText(std::string_view member, std::string_view value) const override { Put(member, std::string(value)); }
  void WriteNull(std::string_view member) const override { Put(member, "null"); }
  void WriteObject(std::string_view member, cls_Object const& object) const override { WriteNested(member, object); }
  void WriteNested(std::string_view member, cls_Object const& object) const override {
    StartList(member, 1);
    object.DBWrite(*this);
    EndList();
  }
  void StartList(std::string_view member, std::size_t) const override {
    if (depth_++ == 0) { return static_cast<void>(members_.emplace_back(member, "")); }
    members_.back().second += std::string(member) + "(";
  }
  void EndList() const override {
    if (--depth_ > 0) { members_.back().second += ")"; }
  }
  bool StartMap(std::string_view member, std::size_t count) const override { return StartList(member, count), true; }
  void EndMap() const override { EndList(); }

private:
  void Put(std::string_view member, std::string const& text) const {
    if (depth_ == 0) { return static_cast<void>(members_.emplace_back(member, text)); }
    members_.back().second += std::string(member) + "(" + text + ")";
  }

  mutable std::vector<std::pair<std::string, std::string>> members_;
  mutable int depth_ = 0;
};

/// "(a)(b(c))" as a list.
inline std::vector<std::string> Elements(std::string_view text) {
  std::vector<std::string> elements;
  std::size_t begin = 0;
  for (std::size_t at = 0, depth = 0; at < text.size(); ++at) {
    if (text[at] == '(' && depth++ == 0) { begin = at + 1; }
    if (text[at] == ')' && --depth == 0) { elements.emplace_back(text.substr(begin, at - begin)); }
  }
  return elements;
}

/// What an unset element of a list is told as.
inline std::string const& BlankElement(kprC_State const& state, std::string const& list) {
  static std::map<std::pair<unsigned, std::string>, std::string> known;
  auto const [at, isNew] = known.try_emplace({state.DynTypeId(), list});
  if (isNew) {
    auto const copy = state.Copy();
    copy->SetMember(list, cls_Value::List{cls_Value("UNSET")});
    for (auto const& [name, value] : Telling::Of(*copy)) {
      if (name == list) { at->second = Elements(value).front(); }
    }
  }
  return at->second;
}

/// A state told plainly; \p blank has every member unset and is null for itself.
inline State Told(kprC_State const& state, State const* blank) {
  static std::map<std::string, int> const states = {{"UNSET", 0}, {"SET", 1}, {"PROPAGATED", 2}, {"FREED", 3}};
  State told;
  told.off = state.SwitchedOff();
  auto const stored = Telling::Of(state);
  for (std::size_t i = 0; i + 1 < stored.size(); ++i) {
    auto const& [name, value] = stored[i];
    auto const& [next, word] = stored[i + 1];  // a propagating member is followed by its companion
    if (next != name + "State") { continue; }
    if (!word.empty() && word.front() != '(') {
      told.members[name] = {value, states.at(word), blank == nullptr ? value : blank->members.at(name).value};
      continue;
    }
    std::vector<std::string> const values = Elements(value), words = Elements(word);  // carried element by element
    for (std::size_t at = 0; at < words.size(); ++at) {
      told.members[name + std::to_string(at)] = {values[at], states.at(words[at]), BlankElement(state, name)};
    }
  }
  return told;
}

struct Record {
  kprC_StepFacts step;
  int status = 0;
  std::optional<State> state;
  bool marked = false;    // switched off by itself
  bool creation = false;  // the first own record when the last pass was made

  void Empty() {
    state.reset();
    marked = creation = false;
  }
  void Say(State own) {
    Empty();
    marked = own.off;
    state = std::move(own);
  }
};

/// "STA1:u1=0.5 STA4off:u1~0.5": what is set (=), propagated (~), freed (-), and unset but not blank (?).
inline std::string Text(std::vector<Record> const& records) {
  std::ostringstream out;
  for (Record const& record : records) {
    out << NameOfProcedure(record.step.procedureType) << +record.step.traits << ':' << record.status;
    if (record.state) {
      out << (record.state->off ? "off:" : ":");
      for (auto const& [name, member] : record.state->members) {
        if (member.state != 0 || member.value != member.blank) { out << name << "?=~-"[member.state] << member.value << ','; }
      }
    }
    out << ' ';
  }
  return out.str();
}

/// What a family's records become, written down beside the library's own tables: as most families have it, unless one says otherwise. The
/// general statuses 1 to 7 mean the same for all.
struct Rules {
  kprC_ProcedureSet perturbation = {  ///< kinds of steps; what is neither of both is general
      kprC_ProcedureType::Buckle,
      kprC_ProcedureType::Frequency,
      kprC_ProcedureType::StaticLinearPerturbation,
      kprC_ProcedureType::SteadyStateDirect,
      kprC_ProcedureType::SteadyStateSubspace,
      kprC_ProcedureType::ModalDynamics,
      kprC_ProcedureType::RandomResponse,
      kprC_ProcedureType::ResponseSpectrum,
      kprC_ProcedureType::SteadyStateModal,
      kprC_ProcedureType::ComplexFrequency};
  kprC_ProcedureSet modal = {};
  int carriedFromInitial = 2, changedFromInitial = 3;
  int passedOver = 6;
  int perturbationCarried = 8;
  int perturbationChanged = 0;  ///< 0: a change in a perturbation step is dropped
  int perturbationOff = 8;
  bool asksInPerturbation = false;  ///< a perturbation step passes over what it does not admit
  bool staysWhenRefused = true;     ///< a refused edit leaves the attribute as it was
  int off = 4, afterOff = 5;
  bool moveEmptiesBetween = true;
  int staysPut = -1;          ///< a record of that status is not moved
  bool zeroInInitial = true;  ///< values in the initial step are zero
};

/// What a type says of a step.
struct Admission {
  std::function<bool(kprC_StepFacts)> carries;  ///< it is carried into it
  std::function<bool(kprC_StepFacts)> keeps;    ///< it is not, and the untouched creation of the initial step stays in force
  bool propagates;
};

/// One pass over \p records.
inline void Pass(std::vector<Record>& records, Rules const& rules, Admission const& admission) {
  bool created = false, hasBase = false, baseOff = false, untouched = false;
  State source;
  int frequency = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    Record& record = records[i];
    bool const modal = rules.modal.Contains(record.step.procedureType);
    bool const perturbation = !modal && rules.perturbation.Contains(record.step.procedureType);
    bool own = false, off = false;
    if (record.state) {
      if (record.status == 1 && !created) {
        own = true;
      } else if (record.status != 1 && record.marked) {
        off = true;
      } else {
        own = record.state->Modified();
      }
    }
    bool const wasCreation = std::exchange(record.creation, false) || record.status <= 1;
    bool keepsMark = false;
    auto const give = [&](int status, std::optional<State> state) {
      bool const ends = !admission.propagates && (status == 2 || status == 6 || status == 14);
      record.status = ends ? 7 : status;
      record.state = std::move(state);
      record.marked = record.marked && keepsMark;
    };
    State const on = source.Carried(false), switchedOff = source.Carried(true);
    bool const admitted = admission.carries(record.step);
    bool const dropped = perturbation && rules.perturbationChanged == 0;  // whatever it changes
    bool const passedOver = !admitted && (!own || dropped) && (!perturbation || rules.asksInPerturbation);
    if (!created && !own && !off) {
      give(0, std::nullopt);
    } else if (!created) {
      created = true;
      if (!wasCreation) { record.state = record.state->Own(); }
      record.creation = true;
      record.state->off = record.marked;
      source = *record.state;
      record.status = source.off ? rules.off : 1;
      hasBase = !modal && !perturbation;
      baseOff = hasBase && source.off;
      untouched = i == 0 && record.step.procedureType == 0;
    } else if (!hasBase) {
      give(modal && frequency == 1 ? 12 : 7, on);
    } else if (modal) {
      give(!admitted ? 6 : baseOff || frequency == 11 ? rules.afterOff : 12, !admitted && baseOff ? switchedOff : on);
    } else if (passedOver) {
      keepsMark = off && !perturbation;
      bool const kept = !perturbation && untouched && !baseOff && admission.keeps(record.step);
      give(kept ? 14 : rules.passedOver, baseOff ? switchedOff : on);
    } else if (baseOff) {
      keepsMark = off;
      give(rules.afterOff, own ? on.With(*record.state, true) : switchedOff);
    } else if (perturbation) {
      keepsMark = off;
      if (off) {
        give(rules.perturbationOff, switchedOff);
      } else if (own && rules.perturbationChanged != 0) {
        give(rules.perturbationChanged, on.With(*record.state, false));
      } else {
        give(rules.perturbationCarried, on);
      }
    } else if (off) {
      keepsMark = true;
      give(rules.off, switchedOff);
      baseOff = true;
    } else if (own) {
      give(untouched ? rules.changedFromInitial : 3, on.With(*record.state, false));
      untouched = false;
      source = *record.state;
    } else {
      give(untouched ? rules.carriedFromInitial : 2, on);
    }
    if (record.step.procedureType == kprC_ProcedureType::Frequency) { frequency = record.status; }
  }
}

}  // namespace test::plain
