#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Condenses the stiffness of a part of the structure onto the degrees of freedom that are kept.
class DDB_API kprC_SubstructureGenerateStep final : public kprC_ProcedureStep<kprC_SubstructureGenerateStep> {
public:
  kprC_SubstructureGenerateStep();
  explicit kprC_SubstructureGenerateStep(cls_ReadVisitor const& in);
};
