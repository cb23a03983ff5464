#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Added mass of the fluid around a submerged structure, made for the underwater shock analysis that follows.
class DDB_API kprC_UsaAddedMassGenerationStep final : public kprC_ProcedureStep<kprC_UsaAddedMassGenerationStep> {
public:
  kprC_UsaAddedMassGenerationStep();
  explicit kprC_UsaAddedMassGenerationStep(cls_ReadVisitor const& in);
};
