#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Sets stresses and strains to those of a body that has been annealed. Takes no time of the analysis.
class DDB_API kprC_AnnealStep final : public kprC_ProcedureStep<kprC_AnnealStep> {
public:
  double refTemp = cls_unsetReal;

  kprC_AnnealStep();
  explicit kprC_AnnealStep(cls_ReadVisitor const& in);

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(refTempCmd(), &kprC_AnnealStep::refTemp, refTempText());
  }
};
