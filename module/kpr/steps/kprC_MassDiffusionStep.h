#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Concentration of one substance that diffuses through another, steady or in time.
class DDB_API kprC_MassDiffusionStep final : public kprC_ProcedureStep<kprC_MassDiffusionStep, kprC_Incrementation> {
public:
  double dcmax = cls_unsetReal;
  double end = cls_unsetReal;

  kprC_MassDiffusionStep();
  explicit kprC_MassDiffusionStep(cls_ReadVisitor const& in);

  /// Refuses what every general step refuses (kprC_AssertGeneral); then, with automatic increments of a transient, 16 no largest
  /// change of concentration, 15 one that is not above 0, 17 a rate of change at the end that is given and not above 0. A steady
  /// state has no change to follow.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(dcmaxCmd(), &kprC_MassDiffusionStep::dcmax, dcmaxText());
    visit(endCmd(), &kprC_MassDiffusionStep::end, endText());
  }
};
