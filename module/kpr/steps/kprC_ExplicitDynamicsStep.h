#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Motion by explicit integration in time, in as many small increments as stability asks for.
class DDB_API kprC_ExplicitDynamicsStep final : public kprC_ProcedureStep<kprC_ExplicitDynamicsStep, kprC_ExplicitIntegration> {
public:
  kprC_ExplicitDynamicsStep();
  explicit kprC_ExplicitDynamicsStep(cls_ReadVisitor const& in);

  /// Refuses: 74 time period; 12 factor on the increment; 13, 14 bulk viscosities; 6 the fixed increment, or 73 the largest
  /// automatic one; then what each mass scaling refuses.
  void AssertValid() const override;
};
