#include "module/kin/kinC_ContactControls.h"

#include "module/kin/kinC_Checks.h"

using enum kinC_ErrorEnm;

kinC_StdContactControls::kinC_StdContactControls() = default;
kinC_StdContactControls::kinC_StdContactControls(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
kinC_ExpContactControls::kinC_ExpContactControls() = default;
kinC_ExpContactControls::kinC_ExpContactControls(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kinC_StdContactControls::AssertValid() const {
  kinC_Assert(stiffnessScaleFactor > 0.0, ControlsStiffnessScaleFactor);
  kinC_Assert(absolutePenetrationTolerance >= 0.0, AbsolutePenetrationTolerance);
  kinC_Assert(relativePenetrationTolerance >= 0.0, RelativePenetrationTolerance);
  kinC_Assert(maxSlideDistance >= 0.0, MaxSlideDistance);
  kinC_Assert(maxViolatingPoints >= 0, ViolatingPoints);
  kinC_Assert(maxTensileStress >= 0.0, TensileStress);
  kinC_Assert(maxOverclosure >= 0.0, MaxOverclosure);
  bool const hasLimit = maxTensileStress > 0.0 || maxOverclosure > 0.0;
  kinC_Assert(!hasLimit || maxViolatingPoints > 0, PointsMissing);
  kinC_Assert(hasLimit || maxViolatingPoints == 0, ViolationLimitMissing);
  kinC_Assert(stabilizationFactor >= 0.0, StabilizationFactor);
  kinC_Assert(stabilizationCoefficient >= 0.0, StabilizationCoefficient);
  kinC_Assert(tangentFraction >= 0.0, StabilizationTangentFraction);
  kinC_Assert(endOfStepFraction >= 0.0, EndOfStepFraction);
  kinC_Assert(zeroDamping >= 0.0, ZeroDampingClearance);
  bool const needsTolerance = penetrationTolChoice == kinC_penetrationTolEnm::ABSOLUTE;
  kinC_Assert(!needsTolerance || absolutePenetrationTolerance != cls_unsetReal, PenetrationToleranceMissing);
  kinC_Assert(zeroDampingChoice != kinC_zeroDampingEnm::SPECIFY || zeroDamping != cls_unsetReal, ZeroDampingMissing);
}

void kinC_ExpContactControls::AssertValid() const {
  kinC_Assert(globTrkInc > 0, MaxIncrements);
  kinC_Assert(warpCheckInc > 0, WarpCheckIncrements);
  kinC_Assert(highlyWarpedAngle > 0.0, HighlyWarpedAngle);
  kinC_Assert(penaltyScaleFactor > 0.0, PenaltyScaleFactor);
  kinC_Assert(globTrkChoice != kinC_globTrkEnm::SPECIFY || globTrkInc != cls_unsetInteger, GlobalTrackingMissing);
}
