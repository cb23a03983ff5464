#pragma once

#include "module/kpr/records/kprC_FrequencyRange.h"
#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Linear response to an excitation that is known by its power spectral density, from the modes of a frequency step.
class DDB_API kprC_RandomResponseStep final : public kprC_ProcedureStep<kprC_RandomResponseStep, kprC_HarmonicDamping> {
public:
  using ScaleEnm = kprC_FrequencyScaleEnm;

  cls_xo1DArrayList<kprC_RandomResponseFrequency> freq;
  omu_PrimEnum<ScaleEnm> scale = ScaleEnm::LOGARITHMIC;

  kprC_RandomResponseStep();
  explicit kprC_RandomResponseStep(cls_ReadVisitor const& in);

  /// Refuses: 42 no range of frequency; range by range 34 its ends, 33 its points, 41 its bias; then what the damping refuses
  /// (kprC_HarmonicDamping).
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(freqCmd(), &kprC_RandomResponseStep::freq, freqText());
    visit(scaleCmd(), &kprC_RandomResponseStep::scale, scaleText());
  }
};
