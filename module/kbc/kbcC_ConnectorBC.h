#pragma once

#include "module/kbc/kbcC_BC.h"
#include "module/kbc/kbcC_Components.h"
#include "module/kbc/kbcC_DistributedBC.h"
#include "module/kpr/family/kprC_TypeOf.h"

// Conditions on connectors, and their states.

/// Base of the conditions on connectors: they act on the components of relative motion that every one of them offers.
class DDB_API kbcC_ConnectorBC : public cls_Persistent<kbcC_ConnectorBC, kbcC_BC> {
public:
  static constexpr omn_FixedString connectorsCmd() { return "connectors"; }

  /// Refuses components that a connector of the model does not offer, by their names. Connectors that the model does not
  /// know are passed over.
  void AssertInModel(ddr_Model const& model) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kbcC_BC::VisitMembers(visit);
    visit(connectorsCmd(), &kbcC_ConnectorBC::connectors_,
          cls_MemberText{"names of the connectors that it acts on"}.RefersTo(cls_Reference::Connector));
  }

private:
  cow_List<cow_String> connectors_;
};

class DDB_API kbcC_ConnDisplacementBCState final : public kbcC_Displacements<kbcC_ConnDisplacementBCState> {
public:
  kbcC_ConnDisplacementBCState() = default;
  explicit kbcC_ConnDisplacementBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
};
/// Relative displacements and rotations of connectors.
///
/// Refuses in addition: 16 a value together with "fixed".
class DDB_API kbcC_ConnDisplacementBC final : public kprC_TypeOf<kbcC_ConnDisplacementBC, kbcC_ConnectorBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kbcC_ConnVelocityBCState final : public kbcC_Velocities<kbcC_ConnVelocityBCState> {
public:
  kbcC_ConnVelocityBCState() = default;
  explicit kbcC_ConnVelocityBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
};
/// Relative velocities and angular velocities of connectors.
class DDB_API kbcC_ConnVelocityBC final : public kprC_TypeOf<kbcC_ConnVelocityBC, kbcC_ConnectorBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kbcC_ConnAccelerationBCState final : public kbcC_Accelerations<kbcC_ConnAccelerationBCState> {
public:
  kbcC_ConnAccelerationBCState() = default;
  explicit kbcC_ConnAccelerationBCState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
};
/// Relative accelerations and angular accelerations of connectors.
class DDB_API kbcC_ConnAccelerationBC final : public kprC_TypeOf<kbcC_ConnAccelerationBC, kbcC_ConnectorBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kbcC_MassFlowBCState final : public kprC_StateOf<kbcC_MassFlowBCState, kbcC_DistributedBCState> {
public:
  using kprC_StateOf::kprC_StateOf;
  static constexpr cls_MemberText value() {
    return kbcC_Component(kbcC_oneValue, "rate at which material passes the connector", "length/time");
  }
};
/// Flow of material into connectors. The command keeps the name that users know, "MaterialFlowBC".
class DDB_API kbcC_MassFlowBC final : public kprC_TypeOf<kbcC_MassFlowBC, kbcC_ConnectorBC> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
