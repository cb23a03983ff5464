#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kbc/kbcC_Components.h"
#include "module/kpr/family/kprC_TypeOf.h"

/// Per-step state of a velocity condition.
class DDB_API kbcC_VelocityBCState final : public kbcC_Velocities<kbcC_VelocityBCState> {
public:
  kbcC_VelocityBCState() = default;
  explicit kbcC_VelocityBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
};

/// Velocities and angular velocities of a region.
class DDB_API kbcC_VelocityBC final : public kprC_TypeOf<kbcC_VelocityBC, kbcC_BC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

/// Per-step state of an acceleration condition.
class DDB_API kbcC_AccelerationBCState final : public kbcC_Accelerations<kbcC_AccelerationBCState> {
public:
  kbcC_AccelerationBCState() = default;
  explicit kbcC_AccelerationBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
};

/// Accelerations and angular accelerations of a region.
class DDB_API kbcC_AccelerationBC final : public kprC_TypeOf<kbcC_AccelerationBC, kbcC_BC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
