#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Motion and temperatures together by explicit integration in time.
class DDB_API kprC_TempDisplacementDynamicsStep final
    : public kprC_ProcedureStep<kprC_TempDisplacementDynamicsStep, kprC_ExplicitIntegration> {
public:
  kprC_TempDisplacementDynamicsStep();
  explicit kprC_TempDisplacementDynamicsStep(cls_ReadVisitor const& in);

  /// Refuses what an explicit dynamics step refuses.
  void AssertValid() const override;
};
