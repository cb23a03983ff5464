#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Linear response to harmonic excitation at given frequencies, solved in the subspace of the modes of a frequency step.
class DDB_API kprC_SteadyStateSubspaceStep final : public kprC_ProcedureStep<kprC_SteadyStateSubspaceStep> {
public:
  kprC_SteadyStateSubspaceStep();
  explicit kprC_SteadyStateSubspaceStep(cls_ReadVisitor const& in);
};
