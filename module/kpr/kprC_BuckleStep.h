#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Loads at which a structure loses its stability, and the shapes in which it does, from the linearized problem about
/// the base state.
class DDB_API kprC_BuckleStep final : public kprC_ProcedureStep<kprC_BuckleStep> {
public:
  kprC_BuckleStep();
  explicit kprC_BuckleStep(cls_ReadVisitor const& in);
};
