#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kpr/family/kprC_BucklingCase.h"
#include "module/kpr/family/kprC_TypeOf.h"

enum class kbcC_TypeNameEnm { XSYMM = 0, YSYMM = 1, ZSYMM = 2, ENCASTRE = 3, PINNED = 4, XASYMM = 5, YASYMM = 6, ZASYMM = 7 };

template <> struct omu_EnumTable<kbcC_TypeNameEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"XSYMM", 0},  {"YSYMM", 1},  {"ZSYMM", 2},  {"ENCASTRE", 3}, {"PINNED", 4},
                                                               {"XASYMM", 5}, {"YASYMM", 6}, {"ZASYMM", 7}, {nullptr, 0}};
};

/// Per-step state of a symmetry, antisymmetry or encastre condition.
class DDB_API kbcC_TypeBCState final : public kprC_StateOf<kbcC_TypeBCState, kbcC_BCState> {
public:
  static constexpr omn_FixedString typeNameCmd() { return "typeName"; }
  static constexpr omn_FixedString buckleCaseCmd() { return "buckleCase"; }

  kbcC_TypeBCState() = default;
  explicit kbcC_TypeBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<omu_PrimEnum<kbcC_TypeNameEnm, 1>> typeName;        ///< the kind of constraint
  mdl_PropAttr<omu_PrimEnum<kprC_BucklingCaseEnm, 1>> buckleCase;  ///< which part of a buckle step it acts in

  std::uint32_t Components() const override;
  std::uint32_t ComponentsInForce() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    visit(typeNameCmd(), &kbcC_TypeBCState::typeName, cls_MemberText{"the kind of constraint"}.Refused(kbcC_ErrorEnm::TypeValue));
    visit(buckleCaseCmd(), &kbcC_TypeBCState::buckleCase, cls_MemberText{"the part of a buckle step that it acts in"});
  }
};

/// What the symmetry types have in common.
///
/// Refuses in addition: 46 an edit where the condition is carried unchanged.
template <class Derived> class kbcC_Unedited : public kprC_TypeOf<Derived, kbcC_BC> {
public:
  using kprC_TypeOf<Derived, kbcC_BC>::kprC_TypeOf;

  bool Insert(cow_String const& step, kbcC_BCState const& state) override {
    std::size_t const index = this->States().Find(step.View());
    kbcC_Assert(index == kprC_StepTable::npos || !this->IsPropagated(this->StatusAt(index)), kbcC_ErrorEnm::TypedEditedInPropagatedStep);
    return kbcC_BC::Insert(step, state);
  }
};

/// Symmetry, antisymmetry, pinned and encastre conditions: constraints named by their kind.
class DDB_API kbcC_TypeBC final : public kbcC_Unedited<kbcC_TypeBC> {
public:
  using TypeNameEnm = kbcC_TypeNameEnm;
  using enum kbcC_TypeNameEnm;

  explicit kbcC_TypeBC(TypeNameEnm kind = XSYMM) : kind_(kind) {}
  explicit kbcC_TypeBC(cls_ReadVisitor const& in) : kbcC_Unedited(in) {}

  std::unique_ptr<kbcC_BCState> NewStateFor(unsigned procedureType) const override;
  /// The command of the kind that the create step sets.
  std::string ConstructionName() const override;

private:
  TypeNameEnm kind_ = XSYMM;  // of the states that NewState makes
};

/// Per-step state of a plain symmetry condition: nothing but that it is there.
class DDB_API kbcC_SymmBCState final : public kprC_StateOf<kbcC_SymmBCState, kbcC_BCState> {
public:
  using kprC_StateOf::kprC_StateOf;
};

/// Plain symmetry conditions.
class DDB_API kbcC_SymmBC final : public kbcC_Unedited<kbcC_SymmBC> {
public:
  using kbcC_Unedited::kbcC_Unedited;
};
