#pragma once

#include <array>
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
  /// What the step's parameters make of the procedure: a bit for each kprC_StepFacts::Trait.
  virtual std::uint8_t Traits() const { return 0; }
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

/// What the admission of an attribute depends on in a step: the procedure type (0: the initial step), and what the step's
/// parameters make of it.
struct kprC_StepFacts {
  enum Trait : std::uint8_t {
    Adiabatic = 1,    ///< an adiabatic stress analysis
    SteadyState = 2,  ///< a steady-state response
  };
  static constexpr std::uint8_t kCombinations = 4;  // of traits

  // a procedure type says it all where no trait counts
  constexpr kprC_StepFacts(unsigned type = 0, std::uint8_t has = 0) : procedureType(type), traits(has) {}
  explicit kprC_StepFacts(kprC_Procedure const* procedure)
      : kprC_StepFacts(kprC_ProcedureTypeOf(procedure), procedure == nullptr ? std::uint8_t{0} : procedure->Traits()) {}

  constexpr bool Has(Trait trait) const { return (traits & trait) != 0; }
  friend constexpr bool operator==(kprC_StepFacts, kprC_StepFacts) = default;

  unsigned procedureType;
  std::uint8_t traits;
};

/// A set of steps, by their facts.
class kprC_StepSet {
public:
  constexpr bool Contains(kprC_StepFacts step) const { return (bits_[step.traits] & kprC_ProcedureBit(step.procedureType)) != 0; }
  friend constexpr bool operator==(kprC_StepSet const&, kprC_StepSet const&) = default;

  /// The steps for which \p holds says yes.
  template <class Fn> static constexpr kprC_StepSet Where(Fn&& holds) {
    kprC_StepSet steps;
    auto const ask = [&](kprC_StepFacts step) {
      if (holds(step)) { steps.bits_[step.traits] |= kprC_ProcedureBit(step.procedureType); }
    };
    for (std::uint8_t traits = 0; traits < kprC_StepFacts::kCombinations; ++traits) {
      ask({0, traits});
      for (unsigned type = kprC_firstProcedureType; type <= kprC_lastProcedureType; ++type) { ask({type, traits}); }
    }
    return steps;
  }

private:
  std::array<std::uint32_t, kprC_StepFacts::kCombinations> bits_{};
};
