#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Concentration of one substance that diffuses through another, steady or in time.
class DDB_API kprC_MassDiffusionStep final : public kprC_ProcedureStep<kprC_MassDiffusionStep> {
public:
  kprC_MassDiffusionStep();
  explicit kprC_MassDiffusionStep(cls_ReadVisitor const& in);
};
