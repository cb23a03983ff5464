#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Linear static response to loads about the base state.
class DDB_API kprC_StaticLinearPerturbationStep final : public kprC_ProcedureStep<kprC_StaticLinearPerturbationStep> {
public:
  kprC_StaticLinearPerturbationStep();
  explicit kprC_StaticLinearPerturbationStep(cls_ReadVisitor const& in);
};
