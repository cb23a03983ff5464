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
  /// Merges \p own, of the same class, onto this state: the flag is taken, and unless it is set every member that
  /// \p own sets or frees.
  virtual void Modify(kprC_State const& own);
  /// Whether this, which is on, is already what comes of merging it onto what \p source gives on.
  bool IsMergedOnto(kprC_State const& source) const;
  /// Turns this state into what the next step carries.
  virtual void Propagate();
  /// Makes what is in force here the state's own, for a creation that takes the place of one that went.
  void TakeOver();
  /// Zeroes every propagating member.
  virtual void Zero();
  /// Whether a member is set or freed here.
  virtual bool IsModified() const;
  /// Whether a member is freed here.
  virtual bool IsConditionModified() const;

protected:
  bool switchedOff_ = false;
};

/// A class of states over \p Base, complete where it has no members of its own; one that has lists them and reads them itself.
/// Where the base's members mean something else in every class, \p Derived says what in the words that Base::VisitFor asks for.
template <class Derived, class Base> class kprC_StateOf : public cls_Persistent<Derived, Base> {
public:
  static constexpr bool kReadByRows = true;

  kprC_StateOf() = default;
  explicit kprC_StateOf(cls_ReadVisitor const& in) { cls_ReadRows(cls_RowsOf<Derived>(), static_cast<void*>(this), in); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    if constexpr (requires { Base::template VisitFor<Derived>(visit); }) {
      Base::template VisitFor<Derived>(visit);
    } else {
      Base::VisitMembers(visit);
    }
  }
};
