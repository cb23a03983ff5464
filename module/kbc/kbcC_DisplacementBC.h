#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kpr/kprC_BucklingCase.h"

/// Per-step state of a displacement condition: three displacements and three rotations.
class DDB_API kbcC_DisplacementBCState final : public kprC_StateOf<kbcC_DisplacementBCState, kbcC_BCState> {
public:
  static constexpr omn_FixedString u1Cmd() { return "u1"; }
  static constexpr omn_FixedString u2Cmd() { return "u2"; }
  static constexpr omn_FixedString u3Cmd() { return "u3"; }
  static constexpr omn_FixedString ur1Cmd() { return "ur1"; }
  static constexpr omn_FixedString ur2Cmd() { return "ur2"; }
  static constexpr omn_FixedString ur3Cmd() { return "ur3"; }
  static constexpr omn_FixedString fixedCmd() { return "fixed"; }
  static constexpr omn_FixedString buckleCaseCmd() { return "buckleCase"; }

  kbcC_DisplacementBCState();
  explicit kbcC_DisplacementBCState(cls_ReadVisitor const& in);

  mdl_PropAttr<double> u1, u2, u3;                                 ///< along the axes 1 to 3 of the local system, length
  mdl_PropAttr<double> ur1, ur2, ur3;                              ///< about the axes 1 to 3, radians
  mdl_PropAttr<bool> fixed;                                        ///< held where the step begins, whatever that is
  mdl_PropAttr<omu_PrimEnum<kprC_BucklingCaseEnm, 1>> buckleCase;  ///< which part of a buckle step it acts in

  /// Whether a component prescribes anything but zero in the step.
  bool IsNonZero() const;
  /// The same of components that the step itself sets.
  bool SetsNonZero() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kbcC_DisplacementBCState;
    constexpr int component = static_cast<int>(kbcC_ErrorEnm::ComponentValue);
    kbcC_BCState::VisitMembers(visit);
    visit(u1Cmd(), &Self::u1, cls_MemberText{"displacement along axis 1", "length", component});
    visit(u2Cmd(), &Self::u2, cls_MemberText{"displacement along axis 2", "length", component});
    visit(u3Cmd(), &Self::u3, cls_MemberText{"displacement along axis 3", "length", component});
    visit(ur1Cmd(), &Self::ur1, cls_MemberText{"rotation about axis 1", "radians", component});
    visit(ur2Cmd(), &Self::ur2, cls_MemberText{"rotation about axis 2", "radians", component});
    visit(ur3Cmd(), &Self::ur3, cls_MemberText{"rotation about axis 3", "radians", component});
    visit(fixedCmd(), &Self::fixed, cls_MemberText{"held where the step begins", "", static_cast<int>(kbcC_ErrorEnm::FixedValue)});
    visit(buckleCaseCmd(), &Self::buckleCase, cls_MemberText{"the part of a buckle step that it acts in"});
  }

private:
  template <class Fn> bool AnyComponent(Fn fn) const { return fn(u1) || fn(u2) || fn(u3) || fn(ur1) || fn(ur2) || fn(ur3); }
};

/// Displacements and rotations of a region, prescribed, held or released step by step.
///
/// Refuses in addition: 16 a value together with "fixed", 25 "fixed" in the initial step, 6 a non-zero component in the
/// initial step, 26 a move of a non-zero one into it.
class DDB_API kbcC_DisplacementBC final : public cls_Persistent<kbcC_DisplacementBC, kbcC_BC> {
public:
  static constexpr omn_FixedString constructorCmd() { return "DisplacementBC"; }
  static constexpr omn_FixedString label() { return "Displacement/Rotation"; }

  kbcC_DisplacementBC();
  explicit kbcC_DisplacementBC(cls_ReadVisitor const& in);

  CategoryEnm Category() const override { return MECHANICAL; }
  bool AllowedInALoadCase() const override { return true; }
  std::unique_ptr<kbcC_BCState> NewState() const override;
  std::string ConstructionName() const override { return std::string(constructorCmd().View()); }
  std::string Label() const override { return std::string(label().View()); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kbcC_BC::VisitMembers(visit); }

protected:
  bool ValidByOwnRule(unsigned procedureType, bool carried) const override;
  void AssertState(kbcC_BCState const& state, bool initial) const override;
  void AssertMove(std::size_t from, std::size_t to) const override;
};
