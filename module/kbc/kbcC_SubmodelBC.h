#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kpr/family/kprC_TypeOf.h"

/// Per-step state of a submodel condition: where in the results of the global model its values come from.
class DDB_API kbcC_SubmodelBCState final : public kprC_StateOf<kbcC_SubmodelBCState, kbcC_BCState> {
public:
  kbcC_SubmodelBCState() = default;
  explicit kbcC_SubmodelBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<cow_List<int>> dof;  ///< degrees of freedom that are driven
  mdl_PropAttr<cow_String> globalDrivingRegion;
  mdl_PropAttr<int> globalStep;       ///< from 1
  mdl_PropAttr<int> globalIncrement;  ///< unset for all increments of the step
  mdl_PropAttr<bool> timeScale;
  mdl_PropAttr<double> scale;
  mdl_PropAttr<double> shellThickness;             ///< length
  mdl_PropAttr<double> exteriorTolerance;          ///< fraction of the element size
  mdl_PropAttr<double> absoluteExteriorTolerance;  ///< length
  mdl_PropAttr<double> centerZoneSize;             ///< length
  mdl_PropAttr<bool> fixed;                        ///< held where the step begins, whatever that is

  bool IsFixed() const override { return fixed == true; }
  /// Refuses 51 no global step or one below 1, 36 a tolerance that is given and not greater than zero.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kbcC_SubmodelBCState;
    kbcC_BCState::VisitMembers(visit);
    visit("dof", &Self::dof, kbcC_Value("degrees of freedom that are driven"));
    visit("globalDrivingRegion", &Self::globalDrivingRegion, cls_MemberText{"region of the global model that drives; empty for all of it"});
    visit("globalStep", &Self::globalStep, cls_MemberText{"step of the global model, from 1"}.Refused(kbcC_ErrorEnm::GlobalStepValue));
    visit("globalIncrement", &Self::globalIncrement, cls_MemberText{"increment of the global step; unset for all of them"});
    visit("timeScale", &Self::timeScale, cls_MemberText{"whether the global step's time is scaled to that of this step"});
    visit("scale", &Self::scale, kbcC_Value("factor on the values of the global model"));
    visit("shellThickness", &Self::shellThickness, kbcC_Value("thickness of the global model's shells", "length"));
    visit("exteriorTolerance", &Self::exteriorTolerance,
          kbcC_Value("how far outside the global model a node may lie, as a fraction of the element size"));
    visit("absoluteExteriorTolerance", &Self::absoluteExteriorTolerance,
          kbcC_Value("how far outside the global model a node may lie", "length"));
    visit("centerZoneSize", &Self::centerZoneSize,
          kbcC_Value("thickness of the zone about a shell's middle surface that is driven in full", "length"));
    visit(fixedCmd(), &Self::fixed, kbcC_FixedText());
  }
};

/// Values that are taken from the results of a global model.
class DDB_API kbcC_SubmodelBC final : public kprC_TypeOf<kbcC_SubmodelBC, kbcC_BC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
