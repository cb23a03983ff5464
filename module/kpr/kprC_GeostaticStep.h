#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Equilibrium of a soil or rock mass with its stresses in place, before anything is built or dug.
class DDB_API kprC_GeostaticStep final : public kprC_ProcedureStep<kprC_GeostaticStep> {
public:
  kprC_GeostaticStep();
  explicit kprC_GeostaticStep(cls_ReadVisitor const& in);
};
