#pragma once

#include "platform/BasicUtils/cls_Object.h"
#include "platform/BasicUtils/cow_Handle.h"

/// What a per-step record knows of its step's procedure. The steps derive from it.
class DDB_API kprC_Procedure : public cls_Object {
public:
  /// The procedure type: the type identity of the step class.
  virtual unsigned ProcedureType() const = 0;
  /// Whether the procedure is a linear perturbation procedure.
  virtual bool Perturbation() const = 0;
};

/// Type identity of the initial step, the one step without a procedure.
inline constexpr unsigned kprC_initialStepType = 0x023C002D;

/// The procedure type that rules are asked with: 0 for an absent procedure and for the initial step.
inline unsigned kprC_ProcedureTypeOf(kprC_Procedure const* procedure) {
  unsigned const type = procedure == nullptr ? 0 : procedure->DynTypeId();
  return type == kprC_initialStepType ? 0 : type;
}
