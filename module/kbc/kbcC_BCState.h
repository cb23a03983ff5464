#pragma once

#include "module/kbc/Types.h"
#include "module/kbc/kbcC_Names.h"
#include "module/kbc/kbcC_assert.h"
#include "module/kpr/engine/kprC_StepDependent.h"
#include "module/kpr/family/kprC_ConstraintState.h"

/// What a boundary condition sets in a step: base of the types' states.
class DDB_API kbcC_BCState : public kprC_StateOf<kbcC_BCState, kprC_ConstraintState<&kbcC_Assert>>, public kbcC_BCStateNames {
public:
  kbcC_BCState() = default;
  explicit kbcC_BCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  static constexpr omn_FixedString fixedCmd() { return "fixed"; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(deactivateCmd(), &kbcC_BCState::switchedOff_, cls_MemberText{"whether the condition is switched off in the step"}.NotSettable());
    visit(amplitudeCmd(), &kbcC_BCState::amplitude,
          cls_MemberText{"name of the amplitude that varies the values over the step"}
              .Refused(kbcC_ErrorEnm::AmplitudeValue)
              .RefersTo(cls_Reference::Amplitude));
  }
};

/// The number of the one value of a condition that has no components. All connectors offer it.
inline constexpr int kbcC_oneValue = kprC_oneValue;

/// The line of a list for a component, 1 to 6, or the one value that is prescribed; it refuses 36 what does not fit.
constexpr cls_MemberText kbcC_Component(int number, std::string_view meaning, std::string_view unit) {
  return kprC_Component(kbcC_ErrorEnm::ComponentValue, number, meaning, unit);
}
/// The line of a list for another value, which refuses the same.
constexpr cls_MemberText kbcC_Value(std::string_view meaning, std::string_view unit = "") {
  return cls_MemberText{meaning, unit}.Refused(kbcC_ErrorEnm::ComponentValue);
}
/// The line of a list for the member "fixed".
constexpr cls_MemberText kbcC_FixedText() { return cls_MemberText{"held where the step begins"}.Refused(kbcC_ErrorEnm::FixedValue); }
