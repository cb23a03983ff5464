#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Nonlinear motion by explicit integration in time of a subspace of the modes of a frequency step.
class DDB_API kprC_SubspaceDynamicsStep final : public kprC_ProcedureStep<kprC_SubspaceDynamicsStep> {
public:
  kprC_SubspaceDynamicsStep();
  explicit kprC_SubspaceDynamicsStep(cls_ReadVisitor const& in);
};
