#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Displacements and temperatures solved together, where each acts on the other.
class DDB_API kprC_CoupledTempDisplacementStep final : public kprC_ProcedureStep<kprC_CoupledTempDisplacementStep> {
public:
  kprC_CoupledTempDisplacementStep();
  explicit kprC_CoupledTempDisplacementStep(cls_ReadVisitor const& in);
};
