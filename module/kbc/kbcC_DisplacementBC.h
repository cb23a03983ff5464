#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kbc/kbcC_Components.h"
#include "module/kpr/family/kprC_TypeOf.h"

/// Per-step state of a displacement condition: three displacements and three rotations.
class DDB_API kbcC_DisplacementBCState final : public kbcC_Displacements<kbcC_DisplacementBCState> {
public:
  kbcC_DisplacementBCState() = default;
  explicit kbcC_DisplacementBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
};

/// Displacements and rotations of a region, prescribed, held or released step by step.
///
/// Refuses in addition: 16 a value together with "fixed".
class DDB_API kbcC_DisplacementBC final : public kprC_TypeOf<kbcC_DisplacementBC, kbcC_BC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
