#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Static equilibrium with the load's magnitude as an unknown, followed along its path through peaks and snap-throughs.
class DDB_API kprC_StaticRiksStep final : public kprC_ProcedureStep<kprC_StaticRiksStep> {
public:
  kprC_StaticRiksStep();
  explicit kprC_StaticRiksStep(cls_ReadVisitor const& in);
};
