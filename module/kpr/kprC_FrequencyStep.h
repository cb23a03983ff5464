#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Natural frequencies and modes of vibration about the base state. The modal procedures build on them.
class DDB_API kprC_FrequencyStep final : public kprC_ProcedureStep<kprC_FrequencyStep> {
public:
  kprC_FrequencyStep();
  explicit kprC_FrequencyStep(cls_ReadVisitor const& in);
};
