#pragma once

#include "module/klo/kloC_Scalar.h"

// Loads that are a flux, a flow, a charge or a current, and their states.

class DDB_API kloC_ConcentratedHeatFluxState final : public kloC_StateOf<kloC_ConcentratedHeatFluxState, kloC_ScalarState> {
public:
  kloC_ConcentratedHeatFluxState() = default;
  explicit kloC_ConcentratedHeatFluxState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("heat flux into the points", "energy/time"); }

  mdl_PropAttr<int> dof;  ///< 11 to 31; the first temperature where it is not given

  /// Refuses 40 a degree of freedom that is not between 11 and 31.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kloC_StateOf::VisitMembers(visit);
    visit(
        "dof", &kloC_ConcentratedHeatFluxState::dof,
        cls_MemberText{"temperature point through the thickness of a shell, 11 to 31", "", static_cast<int>(kloC_ErrorEnm::DofOutOfRange)});
  }
};
/// Heat flux at points.
class DDB_API kloC_ConcentratedHeatFlux final : public kprC_TypeOf<kloC_ConcentratedHeatFlux, kloC_ConcentratedHeatFluxState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ConcentratedHeatFlux"; }
  static constexpr omn_FixedString label() { return "Concentrated heat flux"; }
};

// One class of loads and one of states for each row of the table.
#define KLO_ONE_VALUE(Name, Base, text, meaning, unit)                                                   \
  class DDB_API kloC_##Name##State final : public kloC_StateOf<kloC_##Name##State, kloC_##Base##State> { \
  public:                                                                                                \
    using kloC_StateOf::kloC_StateOf;                                                                    \
    static constexpr cls_MemberText value() { return kloC_Value(meaning, unit); }                        \
  };                                                                                                     \
  class DDB_API kloC_##Name final : public kprC_TypeOf<kloC_##Name, kloC_##Name##State, kloC_##Base> {   \
  public:                                                                                                \
    using kprC_TypeOf::kprC_TypeOf;                                                                      \
    static constexpr omn_FixedString constructorCmd() { return #Name; }                                  \
    static constexpr omn_FixedString label() { return text; }                                            \
  };
#include "module/klo/kloC_OneValueLoads.def"
#undef KLO_ONE_VALUE
