#pragma once

#include <string>
#include <utility>

#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cls_Uid.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// What a step says of one member of a state.
enum mdl_PropAttributeStateEnm {
  mdl_Unset = 0,            ///< nothing
  mdl_Set = 1,              ///< a value, given in this step
  mdl_PropagatedValue = 2,  ///< a value, carried from an earlier step
  mdl_Freed = 3,            ///< no longer a value, from this step on
};

template <> struct omu_EnumTable<mdl_PropAttributeStateEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"UNSET", mdl_Unset}, {"SET", mdl_Set}, {"PROPAGATED", mdl_PropagatedValue}, {"FREED", mdl_Freed}, {nullptr, 0}};
};

/// One propagating member of a state: a value and what the step says of it.
template <class T> class mdl_PropAttr {
public:
  mdl_PropAttr() = default;
  explicit mdl_PropAttr(T value) : value_(std::move(value)), state_(mdl_Set) {}

  T const& ConstGet() const { return value_; }
  T& Get() { return value_; }
  mdl_PropAttributeStateEnm State() const { return state_; }
  /// Whether a value is in force, given here or carried.
  bool HasValue() const { return state_ == mdl_Set || state_ == mdl_PropagatedValue; }

  mdl_PropAttr& operator=(T value) {
    value_ = std::move(value);
    state_ = mdl_Set;
    return *this;
  }
  /// Takes the member state. Without a value in force the value falls back to that of a default member.
  mdl_PropAttr& operator=(mdl_PropAttributeStateEnm state) {
    if (state == mdl_Unset || state == mdl_Freed) { value_ = T{}; }
    state_ = state;
    return *this;
  }
  /// Takes the member state and keeps the value.
  void ForceState(mdl_PropAttributeStateEnm state) { state_ = state; }

  friend bool operator==(mdl_PropAttr const& a, mdl_PropAttr const& b) { return a.state_ == b.state_ && a.value_ == b.value_; }
  friend bool operator==(mdl_PropAttr const& a, T const& value) { return a.HasValue() && a.value_ == value; }
  friend bool operator==(mdl_PropAttr const& a, mdl_PropAttributeStateEnm state) { return a.state_ == state; }

  /// What the next step carries: a set value as propagated, a freed one as unset.
  void Propagate() {
    constexpr mdl_PropAttributeStateEnm kCarried[] = {mdl_Unset, mdl_PropagatedValue, mdl_PropagatedValue, mdl_Unset};
    *this = mdl_PropAttr(*this, kCarried[state_]);
  }
  /// Merges a step's own member onto the carried one: a set one takes value and state, a freed one the state.
  void Modify(mdl_PropAttr const& own) {
    if (own.state_ == mdl_Set || own.state_ == mdl_Freed) { *this = mdl_PropAttr(own, own.state_); }
  }
  void Zero() { value_ = T{}; }
  bool IsModified() const { return state_ == mdl_Set || state_ == mdl_Freed; }
  bool IsConditionModified() const { return state_ == mdl_Freed; }

  cls_Uid const& Uid() const { return uid_; }
  void NewUid() { uid_ = cls_Uid::AllocateUid(); }

private:
  mdl_PropAttr(mdl_PropAttr const& from, mdl_PropAttributeStateEnm state)
      : value_(state == mdl_Unset || state == mdl_Freed ? T{} : from.value_), state_(state), uid_(from.uid_) {}

  T value_{};
  mdl_PropAttributeStateEnm state_ = mdl_Unset;
  cls_Uid uid_ = cls_Uid::AllocateUid();
};

/// Stored as the value and a companion "<name>State"; scripted as a value, "UNSET" or "FREED".
template <class T> struct cls_MemberTraits<mdl_PropAttr<T>> {
  using Value = cls_MemberTraits<T>;
  using State = omu_PrimEnum<mdl_PropAttributeStateEnm, 1>;
  using Member = mdl_PropAttr<T>;

  static std::string Companion(std::string_view name) { return std::string(name) + "State"; }
  static void Describe(cls_MemberInfo& info) {
    Value::Describe(info);
    info.propagating = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Member const& member) {
    Value::Write(out, name, member.ConstGet());
    out.WriteText(Companion(name), State(member.State()).View());
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Member& member) {
    Value::Read(in, name, member.Get());
    member.ForceState(State(in, Companion(name)));
  }
  static void NewUid(Member& member) { member.NewUid(); }
  static bool Equal(Member const& a, Member const& b) { return a.State() == b.State() && Value::Equal(a.ConstGet(), b.ConstGet()); }
  static cls_Value ToValue(Member const& member) {
    return member.HasValue() ? Value::ToValue(member.ConstGet()) : cls_Value(std::string(State(member.State()).View()));
  }
  static std::string_view FromValue(Member& member, cls_Value const& from) {
    if (auto const* text = from.As<std::string>()) {
      if (*text == "UNSET") { return member = mdl_Unset, ""; }
      if (*text == "FREED") { return member = mdl_Freed, ""; }
    }
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
  static void Propagate(Member& member) { member.Propagate(); }
  static void Modify(Member& member, Member const& own) { member.Modify(own); }
  static void Zero(Member& member) { member.Zero(); }
  static bool IsModified(Member const& member) { return member.IsModified(); }
  static bool IsConditionModified(Member const& member) { return member.IsConditionModified(); }
  static double const* RealInForce(Member const& member) requires std::same_as<T, double> {
    return member.HasValue() ? &member.ConstGet() : nullptr;
  }
};
