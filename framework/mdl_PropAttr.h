#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "framework/Types.h"
#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cls_Uid.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// What a step says of one member of a state.
enum class mdl_PropAttributeStateEnm : std::uint8_t {
  Unset = 0,            ///< nothing
  Set = 1,              ///< a value, given in this step
  PropagatedValue = 2,  ///< a value, carried from an earlier step
  Freed = 3,            ///< no longer a value, from this step on
};

template <> struct omu_EnumTable<mdl_PropAttributeStateEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"UNSET", 0}, {"SET", 1}, {"PROPAGATED", 2}, {"FREED", 3}, {nullptr, 0}};
};

/// Refuses a number that is none of the above as the state of the member \p name.
[[noreturn]] DDB_API void mdl_RefuseMemberState(std::string_view name);

/// One propagating member of a state: a value and what the step says of it.
///
/// A state has several of them and histories keep many states: beside its value a member takes one word, of its identity and
/// what the step says.
template <class T> class mdl_PropAttr {
  using StateEnm = mdl_PropAttributeStateEnm;

public:
  mdl_PropAttr() = default;
  explicit mdl_PropAttr(T value) : value_(std::move(value)), word_(FreshWord(StateEnm::Set)) {}

  /// Of the type of member, by the type of its value; a row of a table of types (framework/Types.def, or a module's).
  static constexpr unsigned TypeId() { return cls_TypeIdOf<mdl_PropAttr>::value; }
  unsigned DynTypeId() const { return TypeId(); }

  T const& ConstGet() const { return value_; }
  T& Get() { return value_; }
  StateEnm State() const { return static_cast<StateEnm>(word_ & kStateMask); }
  /// Whether a value is in force, given here or carried.
  bool HasValue() const { return State() == StateEnm::Set || State() == StateEnm::PropagatedValue; }

  mdl_PropAttr& operator=(T value) {
    value_ = std::move(value);
    ForceState(StateEnm::Set);
    return *this;
  }
  /// Takes the member state. Without a value in force the value falls back to that of a default member.
  mdl_PropAttr& operator=(StateEnm state) {
    if (state == StateEnm::Unset || state == StateEnm::Freed) { value_ = T{}; }
    ForceState(state);
    return *this;
  }
  /// Takes the member state and keeps the value.
  void ForceState(StateEnm state) { word_ = (word_ & ~kStateMask) | static_cast<std::uint64_t>(state); }

  friend bool operator==(mdl_PropAttr const& a, mdl_PropAttr const& b) { return a.State() == b.State() && a.value_ == b.value_; }
  friend bool operator==(mdl_PropAttr const& a, T const& value) { return a.HasValue() && a.value_ == value; }
  friend bool operator==(mdl_PropAttr const& a, StateEnm state) { return a.State() == state; }

  /// What the next step carries: a set value as propagated, a freed one as unset. Refuses a member state that does not exist;
  /// \p name is the member's, for the message.
  void Propagate(std::string_view name = {}) {
    AssertState(name);
    *this = HasValue() ? StateEnm::PropagatedValue : StateEnm::Unset;
  }
  /// Merges a step's own member onto the carried one: a set one takes value and state, a freed one the state. Refuses a member
  /// state that does not exist, of either.
  void Modify(mdl_PropAttr const& own, std::string_view name = {}) {
    AssertState(name);
    own.AssertState(name);
    if (own.IsModified()) {
      value_ = own.HasValue() ? own.value_ : T{};
      word_ = own.word_;
    }
  }
  /// Whether merging this onto what \p source gives on makes what this already is, where \p equal compares the values. Refuses what
  /// the merging does.
  template <class Equal> bool IsMerged(mdl_PropAttr const& source, std::string_view name, Equal&& equal) const {
    source.AssertState(name);
    AssertState(name);
    switch (State()) {
      case StateEnm::Set: return true;
      case StateEnm::PropagatedValue: return source.HasValue() && equal(value_, source.value_);
      case StateEnm::Unset: return !source.HasValue() && equal(value_, T{});
      case StateEnm::Freed: return equal(value_, T{});
    }
    return false;
  }
  /// Makes what is in force the step's own: a carried value as set, a freed one as unset.
  void TakeOver() {
    if (State() == StateEnm::PropagatedValue) { ForceState(StateEnm::Set); }
    if (State() == StateEnm::Freed) { ForceState(StateEnm::Unset); }
  }
  void Zero() { value_ = T{}; }
  bool IsModified() const { return State() == StateEnm::Set || State() == StateEnm::Freed; }
  bool IsConditionModified() const { return State() == StateEnm::Freed; }

  /// Kept by copies.
  cls_Uid Uid() const { return cls_Uid::OfMember(word_ >> kStateBits); }
  void NewUid() { word_ = FreshWord(State()); }

private:
  static constexpr int kStateBits = 64 - cls_Uid::kNumberBits;
  static constexpr std::uint64_t kStateMask = (std::uint64_t{1} << kStateBits) - 1;

  static std::uint64_t FreshWord(StateEnm state) { return cls_Uid::AllocateNumber() << kStateBits | static_cast<std::uint64_t>(state); }
  void AssertState(std::string_view name) const {
    if (State() > StateEnm::Freed) { mdl_RefuseMemberState(name); }
  }

  T value_{};
  std::uint64_t word_ = FreshWord(StateEnm::Unset);  // the number of the identity, below it the member state
};
static_assert(sizeof(mdl_PropAttr<double>) == 16);

/// Stored as the value and a companion "<name>State", which a brief visitor leaves out where the value is set, as it does a value
/// that says nothing; scripted as a value, "UNSET" or "FREED".
template <class T> struct cls_MemberTraits<mdl_PropAttr<T>> {
  using Value = cls_MemberTraits<T>;
  using State = omu_PrimEnum<mdl_PropAttributeStateEnm, 1>;
  using Member = mdl_PropAttr<T>;

  static constexpr std::string_view kCompanion = "State";
  static std::string Companion(std::string_view name) { return std::string(name).append(kCompanion); }
  static void Describe(cls_MemberInfo& info) {
    Value::Describe(info);
    info.propagating = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Member const& member) {
    bool const brief = out.IsBrief(), set = member.State() == mdl_PropAttributeStateEnm::Set;
    if (!brief || set || !Value::Equal(member.ConstGet(), T{})) { Value::Write(out, name, member.ConstGet()); }
    if (!brief || !set) { out.WriteEnumerated(name, kCompanion, State(member.State()).View(), static_cast<unsigned>(member.State())); }
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Member& member) {
    bool const brief = in.IsBrief(), hasValue = !brief || in.Has(name);
    bool const hasState = !brief || in.Has(Companion(name));
    if (!hasValue && !hasState) { return; }
    if (brief) { member.Get() = T{}; }
    if (hasValue) { Value::Read(in, name, member.Get()); }
    if (!hasState) { return member.ForceState(mdl_PropAttributeStateEnm::Set); }
    auto const number = in.ReadEnumerated(name, kCompanion);
    bool const fits = number && *number <= static_cast<unsigned>(mdl_PropAttributeStateEnm::Freed);
    member.ForceState(fits ? static_cast<mdl_PropAttributeStateEnm>(*number)
                           : static_cast<mdl_PropAttributeStateEnm>(State(in, name, kCompanion)));
  }
  static void NewUid(Member& member) { member.NewUid(); }
  static bool Equal(Member const& a, Member const& b) { return a.State() == b.State() && Value::Equal(a.ConstGet(), b.ConstGet()); }
  static cls_Value ToValue(Member const& member) {
    return member.HasValue() ? Value::ToValue(member.ConstGet()) : cls_Value(std::string(State(member.State()).View()));
  }
  static std::string_view FromValue(Member& member, cls_Value const& from) {
    if (auto const* text = from.As<std::string>()) {
      if (*text == "UNSET") { return member = mdl_PropAttributeStateEnm::Unset, ""; }
      if (*text == "FREED") { return member = mdl_PropAttributeStateEnm::Freed, ""; }
    }
    if (cls_Unsettable<Value> && from.IsNull()) { return R"(a number, "UNSET" or "FREED")"; }
    T value{};
    std::string_view const expected = Value::FromValue(value, from);
    if (expected == "") { member = std::move(value); }
    return expected;
  }
  static void References(Member const& member, cls_Reference kind, cls_ReferenceVisitor const& visit) requires requires(T const& value) {
    Value::References(value, kind, visit);
  }
  {
    if (member.HasValue()) { Value::References(member.ConstGet(), kind, visit); }
  }
  static bool Redirect(Member& member, cls_Reference kind, cls_Redirection const& to) {
    return member.HasValue() && Value::Redirect(member.Get(), kind, to);
  }
  static void Propagate(Member& member, std::string_view name) { member.Propagate(name); }
  static void Modify(Member& member, Member const& own, std::string_view name) { member.Modify(own, name); }
  static bool IsMerged(Member const& own, Member const& source, std::string_view name) {
    return own.IsMerged(source, name, [](T const& a, T const& b) { return Value::Equal(a, b); });
  }
  static void TakeOver(Member& member) { member.TakeOver(); }
  static void Zero(Member& member) { member.Zero(); }
  static bool IsModified(Member const& member) { return member.IsModified(); }
  static bool IsConditionModified(Member const& member) { return member.IsConditionModified(); }
  static double const* RealInForce(Member const& member) requires std::same_as<T, double> {
    return member.HasValue() ? &member.ConstGet() : nullptr;
  }
};
