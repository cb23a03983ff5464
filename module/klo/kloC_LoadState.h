#pragma once

#include "framework/ddr_Model.h"
#include "module/klo/kloC_TypeTable.h"
#include "module/klo/kloC_assert.h"
#include "module/kpr/family/kprC_AmplitudeState.h"

/// What a load sets in a step: base of the types' states.
class DDB_API kloC_LoadState : public kprC_StateOf<kloC_LoadState, kprC_AmplitudeState<&kloC_Assert>> {
public:
  using SpaceEnm = ddr_Model::SpaceEnm;

  kloC_LoadState() = default;
  explicit kloC_LoadState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  /// Whether it loads anything. A type without a magnitude always does.
  virtual bool IsNonZero() const { return true; }
  /// Whether a user subroutine gives the magnitude.
  virtual bool IsUserDefined() const { return false; }
  /// Whether a named field gives the distribution.
  virtual bool UsesField() const { return false; }
  /// Refuses what a model in that space cannot have.
  virtual void AssertInSpace(SpaceEnm /*space*/) const {}

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(amplitudeCmd(), &kloC_LoadState::amplitude,
          cls_MemberText{"name of the amplitude that scales the load over the step; empty for the step's default", "",
                         static_cast<int>(kloC_ErrorEnm::AmplitudeName)});
    visit(deactivateCmd(), &kloC_LoadState::switchedOff_, cls_MemberText{"whether the load is switched off in the step"});
  }
};

/// The line of a list for a value of a load, which refuses 21 what does not fit.
constexpr cls_MemberText kloC_Value(std::string_view meaning, std::string_view unit = "") {
  return {meaning, unit, static_cast<int>(kloC_ErrorEnm::ComponentValue)};
}

/// A class of states over a base whose values mean something else in every type: \p Derived says what, in the words that
/// Base::VisitFor asks for. One with members of its own lists them and reads them itself.
template <class Derived, class Base> class kloC_StateOf : public kprC_StateOf<Derived, Base> {
public:
  kloC_StateOf() = default;
  explicit kloC_StateOf(cls_ReadVisitor const& in) {
    Derived::VisitMembers([&]<class C, class M>(std::string_view name, M C::*field, cls_MemberText const&) {
      cls_MemberTraits<M>::Read(in, name, this->*field);
    });
  }

  template <class V> static constexpr void VisitMembers(V&& visit) { Base::template VisitFor<Derived>(visit); }
};
