#pragma once

#include "module/kpr/records/kprC_Factorization.h"
#include "module/kpr/records/kprC_FrequencyRange.h"
#include "module/kpr/steps/kprC_ProcedureStep.h"
#include "platform/BasicUtils/cls_xoList.h"

/// Linear response to harmonic excitation at given frequencies, solved in the degrees of freedom themselves.
class DDB_API kprC_SteadyStateDirectStep final : public kprC_ProcedureStep<kprC_SteadyStateDirectStep> {
public:
  using FactorizationEnm = kprC_FactorizationEnm;
  using ScaleEnm = kprC_FrequencyScaleEnm;

  omu_PrimEnum<FactorizationEnm> factorization = FactorizationEnm::COMPLEX;
  cls_xo1DArrayList<kprC_SteadyStateDirectFrequency> frequencyRange;
  bool frictionDamping = false;
  omu_PrimEnum<ScaleEnm> scale = ScaleEnm::LOGARITHMIC;
  bool subdivideUsingEigenfrequencies = false;

  kprC_SteadyStateDirectStep();
  explicit kprC_SteadyStateDirectStep(cls_ReadVisitor const& in);

  /// Refuses: 42 no range of frequency; range by range 40 its ends, 39 its points, 41 its bias.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(factorizationCmd(), &kprC_SteadyStateDirectStep::factorization, factorizationText());
    visit(frequencyRangeCmd(), &kprC_SteadyStateDirectStep::frequencyRange, frequencyRangeText());
    visit(frictionDampingCmd(), &kprC_SteadyStateDirectStep::frictionDamping, frictionDampingText());
    visit(scaleCmd(), &kprC_SteadyStateDirectStep::scale, scaleText());
    visit(subdivideUsingEigenfrequenciesCmd(), &kprC_SteadyStateDirectStep::subdivideUsingEigenfrequencies,
          subdivideUsingEigenfrequenciesText());
  }
};
