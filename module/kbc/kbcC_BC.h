#pragma once

#include "module/kbc/Rules.h"
#include "module/kbc/kbcC_BCState.h"
#include "module/kbc/kbcC_Names.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/engine/kprC_Propagator.h"
#include "module/kpr/engine/kprC_StepAttribute.h"
#include "module/kpr/family/kprC_Prescribed.h"

extern template class DDB_API kprC_StepAttribute<kbcC_Rules>;

/// Base of every boundary condition. The per-step operations, with their refusals, are those of kprC_StepAttribute under
/// the family's rules (Rules.h); a type adds its state, its category and what it alone refuses.
///
/// AssertValid refuses, in this order: 59 no field name with the distribution FIELD, 24 active in an anneal step, 45 active
/// where the type is not admitted; what the type refuses; of each state what it refuses itself, 25 fixed and 6 anything but
/// zero in the initial step.
class DDB_API kbcC_BC : public cls_Persistent<kbcC_BC, kprC_Constraint<kbcC_Rules>>, public kbcC_BCNames {
public:
  using CategoryEnm = kbcC_CategoryEnm;
  using enum kbcC_CategoryEnm;
  using DistribTypeEnum = kprC_DistributionEnm;
  using enum kprC_DistributionEnm;

  static constexpr char const* kModule = "kbc";
  /// The construction commands of the family.
  static std::span<kprC_Constructor<kbcC_BC> const> Constructors();

  static constexpr omn_FixedString bcCmd() { return "boundaryCondition"; }
  static constexpr omn_FixedString itemCmd() { return bcCmd(); }
  static constexpr omn_FixedString copyConstructorCmd() { return "BoundaryCondition"; }
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString regionCmd() { return "region"; }
  static constexpr omn_FixedString csysCmd() { return "localCsys"; }
  static constexpr omn_FixedString amplitudeCmd() { return kbcC_BCState::amplitudeCmd(); }
  static constexpr omn_FixedString deactivateCmd() { return "deactivate"; }
  static constexpr omn_FixedString suppressCmd() { return "suppress"; }
  static constexpr omn_FixedString distributionCmd() { return "distribution"; }
  static constexpr omn_FixedString distributionTypeCmd() { return "distributionType"; }
  static constexpr omn_FixedString fieldNameCmd() { return "fieldName"; }

  DistribTypeEnum DistributionType() const { return distribution_; }
  bool UsesField() const { return distribution_ == FIELD; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(suppressCmd(), &kbcC_BC::suppress_, cls_MemberText{"whether the condition is suppressed as a whole"}.NotSettable());
    visit(regionCmd(), &kbcC_BC::region_, cls_MemberText{"the set or surface that it acts on"}.RefersTo(cls_Reference::Region));
    visit("csys", &kbcC_BC::csys_,
          cls_MemberText{"local coordinate system; empty for the global one"}.RefersTo(cls_Reference::CoordinateSystem).Called(csysCmd()));
    visit(distributionCmd(), &kbcC_BC::distribution_, cls_MemberText{"how the values vary over the region"}.Called(distributionTypeCmd()));
    visit("states", &kbcC_BC::states_, cls_MemberText{"the per-step records"}.NotSettable());
    visit(fieldNameCmd(), &kbcC_BC::fieldName_,
          cls_MemberText{"the field that the distribution FIELD takes"}.RefersTo(cls_Reference::Field));
  }

protected:
  void AssertMembers() const override;
  bool IsUserDefined() const override { return distribution_ == USER_DEFINED; }
  void AssertState(kbcC_BCState const& state, std::size_t index) const override;
  /// What is constrained stays so when it is carried.
  bool ValidByOwnRule(unsigned procedureType, bool carried) const override;

private:
  omu_PrimEnum<DistribTypeEnum, 1> distribution_;
  cow_String fieldName_;
};

extern template class DDB_API kprC_PropagatingContainer<kbcC_BC>;
