#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Linear motion in time by superposition of the modes of a frequency step.
class DDB_API kprC_ModalDynamicsStep final : public kprC_ProcedureStep<kprC_ModalDynamicsStep, kprC_FixedIncrements, kprC_ModalDamping> {
public:
  bool continueAnalysis = false;

  kprC_ModalDynamicsStep();
  explicit kprC_ModalDynamicsStep(cls_ReadVisitor const& in);

  /// Refuses: 74 time period; 6 increment; then what the damping refuses (kprC_ModalDamping).
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(continueAnalysisCmd(), &kprC_ModalDynamicsStep::continueAnalysis, continueAnalysisText());
  }
};
