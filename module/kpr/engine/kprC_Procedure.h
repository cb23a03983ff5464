#pragma once

#include <cstdint>

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
/// Type identities of the two steps that the rules of every family single out.
inline constexpr unsigned kprC_frequencyStepType = 0x023C006A;
inline constexpr unsigned kprC_annealStepType = 0x023C0065;

/// First and last of the procedure types, the type identities of the step classes: a range without a gap.
inline constexpr unsigned kprC_firstProcedureType = 0x023C0065;
inline constexpr unsigned kprC_lastProcedureType = 0x023C007E;

/// The bit that stands for a procedure type in a set of them: the first type has the lowest, the initial step (0) the
/// highest; 0 for what is neither.
constexpr std::uint32_t kprC_ProcedureBit(unsigned procedureType) {
  if (procedureType == 0) { return 1U << 31; }
  bool const known = procedureType >= kprC_firstProcedureType && procedureType <= kprC_lastProcedureType;
  return known ? 1U << (procedureType - kprC_firstProcedureType) : 0U;
}

/// The procedure type that rules are asked with: 0 for an absent procedure and for the initial step.
inline unsigned kprC_ProcedureTypeOf(kprC_Procedure const* procedure) {
  unsigned const type = procedure == nullptr ? 0 : procedure->DynTypeId();
  return type == kprC_initialStepType ? 0 : type;
}
