#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Complex frequencies and modes of vibration of a damped structure, in the subspace of the modes of a frequency step.
class DDB_API kprC_ComplexFrequencyStep final
    : public kprC_ProcedureStep<kprC_ComplexFrequencyStep, kprC_EigenRange, kprC_EigenFrequencies> {
public:
  bool frictionDamping = false;

  kprC_ComplexFrequencyStep();
  explicit kprC_ComplexFrequencyStep(cls_ReadVisitor const& in);

  /// Refuses: 2 number of eigenvalues; 83 smallest and 1 largest eigenvalue; 91 a negative property evaluation frequency.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(frictionDampingCmd(), &kprC_ComplexFrequencyStep::frictionDamping, frictionDampingText());
  }
};
