#pragma once

#include "framework/ddr_Model.h"
#include "module/klo/Types.h"
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
          cls_MemberText{"name of the amplitude that scales the load over the step; empty for the step's default"}
              .Refused(kloC_ErrorEnm::AmplitudeName)
              .RefersTo(cls_Reference::Amplitude));
    visit(deactivateCmd(), &kloC_LoadState::switchedOff_, cls_MemberText{"whether the load is switched off in the step"}.NotSettable());
  }
};

/// The line of a list for a value of a load, which refuses 21 what does not fit.
constexpr cls_MemberText kloC_Value(std::string_view meaning, std::string_view unit = "") {
  return cls_MemberText{meaning, unit}.Refused(kloC_ErrorEnm::ComponentValue);
}
