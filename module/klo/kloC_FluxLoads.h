#pragma once

#include "module/klo/kloC_Scalar.h"

// Loads that are a flux, a flow, a charge or a current, and their states.

class DDB_API kloC_ConcentratedHeatFluxState final : public kprC_StateOf<kloC_ConcentratedHeatFluxState, kloC_ScalarState> {
public:
  kloC_ConcentratedHeatFluxState() = default;
  explicit kloC_ConcentratedHeatFluxState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("heat flux into the points", "energy/time"); }

  mdl_PropAttr<int> dof;  ///< 11 to 31; the first temperature where it is not given

  /// Refuses 40 a degree of freedom that is not between 11 and 31.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_StateOf::VisitMembers(visit);
    visit("dof", &kloC_ConcentratedHeatFluxState::dof,
          cls_MemberText{"temperature point through the thickness of a shell, 11 to 31"}.Refused(kloC_ErrorEnm::DofOutOfRange));
  }
};
/// Heat flux at points.
class DDB_API kloC_ConcentratedHeatFlux final : public kprC_TypeOf<kloC_ConcentratedHeatFlux, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

// The classes of the types that are one value: a state and a load for each such row of the table.
#define DDB_ONE_VALUE(number, Class, stateNumber, State, command, label, procedures, category, loadCase, actsOn, Base, BaseState, meaning, \
                      unit)                                                                                                                \
  class DDB_API State final : public kprC_StateOf<State, BaseState> {                                                                      \
  public:                                                                                                                                  \
    using kprC_StateOf::kprC_StateOf;                                                                                                      \
    static constexpr cls_MemberText value() { return kloC_Value(meaning, unit); }                                                          \
  };                                                                                                                                       \
  class DDB_API Class final : public kprC_TypeOf<Class, Base> {                                                                            \
  public:                                                                                                                                  \
    using kprC_TypeOf::kprC_TypeOf;                                                                                                        \
  };
#include "module/klo/Types.def"
