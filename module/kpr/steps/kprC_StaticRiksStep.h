#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"
#include "platform/CoreGeometry/rgnC_Region.h"

/// Static equilibrium with the load's magnitude as an unknown, followed along its path through peaks and snap-throughs.
class DDB_API kprC_StaticRiksStep final : public kprC_ProcedureStep<kprC_StaticRiksStep, kprC_ContactIterations, kprC_StaticControls> {
public:
  int dof = cls_unsetInteger;
  omu_PrimEnum<ExtrapolationEnm> extrapolation = ExtrapolationEnm::LINEAR;
  double initialArcInc = 1.0;
  double maxArcInc = cls_unsetReal;
  double maxLPF = cls_unsetReal;
  int maxNumInc = 100;
  double maximumDisplacement = cls_unsetReal;
  double minArcInc = cls_unsetReal;
  bool nodeOn = false;
  rgnC_Region region;
  omu_PrimEnum<TimeIncrementationMethodEnm> timeIncrementationMethod = TimeIncrementationMethodEnm::AUTOMATIC;
  double totalArcLength = 1.0;

  kprC_StaticRiksStep();
  explicit kprC_StaticRiksStep(cls_ReadVisitor const& in);

  /// Refuses: 61 initial arc increment; 62 smallest; 63 largest; 64 total arc length; 65, 66, 67 initial, smallest, largest above
  /// the total; 68, 69 initial, smallest above the largest; 70 smallest above the initial; 5 number of increments; 28 largest load
  /// proportionality factor; of a watched displacement 88 its region, which is one vertex, 30 its degree of freedom, 31 its value;
  /// 27 a fully plastic set whose name is blank; 161 contact iterations without a direct solver. The smallest and the largest
  /// increment count only where they are given and increments are automatic.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(dofCmd(), &kprC_StaticRiksStep::dof, dofText());
    visit(extrapolationCmd(), &kprC_StaticRiksStep::extrapolation, extrapolationText());
    visit(initialArcIncCmd(), &kprC_StaticRiksStep::initialArcInc, initialArcIncText());
    visit(maxArcIncCmd(), &kprC_StaticRiksStep::maxArcInc, maxArcIncText());
    visit(maxLPFCmd(), &kprC_StaticRiksStep::maxLPF, maxLPFText());
    visit(maxNumIncCmd(), &kprC_StaticRiksStep::maxNumInc, maxNumIncText());
    visit(maximumDisplacementCmd(), &kprC_StaticRiksStep::maximumDisplacement, maximumDisplacementText());
    visit(minArcIncCmd(), &kprC_StaticRiksStep::minArcInc, minArcIncText());
    visit(nodeOnCmd(), &kprC_StaticRiksStep::nodeOn, nodeOnText());
    visit(regionCmd(), &kprC_StaticRiksStep::region, regionText());
    visit(timeIncrementationMethodCmd(), &kprC_StaticRiksStep::timeIncrementationMethod, timeIncrementationMethodText());
    visit(totalArcLengthCmd(), &kprC_StaticRiksStep::totalArcLength, totalArcLengthText());
  }
};
