#pragma once

#include "module/klo/kloC_Load.h"

/// Per-step state of a submodel load: where in the results of the global model its stresses come from.
class DDB_API kloC_SubmodelStressBasedState final : public kprC_StateOf<kloC_SubmodelStressBasedState, kloC_LoadState> {
public:
  kloC_SubmodelStressBasedState() = default;
  explicit kloC_SubmodelStressBasedState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<bool> fixed;
  mdl_PropAttr<int> globalStep;       ///< from 1
  mdl_PropAttr<int> globalIncrement;  ///< unset for all increments of the step
  mdl_PropAttr<double> scale;
  mdl_PropAttr<cow_String> globalDrivingRegion;
  mdl_PropAttr<double> absoluteExteriorTolerance;  ///< length
  mdl_PropAttr<double> exteriorTolerance;          ///< fraction of the element size

  /// Refuses 72 no global step or one below 1.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kloC_SubmodelStressBasedState;
    kloC_LoadState::VisitMembers(visit);
    visit("fixed", &Self::fixed, kloC_Value("whether the load stays as it is where the step begins"));
    visit("globalStep", &Self::globalStep, cls_MemberText{"step of the global model, from 1"}.Refused(kloC_ErrorEnm::GlobalStepValue));
    visit("globalIncrement", &Self::globalIncrement, kloC_Value("increment of the global step; unset for all of them"));
    visit("scale", &Self::scale, kloC_Value("factor on the stresses of the global model"));
    visit("globalDrivingRegion", &Self::globalDrivingRegion, cls_MemberText{"region of the global model that drives; empty for all of it"});
    visit("absoluteExteriorTolerance", &Self::absoluteExteriorTolerance,
          kloC_Value("how far outside the global model a point may lie", "length"));
    visit("exteriorTolerance", &Self::exteriorTolerance,
          kloC_Value("how far outside the global model a point may lie, as a fraction of the element size"));
  }
};

/// Stresses that are taken from the results of a global model. The type has no label and is in no list of
/// types.
class DDB_API kloC_SubmodelStressBased final : public kprC_TypeOf<kloC_SubmodelStressBased, kloC_Load> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
