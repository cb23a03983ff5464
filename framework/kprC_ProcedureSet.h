#pragma once

#include <cstdint>
#include <initializer_list>

/// First and last of the procedure types, a contiguous range: the type identities of the step classes.
inline constexpr unsigned kprC_firstProcedureType = 0x023C0065;
inline constexpr unsigned kprC_lastProcedureType = 0x023C007E;

/// A set of procedure types, the initial step (0) among them. Asked in constant time, made at compile time: the columns
/// and rows of the rule tables.
class kprC_ProcedureSet {
public:
  constexpr kprC_ProcedureSet() = default;
  constexpr kprC_ProcedureSet(std::initializer_list<unsigned> types) {
    for (unsigned const type : types) { bits_ |= Bit(type); }
  }

  /// Whether \p procedureType belongs to the set; what is neither 0 nor a procedure type belongs to none.
  constexpr bool Has(unsigned procedureType) const { return (bits_ & Bit(procedureType)) != 0; }
  constexpr bool IsEmpty() const { return bits_ == 0; }
  /// One bit per procedure type from the first on; bit 31 is the initial step.
  constexpr std::uint32_t Bits() const { return bits_; }
  static constexpr kprC_ProcedureSet FromBits(std::uint32_t bits) {
    kprC_ProcedureSet set;
    set.bits_ = bits;
    return set;
  }

  friend constexpr kprC_ProcedureSet operator|(kprC_ProcedureSet a, kprC_ProcedureSet b) { return FromBits(a.bits_ | b.bits_); }
  friend constexpr kprC_ProcedureSet operator&(kprC_ProcedureSet a, kprC_ProcedureSet b) { return FromBits(a.bits_ & b.bits_); }
  friend constexpr kprC_ProcedureSet operator-(kprC_ProcedureSet a, kprC_ProcedureSet b) { return FromBits(a.bits_ & ~b.bits_); }
  friend constexpr bool operator==(kprC_ProcedureSet, kprC_ProcedureSet) = default;

private:
  static constexpr std::uint32_t Bit(unsigned type) {
    if (type == 0) { return 1U << 31; }
    bool const known = type >= kprC_firstProcedureType && type <= kprC_lastProcedureType;
    return known ? 1U << (type - kprC_firstProcedureType) : 0U;
  }

  std::uint32_t bits_ = 0;
};
