#pragma once

#include "module/kpr/records/kprC_FrequencyRange.h"
#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Linear response to harmonic excitation at given frequencies, by superposition of the modes of a frequency step.
class DDB_API kprC_SteadyStateModalStep final : public kprC_ProcedureStep<kprC_SteadyStateModalStep, kprC_HarmonicDamping> {
public:
  using ScaleEnm = kprC_FrequencyScaleEnm;

  cls_xo1DArrayList<kprC_SteadyStateModalFrequency> frequencyRange;
  omu_PrimEnum<ScaleEnm> scale = ScaleEnm::LOGARITHMIC;
  bool subdivideUsingEigenfrequencies = false;

  kprC_SteadyStateModalStep();
  explicit kprC_SteadyStateModalStep(cls_ReadVisitor const& in);

  /// Refuses: 42 no range of frequency; range by range 40 its ends, 39 its points, 41 its bias; then what the damping refuses
  /// (kprC_HarmonicDamping).
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(frequencyRangeCmd(), &kprC_SteadyStateModalStep::frequencyRange, frequencyRangeText());
    visit(scaleCmd(), &kprC_SteadyStateModalStep::scale, scaleText());
    visit(subdivideUsingEigenfrequenciesCmd(), &kprC_SteadyStateModalStep::subdivideUsingEigenfrequencies,
          subdivideUsingEigenfrequenciesText());
  }
};
