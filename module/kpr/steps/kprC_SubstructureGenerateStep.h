#pragma once

#include "module/kpr/records/kprC_RetainedDofs.h"
#include "module/kpr/steps/kprC_ProcedureStep.h"
#include "platform/BasicUtils/cls_xoList.h"

/// Condenses the stiffness of a part of the structure onto the degrees of freedom that are kept.
class DDB_API kprC_SubstructureGenerateStep final : public kprC_ProcedureStep<kprC_SubstructureGenerateStep> {
public:
  cls_xo1DArrayList<kprC_RetainedDofs> retainedDofs;

  kprC_SubstructureGenerateStep();
  explicit kprC_SubstructureGenerateStep(cls_ReadVisitor const& in);

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(retainedDofsCmd(), &kprC_SubstructureGenerateStep::retainedDofs, retainedDofsText());
  }
};
