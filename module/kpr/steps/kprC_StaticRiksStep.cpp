#include "module/kpr/steps/kprC_StaticRiksStep.h"

#include <cmath>

#include "module/kpr/steps/kprC_StepChecks.h"

kprC_StaticRiksStep::kprC_StaticRiksStep() = default;
kprC_StaticRiksStep::kprC_StaticRiksStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_StaticRiksStep::AssertValid() const {
  using enum kprC_ErrorEnm;
  // What bounds no increment is put where every comparison holds.
  bool const isAutomatic = timeIncrementationMethod == TimeIncrementationMethodEnm::AUTOMATIC;
  double const smallest = isAutomatic && kprC_IsGiven(minArcInc) ? minArcInc : 0.0;
  bool const isBounded = isAutomatic && kprC_IsGiven(maxArcInc);
  double const largest = isBounded ? maxArcInc : cls_unsetReal;

  kprC_Assert(kprC_IsPositive(initialArcInc), InitialArcIncrement);
  kprC_Assert(smallest >= 0.0, MinArcIncrement);
  kprC_Assert(largest >= 0.0, MaxArcIncrement);
  kprC_Assert(kprC_IsPositive(totalArcLength), kprC_ErrorEnm::TotalArcLength);
  kprC_Assert(initialArcInc <= totalArcLength, InitialArcAboveTotal);
  kprC_Assert(smallest <= totalArcLength, MinArcAboveTotal);
  kprC_Assert(!isBounded || largest <= totalArcLength, MaxArcAboveTotal);
  kprC_Assert(initialArcInc <= largest, InitialArcAboveMax);
  kprC_Assert(smallest <= largest, MinArcAboveMax);
  kprC_Assert(smallest <= initialArcInc, MinArcAboveInitial);
  kprC_Assert(maxNumInc >= 1, NumIncrements);
  kprC_Assert(kprC_IsPositiveIfGiven(maxLPF), MaxLoadProportionality);
  if (nodeOn) {
    bool const isVertex =
        region && !region.IsEmpty() && !region.IsMixed() && (region.Dimension() == 0 || !kprC_IsGiven(region.Dimension()));
    kprC_Assert(isVertex, RegionNotOneVertex);
    kprC_Assert(dof >= 1 && dof <= 6, RiksDof);
    kprC_Assert(std::abs(maximumDisplacement) > 0.0 && kprC_IsGiven(maximumDisplacement), RiksDisplacementZero);
  }
  bool const isBlank = fullyPlastic.View().find_first_not_of(' ') == std::string_view::npos;
  kprC_Assert(fullyPlastic.IsEmpty() || !isBlank, FullyPlasticSet);
  kprC_AssertSolution(*this);
}
