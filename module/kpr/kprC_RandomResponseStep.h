#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Linear response to an excitation that is known by its power spectral density, from the modes of a frequency step.
class DDB_API kprC_RandomResponseStep final : public kprC_ProcedureStep<kprC_RandomResponseStep> {
public:
  kprC_RandomResponseStep();
  explicit kprC_RandomResponseStep(cls_ReadVisitor const& in);
};
