#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Motion by implicit integration in time.
class DDB_API kprC_ImplicitDynamicsStep final : public kprC_ProcedureStep<kprC_ImplicitDynamicsStep> {
public:
  kprC_ImplicitDynamicsStep();
  explicit kprC_ImplicitDynamicsStep(cls_ReadVisitor const& in);
};
