#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Deformation of a porous body together with the flow of the fluid in its pores, steady or as consolidation in time.
class DDB_API kprC_SoilsStep final
    : public kprC_ProcedureStep<kprC_SoilsStep, kprC_Incrementation, kprC_QuasiNewton, kprC_ContactIterations, kprC_Stabilization> {
public:
  double cetol = cls_unsetReal;
  bool creep = false;
  double end = cls_unsetReal;
  double utol = cls_unsetReal;

  kprC_SoilsStep();
  explicit kprC_SoilsStep(cls_ReadVisitor const& in);

  /// Refuses what every general step refuses (kprC_AssertGeneral); then, with automatic increments of a transient, 26 no change
  /// of pore pressure that is above 0, or with creep 25 unless that or a creep tolerance is given and what is given is above 0; 0
  /// a rate of change at the end that is given and not above 0. A steady state has no change to follow.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(cetolCmd(), &kprC_SoilsStep::cetol, cetolText());
    visit(creepCmd(), &kprC_SoilsStep::creep, creepText());
    visit(endCmd(), &kprC_SoilsStep::end, endText());
    visit(utolCmd(), &kprC_SoilsStep::utol, utolText());
  }
};
