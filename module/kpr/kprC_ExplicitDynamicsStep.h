#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Motion by explicit integration in time, in as many small increments as stability asks for.
class DDB_API kprC_ExplicitDynamicsStep final : public kprC_ProcedureStep<kprC_ExplicitDynamicsStep> {
public:
  kprC_ExplicitDynamicsStep();
  explicit kprC_ExplicitDynamicsStep(cls_ReadVisitor const& in);
};
