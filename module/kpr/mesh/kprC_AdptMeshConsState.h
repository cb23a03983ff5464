#pragma once

#include "module/kpr/family/kprC_ConstraintState.h"
#include "module/kpr/kprC_assert.h"
#include "module/kpr/mesh/Types.h"

/// What an adaptive mesh constraint sets in a step: base of the types' states.
class DDB_API kprC_AdptMeshConsState : public kprC_StateOf<kprC_AdptMeshConsState, kprC_ConstraintState<&kprC_Assert>> {
public:
  static constexpr omn_FixedString adptMeshConsStateCmd() { return "adaptiveMeshConstraintStates"; }
  static constexpr omn_FixedString pythonTypeName() { return "AdaptiveMeshConstraintState"; }

  kprC_AdptMeshConsState() = default;
  explicit kprC_AdptMeshConsState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(deactivateCmd(), &kprC_AdptMeshConsState::switchedOff_,
          cls_MemberText{"whether the constraint is switched off in the step"}.NotSettable());
    visit(amplitudeCmd(), &kprC_AdptMeshConsState::amplitude,
          cls_MemberText{"name of the amplitude that varies the values over the step"}
              .Refused(kprC_ErrorEnm::AmcAmplitudeValue)
              .RefersTo(cls_Reference::Amplitude));
  }
};
