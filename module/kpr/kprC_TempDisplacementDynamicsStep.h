#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Motion and temperatures together by explicit integration in time.
class DDB_API kprC_TempDisplacementDynamicsStep final : public kprC_ProcedureStep<kprC_TempDisplacementDynamicsStep> {
public:
  kprC_TempDisplacementDynamicsStep();
  explicit kprC_TempDisplacementDynamicsStep(cls_ReadVisitor const& in);
};
