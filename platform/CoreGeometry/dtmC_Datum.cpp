#include "platform/CoreGeometry/dtmC_Datum.h"

dtmC_Datum::dtmC_Datum() = default;
dtmC_Datum::dtmC_Datum(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
