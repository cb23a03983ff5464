#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Deformation of a porous body together with the flow of the fluid in its pores, steady or as consolidation in time.
class DDB_API kprC_SoilsStep final : public kprC_ProcedureStep<kprC_SoilsStep> {
public:
  kprC_SoilsStep();
  explicit kprC_SoilsStep(cls_ReadVisitor const& in);
};
