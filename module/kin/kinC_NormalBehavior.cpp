#include "module/kin/kinC_NormalBehavior.h"

#include "module/kin/kinC_Checks.h"

using enum kinC_ErrorEnm;

kinC_NormalBehavior::kinC_NormalBehavior() = default;
kinC_NormalBehavior::kinC_NormalBehavior(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kinC_NormalBehavior::AssertValid() const {
  using enum kinC_PressureOverclosureEnm;
  using enum kinC_EnforcementMethodEnm;
  bool const pairs = table.Columns() >= 2;
  switch (pressureOverclosure) {
    case HARD: break;
    case EXPONENTIAL:
      kinC_Assert(!table.IsEmpty() && table.ConstGet(0, 0) > 0.0, PressureNotPositive);
      kinC_Assert(pairs && table.ConstGet(table.Rows() - 1, 1) > 0.0, ClearanceNotPositive);
      kinC_Assert(maxStiffness >= 0.0, MaximumStiffness);
      break;
    case kinC_PressureOverclosureEnm::LINEAR: kinC_Assert(contactStiffness > 0.0, ContactStiffness); break;
    case TABULAR:
      kinC_Assert(pairs && table.Rows() >= 2, PressureClearanceIncomplete);
      kinC_Assert(kinC_IsIncreasing(table, 0), PressureClearanceNotIncreasing);
      kinC_Assert(table.ConstGet(0, 0) == 0.0, PressureClearanceNotFromZero);
      break;
    case SCALE_FACTOR:
      kinC_Assert((overclosureMeasure > 0.0 && overclosureFactor == 0.0) || (overclosureMeasure == 0.0 && overclosureFactor > 0.0),
                  OverclosureMeasureOrFactor);
      kinC_Assert(contactStiffnessScaleFactor > 1.0, StiffnessScaleFactorAboveOne);
      break;
  }
  kinC_EnforcementMethodEnm const method = constraintEnforcementMethod;
  kinC_Assert(method == DEFAULT || pressureOverclosure == HARD, SoftenedEnforcement);
  kinC_Assert((method != AUGMENTED_LAGRANGE && method != PENALTY) || contactStiffnessScaleFactor > 0.0, StiffnessScaleFactor);
  kinC_Assert(contactStiffness >= 0.0, ContactStiffness);
  kinC_Assert(initialStiffnessScaleFactor > 0.0, InitialStiffnessScaleFactor);
  kinC_Assert(overclosureMeasure >= 0.0 && overclosureFactor >= 0.0, OverclosureNegative);
  kinC_Assert(contactStiffnessScaleFactor >= 0.0, StiffnessScaleFactorNegative);
  kinC_Assert(kinC_IsRatioIfGiven(stiffnessRatio), StiffnessRatio);
  kinC_Assert(kinC_IsRatioIfGiven(lowerQuadraticRatio), LowerQuadraticRatio);
}
