#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kpr/kprC_BucklingCase.h"

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

  kbcC_TypeBCState();
  explicit kbcC_TypeBCState(cls_ReadVisitor const& in);

  mdl_PropAttr<omu_PrimEnum<kbcC_TypeNameEnm, 1>> typeName;        ///< the kind of constraint
  mdl_PropAttr<omu_PrimEnum<kprC_BucklingCaseEnm, 1>> buckleCase;  ///< which part of a buckle step it acts in

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_BCState::VisitMembers(visit);
    visit(typeNameCmd(), &kbcC_TypeBCState::typeName,
          cls_MemberText{"the kind of constraint", "", static_cast<int>(kbcC_ErrorEnm::TypeValue)});
    visit(buckleCaseCmd(), &kbcC_TypeBCState::buckleCase, cls_MemberText{"the part of a buckle step that it acts in"});
  }
};

/// A kind of symmetry, antisymmetry or clamping and the command that constructs it.
struct kbcC_TypeBCKind {
  omn_FixedString constructorCmd;
  kbcC_TypeNameEnm kind;
};

/// Symmetry, antisymmetry, pinned and encastre conditions: constraints named by their kind.
///
/// Refuses in addition: 46 an edit where the condition is carried unchanged.
class DDB_API kbcC_TypeBC final : public cls_Persistent<kbcC_TypeBC, kbcC_BC> {
public:
  using TypeNameEnm = kbcC_TypeNameEnm;
  using enum kbcC_TypeNameEnm;

  static constexpr omn_FixedString label() { return "Symmetry/Antisymmetry/Encastre"; }
  static constexpr kbcC_TypeBCKind kKinds[] = {
      {"XsymmBC", XSYMM},   {"YsymmBC", YSYMM},   {"ZsymmBC", ZSYMM},   {"XasymmBC", XASYMM},
      {"YasymmBC", YASYMM}, {"ZasymmBC", ZASYMM}, {"PinnedBC", PINNED}, {"EncastreBC", ENCASTRE},
  };

  explicit kbcC_TypeBC(TypeNameEnm kind = XSYMM);
  explicit kbcC_TypeBC(cls_ReadVisitor const& in);

  CategoryEnm Category() const override { return MECHANICAL; }
  bool AllowedInALoadCase() const override { return true; }
  std::unique_ptr<kbcC_BCState> NewState() const override;
  /// The command of the kind that the create step sets.
  std::string ConstructionName() const override;
  std::string Label() const override { return std::string(label().View()); }

  bool Insert(cow_String const& step, kbcC_BCState const& state) override;

  template <class V> static constexpr void VisitMembers(V&& visit) { kbcC_BC::VisitMembers(visit); }

protected:
  bool ValidByOwnRule(unsigned procedureType, bool carried) const override;
  void AssertState(kbcC_BCState const&, bool) const override {}

private:
  TypeNameEnm kind_;  // of the states that NewState makes
};
