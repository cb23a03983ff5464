#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Complex frequencies and modes of vibration of a damped structure, in the subspace of the modes of a frequency step.
class DDB_API kprC_ComplexFrequencyStep final : public kprC_ProcedureStep<kprC_ComplexFrequencyStep> {
public:
  kprC_ComplexFrequencyStep();
  explicit kprC_ComplexFrequencyStep(cls_ReadVisitor const& in);
};
