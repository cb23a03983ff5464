#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// Linear motion in time by superposition of the modes of a frequency step.
class DDB_API kprC_ModalDynamicsStep final : public kprC_ProcedureStep<kprC_ModalDynamicsStep> {
public:
  kprC_ModalDynamicsStep();
  explicit kprC_ModalDynamicsStep(cls_ReadVisitor const& in);
};
