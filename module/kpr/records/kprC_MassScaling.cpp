#include "module/kpr/records/kprC_MassScaling.h"

#include "module/kpr/records/kprC_Checks.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CoreUtils/atr_String.h"

kprC_MassScaling::kprC_MassScaling() = default;
kprC_MassScaling::kprC_MassScaling(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

bool kprC_MassScaling::IsVariable(MassScalingTypeEnm type, MassScalingOccursEnm occurs) {
  using enum kprC_MassScalingTypeEnm;
  switch (type) {
    case SEMI_AUTOMATIC: return occurs == MassScalingOccursEnm::THROUGHOUT_STEP;
    case REINITIALIZE: return false;
    case AUTOMATIC:
    case DISABLE_THROUGHOUT_STEP: return true;
  }
  nex_Exception::Throw(nex_TextException(atr_translate("Invalid mass scaling type")), "module/kpr/kprC_MassScaling", __LINE__);
}

void kprC_MassScaling::AssertValid() const {
  using enum kprC_ErrorEnm;
  using enum kprC_MassScalingTypeEnm;
  auto const isNumber = [](int value) { return value != 0 && kprC_IsGiven(value); };
  switch (type) {
    case SEMI_AUTOMATIC:
      if (!IsVariable()) { return kprC_Assert(kprC_IsPositive(factor) || kprC_IsPositive(dt), FactorOrTargetTimeIncrement); }
      kprC_Assert(kprC_IsPositive(dt), TargetTimeIncrement);
      break;
    case AUTOMATIC:
      kprC_Assert(kprC_IsPositive(feedRate), FeedRate);
      kprC_Assert(kprC_IsPositive(extrudedLength), ExtrudedElementLength);
      kprC_Assert(kprC_IsPositive(crossSection), CrossSectionNodes);
      break;
    case REINITIALIZE:
    case DISABLE_THROUGHOUT_STEP: return;
  }
  kprC_Assert(isNumber(frequency) || isNumber(numberInterval), FrequencyOrInterval);
}
