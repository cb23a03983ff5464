#include "platform/CoreGeometry/dtmC_DatumRef.h"

dtmC_DatumRef::dtmC_DatumRef() = default;
dtmC_DatumRef::dtmC_DatumRef(cow_String name) : name_(std::move(name)) {}
dtmC_DatumRef::dtmC_DatumRef(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
