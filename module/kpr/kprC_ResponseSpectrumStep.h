#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Estimate of the largest linear response to a motion of the supports, from the modes of a frequency step.
class DDB_API kprC_ResponseSpectrumStep final : public kprC_ProcedureStep<kprC_ResponseSpectrumStep> {
public:
  kprC_ResponseSpectrumStep();
  explicit kprC_ResponseSpectrumStep(cls_ReadVisitor const& in);
};
