#pragma once

#include "module/kin/kinC_OnRegion.h"

/// Per-step state of an elastic foundation. Refuses 8 a stiffness that is not greater than 0.
class DDB_API kinC_ElasticFoundationState final : public kprC_StateOf<kinC_ElasticFoundationState, kinC_InteractionState> {
public:
  static constexpr omn_FixedString stiffnessCmd() { return "stiffness"; }

  kinC_ElasticFoundationState() = default;
  explicit kinC_ElasticFoundationState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> stiffness;

  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_InteractionState::VisitMembers(visit);
    visit(stiffnessCmd(), &kinC_ElasticFoundationState::stiffness,
          cls_MemberText{"stiffness of the foundation per area, along the normal of the surface", "force/length^3"});
  }
};

/// A surface that rests on springs to the ground, from the beginning to the end.
///
/// Refuses in addition: 9 a creation in any step but the initial one, 10 to switch it off, 11 to change it in a later step, 12 a
/// model all of whose analysis steps are explicit.
class DDB_API kinC_ElasticFoundation final : public kinC_OnRegion<kinC_ElasticFoundation> {
public:
  static constexpr std::string_view regionText() { return "the surface that rests on the foundation"; }

  kinC_ElasticFoundation() = default;
  explicit kinC_ElasticFoundation(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  void AssertInModel(ddr_Model const& model) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_OnRegion::VisitMembers(visit); }

protected:
  void AssertCreateStep(std::size_t index) const override;
  void AssertWhole() const override;
};
