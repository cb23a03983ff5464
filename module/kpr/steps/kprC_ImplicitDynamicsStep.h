#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Motion by implicit integration in time.
class DDB_API kprC_ImplicitDynamicsStep final
    : public kprC_ProcedureStep<kprC_ImplicitDynamicsStep, kprC_Incrementation, kprC_QuasiNewton> {
public:
  double alpha = cls_unsetReal;
  double haftol = cls_unsetReal;
  bool initialConditions = false;
  bool noStop = false;
  bool nohaf = false;

  kprC_ImplicitDynamicsStep();
  explicit kprC_ImplicitDynamicsStep(cls_ReadVisitor const& in);

  /// Refuses what every general step refuses (kprC_AssertGeneral); 90 numerical damping outside -0.333 to 0; with automatic
  /// increments, which the residual in the middle of an increment controls, 38 unless its largest value is given and above 0, 37
  /// when it is left uncomputed.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(alphaCmd(), &kprC_ImplicitDynamicsStep::alpha, alphaText());
    visit(haftolCmd(), &kprC_ImplicitDynamicsStep::haftol, haftolText());
    visit(initialConditionsCmd(), &kprC_ImplicitDynamicsStep::initialConditions, initialConditionsText());
    visit(noStopCmd(), &kprC_ImplicitDynamicsStep::noStop, noStopText());
    visit(nohafCmd(), &kprC_ImplicitDynamicsStep::nohaf, nohafText());
  }
};
