#include "platform/NonGeometricAttributes/ampC_Amplitude.h"

ampC_Amplitude::ampC_Amplitude() = default;
ampC_Amplitude::ampC_Amplitude(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
