#include "module/kin/kinC_ContactProperty.h"

kinC_ContactProperty::kinC_ContactProperty() = default;
kinC_ContactProperty::kinC_ContactProperty(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kinC_ContactProperty::AssertValid() const {
  auto const assertValid = [](auto const&... behaviors) { ((behaviors ? behaviors->AssertValid() : void()), ...); };
  assertValid(normalBehavior, tangentialBehavior, damping, thermalConductance, electricalConductance, heatGeneration, radiation,
              geometricProperties);
}
