#include "module/kin/kinC_ContactPairs.h"

void kinC_SurfaceToSurfaceContact::AssertWhole() const {
  kinC_Assert(pitch_ > 0.0, kinC_ErrorEnm::ClearancePitch);
  kinC_Assert(majorDiameter_ > 0.0, kinC_ErrorEnm::ClearanceMajorDiameter);
  kinC_Assert(meanDiameter_ > 0.0, kinC_ErrorEnm::ClearanceMeanDiameter);
  bool const uniform = clearance_ == ClearanceEnm::UNIFORM, bolt = clearance_ == ClearanceEnm::BOLT;
  kinC_Assert(!uniform || initialClearance_ != cls_unsetReal, kinC_ErrorEnm::InitialClearanceMissing);
  kinC_Assert(!bolt || halfThreadAngle_ != cls_unsetReal, kinC_ErrorEnm::HalfThreadAngleMissing);
  kinC_Assert(!bolt || pitch_ != cls_unsetReal, kinC_ErrorEnm::PitchMissing);
  kinC_Assert(!HasClearance() || IsSmallSliding(), kinC_ErrorEnm::ClearanceNotSmallSliding);
}

void kinC_AssertSmoothing(double smoothing) { kinC_Assert(smoothing >= 0.0 && smoothing <= 0.5, kinC_ErrorEnm::ContactSmoothing); }

void kinC_SurfaceToSurfaceContactStd::AssertWhole() const {
  kinC_AssertSmoothing(smoothing_);
  kinC_Assert(penetrationBeforeCutback_ > 0.0, kinC_ErrorEnm::PenetrationBeforeCutback);
  kinC_Assert(slideDistance_ > 0.0, kinC_ErrorEnm::SlideDistance);
  kinC_Assert(extensionZone_ >= 0.0 && extensionZone_ <= 0.2, kinC_ErrorEnm::ExtensionZone);
  bool const hasSet = *adjustSet_ && adjustSet_->Type() == rgnC_Set;
  kinC_Assert(adjustMethod_ != AdjustEnm::SET || hasSet, kinC_ErrorEnm::AdjustSet);
  kinC_Assert(!tied_ || adjustMethod_ != AdjustEnm::NONE, kinC_ErrorEnm::TiedWithoutAdjust);
  kinC_Assert(!IsSmallSliding() || smoothing_ == kinC_defaultSmoothing, kinC_ErrorEnm::SmallSlidingSmoothing);
  bool const byNodes = !IsSmallSliding() && enforcement_ == EnforcementEnm::NODE_TO_SURFACE;
  kinC_Assert(!byNodes || thickness_ == ThicknessEnm::OFF, kinC_ErrorEnm::FiniteSlidingThickness);
  kinC_SurfaceToSurfaceContact::AssertWhole();
}

void kinC_SurfaceToSurfaceContactXpl::AssertCreateStep(std::size_t index) const {
  kinC_Assert(!IsSmallSliding() || index <= kFirstAnalysisStep, kinC_ErrorEnm::SmallSlidingTooLate);
  kinC_Assert(!HasClearance() || index == kFirstAnalysisStep, kinC_ErrorEnm::ClearanceTooLate);
}

void kinC_SurfaceToSurfaceContactXpl::AssertWhole() const {
  bool const given = weightingFactor_ != cls_unsetReal;
  kinC_Assert(!given || (weightingFactor_ >= 0.0 && weightingFactor_ <= 1.0), kinC_ErrorEnm::WeightingFactor);
  kinC_Assert(!IsSmallSliding() || formulation_ != FormulationEnm::PENALTY, kinC_ErrorEnm::SmallSlidingPenalty);
  kinC_SurfaceToSurfaceContact::AssertWhole();
}

void kinC_SelfContactStd::AssertWhole() const { kinC_AssertSmoothing(smoothing_); }
