#include "platform/NonGeometricAttributes/lcsC_LoadCase.h"

lcsC_Term::lcsC_Term() = default;
lcsC_Term::lcsC_Term(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

lcsC_LoadCase::lcsC_LoadCase() = default;
lcsC_LoadCase::lcsC_LoadCase(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
