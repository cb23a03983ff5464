#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Static equilibrium of materials that creep, swell or relax with time.
class DDB_API kprC_ViscoStep final : public kprC_ProcedureStep<kprC_ViscoStep> {
public:
  kprC_ViscoStep();
  explicit kprC_ViscoStep(cls_ReadVisitor const& in);
};
