#pragma once

#include "framework/mdl_PropAttr.h"
#include "platform/BasicUtils/cls_Persistent.h"

/// What an attribute sets in a step. A family's state base derives from it, the types' states from that.
class DDB_API kprC_State : public cls_Object {
public:
  /// Whether the attribute is switched off in the step.
  bool SwitchedOff() const { return switchedOff_; }
  void SetSwitchedOff(bool off) { switchedOff_ = off; }

  /// Refuses values that do not go together, whatever the step.
  virtual void AssertValid() const {}
  /// Name of the amplitude that scales the values in this step, given here or carried; empty when there is none.
  virtual cow_String AmplitudeName() const { return {}; }
  /// Merges \p own, of the same class, onto this state: the flag is taken, and unless it is set every member that
  /// \p own sets or frees.
  virtual void Modify(kprC_State const& own) = 0;
  /// Turns this state into what the next step carries.
  virtual void Propagate() = 0;
  /// Zeroes every propagating member.
  virtual void Zero() = 0;
  /// Whether a member is set or freed here.
  virtual bool IsModified() const = 0;
  /// Whether a member is freed here.
  virtual bool IsConditionModified() const = 0;

  // what a step of a procedure type (0: the initial step) makes of the state
  virtual bool UseAmplitude(unsigned procedureType) const = 0;
  virtual bool UseComplex(unsigned procedureType) const = 0;
  virtual bool UseMagnitude(unsigned procedureType) const = 0;
  /// Drops what a step of \p procedureType has no use for, when the state comes to stand in one.
  virtual void ChangeProcedureType(unsigned procedureType) = 0;

protected:
  bool switchedOff_ = false;
};

template <class M> inline constexpr bool kprC_isPropagating = false;
template <class T> inline constexpr bool kprC_isPropagating<mdl_PropAttr<T>> = true;

/// The state operations of a class, from its list of members, beside what cls_Persistent gives.
template <class Derived, class Base> class kprC_StateOf : public cls_Persistent<Derived, Base> {
public:
  using cls_Persistent<Derived, Base>::cls_Persistent;

  void Modify(kprC_State const& own) override {
    this->switchedOff_ = own.SwitchedOff();
    if (this->switchedOff_ || own.DynTypeId() != this->DynTypeId()) { return; }
    auto const& from = static_cast<Derived const&>(own);
    Derived::VisitMembers([&]<class C, class M>(std::string_view, M C::*field, cls_MemberText const&) {
      if constexpr (kprC_isPropagating<M>) { (static_cast<Derived&>(*this).*field).Modify(from.*field); }
    });
  }
  void Propagate() override {
    ForEachPropagating([](auto& member) { member.Propagate(); });
  }
  void Zero() override {
    ForEachPropagating([](auto& member) { member.Zero(); });
  }
  bool IsModified() const override {
    return AnyPropagating([](auto const& member) { return member.IsModified(); });
  }
  bool IsConditionModified() const override {
    return AnyPropagating([](auto const& member) { return member.IsConditionModified(); });
  }

private:
  template <class Fn> void ForEachPropagating(Fn fn) {
    cls_ForEachMember(static_cast<Derived&>(*this), [&]<class M>(std::string_view, cls_MemberText const&, M& member) {
      if constexpr (kprC_isPropagating<M>) { fn(member); }
    });
  }
  template <class Fn> bool AnyPropagating(Fn fn) const {
    bool any = false;
    cls_ForEachMember(this->Self(), [&]<class M>(std::string_view, cls_MemberText const&, M const& member) {
      if constexpr (kprC_isPropagating<M>) { any = any || fn(member); }
    });
    return any;
  }
};
