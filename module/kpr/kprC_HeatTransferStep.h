#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Temperatures without deformation, steady or in time.
class DDB_API kprC_HeatTransferStep final : public kprC_ProcedureStep<kprC_HeatTransferStep> {
public:
  kprC_HeatTransferStep();
  explicit kprC_HeatTransferStep(cls_ReadVisitor const& in);
};
