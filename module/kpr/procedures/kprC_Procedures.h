#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <iterator>

#include "module/kpr/engine/kprC_Procedure.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// The procedure types by name: each the type identity of its step class; and 0, with which rules ask about the
/// initial step.
struct kprC_ProcedureType {
  enum Enm : unsigned {
    Initial = 0,
#define KPR_PROCEDURE(number, name, ...) name = 0x023C0000u | number,
#include "module/kpr/procedures/kprC_ProcedureTable.def"
#undef KPR_PROCEDURE
  };
};

/// How a procedure answers a query: always the same, or with a value that its step stores.
enum class kprC_Answer : unsigned char { No, Yes, Member };

/// A row of kprC_ProcedureTable.def, which says what the columns mean.
struct kprC_ProcedureRow {
  unsigned type;
  omn_FixedString command;  ///< the construction command; not used where there is no label
  omn_FixedString label;    ///< empty where there is none
  kprC_Answer perturbation, isExplicit, nonmechanical, nlgeom, response, adiabatic, loadCases, adaptiveMesh, period, solver, convertSDI;
};

inline constexpr auto kprC_procedures = [] {
  using enum kprC_Answer;
  return std::to_array<kprC_ProcedureRow>({
#define KPR_PROCEDURE(number, name, label, ...) {kprC_ProcedureType::name, #name "Step", label, __VA_ARGS__},
#include "module/kpr/procedures/kprC_ProcedureTable.def"
#undef KPR_PROCEDURE
  });
}();

/// The row of a procedure type; null for anything else, the initial step included.
constexpr kprC_ProcedureRow const* kprC_FindProcedure(unsigned procedureType) {
  unsigned const index = procedureType - kprC_procedures.front().type;
  return index < kprC_procedures.size() ? &kprC_procedures[index] : nullptr;
}

static_assert(kprC_ProcedureType::Frequency == kprC_frequencyStepType && kprC_ProcedureType::Anneal == kprC_annealStepType);
static_assert(kprC_procedures.front().type == kprC_firstProcedureType && kprC_procedures.back().type == kprC_lastProcedureType);
static_assert(
    [] {
      for (std::size_t i = 0; i < kprC_procedures.size(); ++i) {
        if (kprC_procedures[i].type != kprC_procedures.front().type + i) { return false; }
      }
      return kprC_procedures.size() == 26;
    }(),
    "kprC_ProcedureTable.def: in the order of the numbers, none missing");

/// A set of procedure types, the initial step (0) among them. One bit each: the first type of the table has the lowest,
/// the initial step the highest.
class kprC_ProcedureSet {
public:
  constexpr kprC_ProcedureSet() = default;
  constexpr kprC_ProcedureSet(kprC_ProcedureType::Enm type) : bits_(BitOf(type)) {}
  constexpr kprC_ProcedureSet(std::initializer_list<kprC_ProcedureType::Enm> types) {
    for (unsigned const type : types) { bits_ |= BitOf(type); }
  }
  /// The procedures for which the table says yes in one of its columns.
  static constexpr kprC_ProcedureSet With(kprC_Answer kprC_ProcedureRow::*query) {
    kprC_ProcedureSet result;
    for (kprC_ProcedureRow const& row : kprC_procedures) {
      if (row.*query == kprC_Answer::Yes) { result.bits_ |= BitOf(row.type); }
    }
    return result;
  }

  /// The bit of a procedure type or of the initial step; 0 for what is neither.
  static constexpr unsigned BitOf(unsigned procedureType) { return kprC_ProcedureBit(procedureType); }
  constexpr unsigned Bits() const { return bits_; }
  constexpr bool IsEmpty() const { return bits_ == 0; }
  /// False for what is no procedure type.
  constexpr bool Contains(unsigned procedureType) const { return (bits_ & BitOf(procedureType)) != 0; }

  friend constexpr kprC_ProcedureSet operator|(kprC_ProcedureSet a, kprC_ProcedureSet b) { return kprC_ProcedureSet(a.bits_ | b.bits_); }
  friend constexpr kprC_ProcedureSet operator&(kprC_ProcedureSet a, kprC_ProcedureSet b) { return kprC_ProcedureSet(a.bits_ & b.bits_); }
  friend constexpr kprC_ProcedureSet operator-(kprC_ProcedureSet a, kprC_ProcedureSet b) { return kprC_ProcedureSet(a.bits_ & ~b.bits_); }
  friend constexpr bool operator==(kprC_ProcedureSet, kprC_ProcedureSet) = default;

private:
  constexpr explicit kprC_ProcedureSet(unsigned bits) : bits_(bits) {}

  unsigned bits_ = 0;
};

/// Static | Visco: the set of both. With a set on either side, the procedure joins it.
constexpr kprC_ProcedureSet operator|(kprC_ProcedureType::Enm a, kprC_ProcedureType::Enm b) { return {a, b}; }
constexpr kprC_ProcedureSet operator|(kprC_ProcedureSet a, kprC_ProcedureType::Enm b) { return a | kprC_ProcedureSet{b}; }

/// Linear perturbation procedures.
inline constexpr kprC_ProcedureSet kprC_perturbationProcedures = kprC_ProcedureSet::With(&kprC_ProcedureRow::perturbation);
/// Procedures integrated explicitly in time: anneal, explicit dynamics, dynamic temperature-displacement.
inline constexpr kprC_ProcedureSet kprC_explicitProcedures = kprC_ProcedureSet::With(&kprC_ProcedureRow::isExplicit);

/// Whether a procedure is integrated explicitly in time. False for the initial step.
constexpr bool kprC_IsExplicit(unsigned procedureType) { return kprC_explicitProcedures.Contains(procedureType); }
