#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Linear response to harmonic excitation at given frequencies, solved in the degrees of freedom themselves.
class DDB_API kprC_SteadyStateDirectStep final : public kprC_ProcedureStep<kprC_SteadyStateDirectStep> {
public:
  kprC_SteadyStateDirectStep();
  explicit kprC_SteadyStateDirectStep(cls_ReadVisitor const& in);
};
