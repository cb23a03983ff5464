#include "platform/CoreGeometry/rgnC_Region.h"

rgnC_Region::rgnC_Region() = default;
rgnC_Region::rgnC_Region(cow_String name, rgnC_RegionType type) : name_(std::move(name)), kind_(type) {}
rgnC_Region::rgnC_Region(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
