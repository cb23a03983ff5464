#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>
#include <set>

#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/family/kprC_Types.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"
#include "tests/support/Library.h"
#include "tests/support/PlainHistory.h"

namespace test {

/// A random script of edits of one attribute and of the steps below it. After every edit that is not refused, the history
/// is the plain one, with one creation at most and none but the family's statuses, and a second pass changes nothing, not
/// even which object a record holds; a check of all records finds nothing to refuse. A refused edit leaves the attribute as it
/// was where the family says so; where not, such a check refuses what the edit did.
/// \tparam Attribute the family's base class
template <class Attribute> class RandomEdits {
public:
  enum Kind { Set, Free, SwitchOff, TakeBack, Remove, Move, Suppress, Resume, InsertStep, RemoveStep, ReplaceStep, SetStep, kKinds };
  static constexpr std::array<char const*, kKinds> kKindNames = {
      "set", "free", "switchOff", "takeBack", "remove", "move", "suppress", "resume", "insertStep", "removeStep", "replaceStep", "setStep"};
  /// Edits of each kind that were not refused.
  using Counts = std::array<int, kKinds>;
  /// Kinds of edits that types, by their commands, always refuse.
  using Never = std::set<std::pair<std::string_view, Kind>>;

  RandomEdits(kprC_Constructor<Attribute> const& type, plain::Rules const& rules, unsigned seed)
      : rules_(rules),
        random_(seed),
        type_(type),
        fresh_(type.make()),
        script_(std::string(type.command) + ", seed " + std::to_string(seed) + ":") {
    auto const state = fresh_->NewState();
    for (cls_MemberInfo const& info : cls_MetadataRegistrar::Registrar().Find(state->DynTypeId())->members) {
      if (info.propagating) { members_.push_back(&info); }
    }
    for (cls_MemberInfo const* member : members_) { state->SetMember(member->name, "UNSET"); }
    blank_ = plain::Told(*state, nullptr);
  }

  kprC_PropagatingContainer<Attribute> const& Made() const { return repository_; }

  void Run(int edits, Counts& counts) {
    ASSERT_NO_FATAL_FAILURE(Create());
    expected_ = Told();
    std::ranges::find_if(expected_, [](plain::Record const& record) { return record.state.has_value(); })->creation = true;
    for (edit_ = 1; edit_ <= edits && repository_.IsMember(kName); ++edit_) {
      Kind const kind = kOften[UpTo(kOften.size() - 1)];
      Repository const before = repository_;
      std::string const told = plain::Text(Told());
      std::vector<plain::Record> const expected = expected_;
      bool applied = false;
      if (int const code = CodeOf([&] { applied = Do(kind); }); code >= 0) {
        script_ += " (refused)";
        int const left = kind < Move ? CodeOf([&] { Item().AssertValid(); }) : -1;
        ASSERT_TRUE(left < 0 || left == code) << script_ << left << " rather than " << code;
        if (rules_.staysWhenRefused && kind < InsertStep) { ASSERT_EQ(plain::Text(Told()), told) << script_; }
        repository_ = before;
        expected_ = expected;
      } else if (!applied) {
        expected_ = expected;
      } else {
        ++counts[kind];
        ASSERT_NO_FATAL_FAILURE(Check());
      }
    }
  }

private:
  using Repository = kprC_PropagatingContainer<Attribute>;
  /// Kinds as often as it takes for enough of them to come through.
  static constexpr auto kOften =
      std::to_array<Kind>({Set,  Set,  Set,  Free, Free,     Free,     SwitchOff, SwitchOff,  TakeBack,   TakeBack,    Remove,
                           Move, Move, Move, Move, Suppress, Suppress, Resume,    InsertStep, RemoveStep, ReplaceStep, SetStep});
  static constexpr char const* kName = "A";

  static kprC_StepFacts FactsOf(kprC_StepNameProcedurePair const& step) { return kprC_StepFacts(step.procedure.ConstGet()); }
  void Perform(kprC_Effect effect, cow_String const& step, cow_String const& toStep) {
    auto const operation = std::ranges::find(Attribute::Operations(), effect, &kprC_Operation::effect);
    Item().Perform(*operation, step, toStep);
  }
  std::size_t UpTo(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n)(random_); }
  kprC_StepTable const& Steps() const { return repository_.Steps(); }
  Attribute const& Item() const { return repository_.ConstGet(kName); }
  Attribute& Item() { return repository_.Get(kName); }
  plain::State Told(cls_Object const& state) const { return plain::Told(dynamic_cast<kprC_State const&>(state), &blank_); }
  /// The engine's records, told plainly.
  std::vector<plain::Record> Told() const {
    std::vector<plain::Record> records(Steps().Size());
    for (std::size_t i = 0; i < records.size(); ++i) {
      records[i] = {Steps().Facts(i), static_cast<int>(Item().StatusAt(i)), std::nullopt};
      if (cls_Object const* state = Item().StateAt(i)) { records[i].state = Told(*state); }
    }
    return records;
  }
  /// A step, one in two times or \p mostly one in which the attribute says something.
  std::size_t Where(bool mostly) {
    bool const own = UpTo(mostly ? 7 : 1) != 0;
    std::size_t at = 0;
    for (int tries = 0; tries < 20; ++tries) {
      at = UpTo(Steps().Size() - 1);
      if (!own || Attribute::ChangedInStep(Item().StatusAt(at))) { break; }
    }
    return at;
  }
  void Note(std::string_view what, std::size_t at) { script_.append(" ").append(what).append(" ").append(std::to_string(at)); }

  /// A procedure, more often than not one that the type is created in.
  unsigned Procedure() {
    unsigned type = 0;
    for (int tries = 0; tries < 3; ++tries) {
      type = kprC_procedures[UpTo(kprC_procedures.size() - 1)].type;
      if (fresh_->Admits(type, false)) { break; }
    }
    return type;
  }
  /// A step of a procedure type, one in two times with what it may say beside that.
  kprC_StepNameProcedurePair RandomStep(std::string const& name, unsigned type) {
    cow_Handle<kprC_Step> step = kprC_MakeStep(type == 0 ? kprC_InitialStep::TypeId() : type);
    for (auto const& [member, value] : {std::pair<std::string_view, cls_Value>{"adiabatic", true}, {"response", "STEADY_STATE"}}) {
      if (UpTo(1) == 0 && cls_MetadataRegistrar::Registrar().Find(step->DynTypeId())->Find(member) != nullptr) {
        step.Get().SetMember(member, value);
      }
    }
    script_.append(" ").append(NameOfProcedure(type)).append(std::to_string(step->Traits()));
    return {cow_String(name), std::move(step)};
  }
  /// A value of the member's kind in the step \p at. Objects are given by their members, those that the model has by their name.
  cls_Value Value(cls_MemberInfo const& info, std::size_t at) {
    bool const zero = at == 0 && rules_.zeroInInitial;
    bool const byName = info.typeId == rgnC_Region::TypeId() || info.typeId == dtmC_DatumRef::TypeId();
    auto const one = [&]() -> cls_Value {
      auto const number = static_cast<int>(UpTo(20));
      switch (byName ? cls_MemberKind::String : info.kind) {
        case cls_MemberKind::Integer: return 11 + number;
        case cls_MemberKind::Real: return zero ? 0.0 : 1.0 + number;
        case cls_MemberKind::String: return "T" + std::to_string(number);
        case cls_MemberKind::Boolean: return !zero && number % 4 == 0;
        case cls_MemberKind::Enumerated: return info.permissible[static_cast<std::size_t>(number) % info.permissible.size()];
        case cls_MemberKind::Object: break;
      }
      cls_Value::Fields fields;
      for (cls_MemberInfo const& inner : cls_MetadataRegistrar::Registrar().Find(info.typeId)->members) {
        fields.emplace_back(inner.name, Value(inner, at));
      }
      return fields;
    };
    auto const list = [&]() -> cls_Value { return cls_Value::List{one(), one()}; };
    if (info.many && !info.permissible.empty()) {  // keys of variables, or a word for some
      static char const* const keys[] = {"S", "U1", "MISES", "NT", "ALLEN", "PE"};
      auto const key = [&]() -> cls_Value { return keys[UpTo(std::size(keys) - 1)]; };
      return UpTo(1) == 0 ? cls_Value(info.permissible[UpTo(2)]) : cls_Value(cls_Value::List{key(), key()});
    }
    if (info.table) { return cls_Value::List{list(), list()}; }
    return info.many ? list() : one();
  }

  /// A sequence, and the attribute created in one of its steps with values in most members; suppressed where no values are
  /// found that it takes there.
  void Create() {
    kprC_StepSequence steps;
    steps.Append(NamedStep("Initial", 0));
    script_ += " INI";
    for (std::size_t n = 1, last = 2 + UpTo(8); n <= last; ++n) { steps.Append(RandomStep("S" + std::to_string(n), Procedure())); }
    kprC_StepTable const table(std::move(steps));
    std::size_t at = UpTo(table.Size() - 1);
    for (int tries = 0; tries < 10 && !fresh_->Admits(table.Facts(at), false); ++tries) { at = UpTo(table.Size() - 1); }
    Note("created in", at);
    repository_.UpdateSteps(table);
    for (int tries = 0; tries < 20; ++tries) {
      fresh_ = type_.make();
      for (char const* const named : {"fieldName", "region"}) {
        if (cls_MetadataRegistrar::Registrar().Find(fresh_->DynTypeId())->Find(named) != nullptr) { fresh_->SetMember(named, "Named"); }
      }
      kprC_Arguments values;
      std::size_t const often = UpTo(5);  // some types take many values together, some few
      for (cls_MemberInfo const* member : members_) {
        if (UpTo(3) < std::min(often, std::size_t{3})) { values.emplace_back(member->name, Value(*member, at)); }
      }
      std::string unknown;
      ASSERT_TRUE(fresh_->SetInStep(table.Name(at), values, &unknown)) << script_ << unknown;
      if (CodeOf([&] { repository_.Insert(kName, *fresh_); }) < 0) { return; }
    }
    fresh_->Suppress();
    repository_.ForcedInsert(kName, *fresh_);
    script_ += " suppressed";
  }

  /// Edits the attribute, and the plain records as far as the next pass does not; false where there is nothing to edit.
  bool Do(Kind kind) {
    std::size_t const at = Where(kind == Move || kind == Free || kind == TakeBack), to = UpTo(Steps().Size() - 1);
    cow_String const name = Steps().Name(at);
    plain::Record& record = expected_[at];
    bool const takesAll = (kind == Remove || kind == RemoveStep) && name == Item().CreateStepName();
    if (takesAll && UpTo(9) != 0) { return false; }
    switch (kind) {
      case Set:
      case Free: return SetMembers(at, kind == Free);
      case SwitchOff:
        Note("switch off", at);
        if (record.state && !record.state->off) { record.marked = record.state->off = true; }
        Perform(kprC_Effect::SwitchOff, name, name);
        return true;
      case TakeBack:
        Note("take back", at);
        record.Empty();
        Perform(kprC_Effect::TakeBack, name, name);
        return true;
      case Remove:
        Note("remove", at);
        record.Empty();
        return Item().Remove(name);
      case Move: return at != to && MoveRecord(at, to);
      case Suppress:
        script_ += " suppress";
        Item().Suppress();
        return true;
      case Resume:
        script_ += " resume";
        Item().Resume();
        return true;
      case InsertStep: {
        Note("insert step behind", at);
        auto const step = RandomStep("N" + std::to_string(edit_), Procedure());
        expected_.insert(expected_.begin() + static_cast<std::ptrdiff_t>(at) + 1, plain::Record{FactsOf(step), 0, {}});
        repository_.UpdateSteps(Steps().WithInserted(at + 1, step));
        return true;
      }
      case RemoveStep: return at != 0 && TakeStep(at);
      case ReplaceStep: {
        unsigned const procedure = Procedure();
        if (at == 0 || procedure == record.step.procedureType) { return false; }
        Note("replace step", at);
        auto const step = RandomStep(std::string(name.View()), procedure);
        record = {FactsOf(step), 0, {}};
        repository_.UpdateSteps(Steps().WithReplaced(at, step));
        return true;
      }
      case SetStep: {
        if (at == 0) { return false; }
        Note("set step", at);
        auto const step = RandomStep(std::string(name.View()), record.step.procedureType);
        record.step = FactsOf(step);
        repository_.UpdateSteps(Steps().WithReplaced(at, step));
        return true;
      }
      case kKinds: break;
    }
    return false;
  }

  /// Gives some members, or none, a value, or frees one.
  bool SetMembers(std::size_t at, bool free) {
    Note(free ? "free in" : "set in", at);
    kprC_Arguments members;
    for (cls_MemberInfo const* member : members_) {
      if (free ? members.empty() && UpTo(1) == 0 : UpTo(2) == 0) {
        members.emplace_back(member->name, free ? cls_Value("FREED") : Value(*member, at));
        script_ += " " + member->name;
      }
    }
    if (free && members.empty()) { return false; }
    std::unique_ptr<cls_Object> own = fresh_->NewStateFor(Steps().ProcedureType(at));
    if (cls_Object const* present = Item().StateAt(at)) { own = present->Copy(); }
    for (auto const& [member, value] : members) { own->SetMember(member, value); }
    if (expected_[at].creation) { expected_[at].status = 1; }
    plain::State said = Told(*own);
    said.off = false;
    expected_[at].Say(std::move(said));
    std::string unknown;
    return Item().SetInStep(Steps().Name(at), members, &unknown);
  }
  bool MoveRecord(std::size_t at, std::size_t to) {
    Note("move", at);
    Note("to", to);
    if (rules_.staysPut == expected_[at].status) {
      std::string const told = plain::Text(Told());
      Perform(kprC_Effect::Move, Steps().Name(at), Steps().Name(to));
      EXPECT_EQ(plain::Text(Told()), told) << script_;
      return false;
    }
    for (std::size_t i = std::min(at, to) + 1; rules_.moveEmptiesBetween && i < std::max(at, to); ++i) { expected_[i].Empty(); }
    expected_[to].status = expected_[at].status;
    expected_[to].Empty();
    if (expected_[at].state) { expected_[to].Say(*expected_[at].state); }
    expected_[at].Empty();
    Perform(kprC_Effect::Move, Steps().Name(at), Steps().Name(to));
    return true;
  }
  /// With the step of its creation goes the attribute.
  bool TakeStep(std::size_t at) {
    Note("remove step", at);
    bool const goes = Item().CreateStepName() == Steps().Name(at);
    expected_.erase(expected_.begin() + static_cast<std::ptrdiff_t>(at));
    repository_.UpdateSteps(Steps().WithRemoved(at));
    EXPECT_EQ(repository_.IsMember(kName), !goes) << script_;
    return true;
  }

  static plain::Admission Admission(Attribute const& item) {
    return {[&item](kprC_StepFacts step) { return item.Admits(step, true); },
            [&item](kprC_StepFacts step) { return item.StaysFromInitial(step); }, item.Type().propagates};
  }

  void Check() {
    if (!repository_.IsMember(kName)) { return; }
    plain::Pass(expected_, rules_, Admission(Item()));
    std::string const expected = plain::Text(expected_);
    ASSERT_EQ(plain::Text(Told()), expected) << script_;

    ASSERT_EQ(CodeOf([&] { Item().AssertValid(); }), -1) << script_;

    int creations = 0;
    std::vector<cls_Object const*> objects;
    for (std::size_t i = 0; i < Steps().Size(); ++i) {
      auto const status = Item().StatusAt(i);
      creations += status == mdl_PropagationStatusEnm::Created ? 1 : 0;
      objects.push_back(Item().StateAt(i));
      ASSERT_NO_THROW(Attribute::IsActive(status)) << script_;
    }
    ASSERT_LE(creations, 1) << script_;
    repository_.UpdateSteps(Steps());
    ASSERT_EQ(plain::Text(Told()), expected) << "second pass, " << script_;
    for (std::size_t i = 0; i < objects.size(); ++i) { ASSERT_EQ(Item().StateAt(i), objects[i]) << i << ", " << script_; }
  }

  plain::Rules const& rules_;
  std::mt19937 random_;
  kprC_Constructor<Attribute> type_;
  std::unique_ptr<Attribute> fresh_;  // of the type, with its creation alone
  std::vector<cls_MemberInfo const*> members_;
  plain::State blank_;
  Repository repository_;
  std::vector<plain::Record> expected_;  // the history that the edit gives, before the pass
  int edit_ = 0;
  std::string script_;  // what was done, for messages
};

/// Runs scripts of every type of a family, GATTR_EDITS times as many where the environment says so. Each kind of edit must have come
/// through for each type, or never where \p never says so.
template <class Attribute>
void ExpectPlainHistories(std::span<kprC_Constructor<Attribute> const> types, plain::Rules const& rules, unsigned scripts,
                          typename RandomEdits<Attribute>::Never const& never = {}) {
  using Edits = RandomEdits<Attribute>;
  unsigned seed = 0;
  if (char const* const factor = std::getenv("GATTR_EDITS")) { scripts *= static_cast<unsigned>(std::stoul(factor)); }
  for (auto const& type : types) {
    typename Edits::Counts counts{};
    for (unsigned script = 0; script < scripts; ++script) { ASSERT_NO_FATAL_FAILURE(Edits(type, rules, ++seed).Run(30, counts)); }
    for (std::size_t kind = 0; kind < counts.size(); ++kind) {
      bool const comesThrough = !never.contains({type.command, static_cast<typename Edits::Kind>(kind)});
      EXPECT_EQ(counts[kind] > 0, comesThrough) << type.command << ": " << Edits::kKindNames[kind];
    }
  }
}

}  // namespace test
