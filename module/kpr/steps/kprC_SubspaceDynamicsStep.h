#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Nonlinear motion by explicit integration in time of a subspace of the modes of a frequency step.
class DDB_API kprC_SubspaceDynamicsStep final : public kprC_ProcedureStep<kprC_SubspaceDynamicsStep, kprC_FixedIncrements> {
public:
  int maxNumInc = 100;
  int vectors = cls_unsetInteger;

  kprC_SubspaceDynamicsStep();
  explicit kprC_SubspaceDynamicsStep(cls_ReadVisitor const& in);

  /// Refuses: 44 number of modes, which are all that there are where it is not given; 74 time period; 6 increment; 5 number of
  /// increments.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(maxNumIncCmd(), &kprC_SubspaceDynamicsStep::maxNumInc, maxNumIncText());
    visit(vectorsCmd(), &kprC_SubspaceDynamicsStep::vectors, vectorsText());
  }
};
