#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Linear response to harmonic excitation at given frequencies, by superposition of the modes of a frequency step.
class DDB_API kprC_SteadyStateModalStep final : public kprC_ProcedureStep<kprC_SteadyStateModalStep> {
public:
  kprC_SteadyStateModalStep();
  explicit kprC_SteadyStateModalStep(cls_ReadVisitor const& in);
};
