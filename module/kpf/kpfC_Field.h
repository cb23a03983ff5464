#pragma once

#include "module/kpf/Rules.h"
#include "module/kpf/kpfC_FieldState.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/engine/kprC_Propagator.h"
#include "module/kpr/engine/kprC_StepAttribute.h"
#include "module/kpr/family/kprC_TypeOf.h"

/// A field's record of a step.
using kpfC_StateQuad = kprC_PropagatingState<kpfC_FieldState>;
extern template class DDB_API kprC_StepAttribute<kpfC_Rules>;

/// Base of every predefined field. The per-step operations, with their refusals, are those of kprC_StepAttribute under the
/// family's rules (Rules.h); a type adds its state and what it alone refuses.
///
/// AssertValid refuses, in this order: 14 in force in an anneal step, 67 and 68 of temperatures, 27 in a step that does not admit the
/// type; of each state of a step with the status 1, 2 or 3 a distribution that the type does not take, what the state refuses
/// itself, 96 no field name with the distribution FIELD, 77 no region, 28 a magnitude of zero in the create step. Nothing while
/// suppressed.
class DDB_API kpfC_Field : public cls_Persistent<kpfC_Field, kprC_TypedAttribute<kpfC_Rules>>, public kpfC_FieldNames {
public:
  using DistribTypeEnum = kpfC_DistribTypeEnum;
  using enum kpfC_DistribTypeEnum;

  static constexpr char const* kModule = "kpf";
  /// The construction commands of the family.
  static std::span<kprC_Constructor<kpfC_Field> const> Constructors();

  static constexpr omn_FixedString predefinedFieldCmd() { return "predefinedField"; }
  static constexpr omn_FixedString itemCmd() { return predefinedFieldCmd(); }
  static constexpr omn_FixedString copyConstructorCmd() { return "PredefinedField"; }
  static constexpr omn_FixedString predefinedFieldsCmd() { return "predefinedFields"; }
  static constexpr omn_FixedString regionCmd() { return "region"; }
  static constexpr omn_FixedString suppressedCmd() { return "suppressed"; }
  static constexpr omn_FixedString fieldNameCmd() { return "fieldName"; }
  static constexpr omn_FixedString resetToInitialCmd() { return "resetToInitial"; }
  static constexpr omn_FixedString resetToPropagatedCmd() { return "resetToPropagated"; }

  /// False for a step that the field does not know.
  bool IsEditable(cow_String const& step) const override { return IsMember(step) && kprC_StepAttribute::IsEditable(step); }
  /// Takes the field back to its initial value from \p step on; Reset takes that back.
  void ResetToInitial(cow_String const& step) { kprC_StepAttribute::Deactivate(step); }

  /// What the initial step alone creates stays in force in every general step until something touches it.
  bool StaysFromInitial(kprC_StepFacts step) const override;
  /// Refuses what the space of \p model cannot have, and what the results files that are read do not hold.
  void AssertInModel(ddr_Model const& model) const override;
  /// A field that reads all its values from a file needs no region.
  kprC_ActsOn ActsOn() const override;

  /// The file, where it is to be read from one.
  std::string_view Lacks(cls_Object const& state) const override;

  rgnC_Region const& Region() const { return *region_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(regionCmd(), &kpfC_Field::region_,
          cls_MemberText{"the set or surface that it acts on"}.Refused(kpfC_ErrorEnm::RegionValue).RefersTo(cls_Reference::Region));
    visit(suppressedCmd(), &kpfC_Field::suppress_, cls_MemberText{"whether the field is suppressed as a whole"}.NotSettable());
    visit("states", &kpfC_Field::states_, cls_MemberText{"the per-step records"}.NotSettable());
    visit(fieldNameCmd(), &kpfC_Field::fieldName_,
          cls_MemberText{"the field that the distribution FIELD takes"}.RefersTo(cls_Reference::Field));
  }

protected:
  void AssertState(kpfC_FieldState const& state, std::size_t index) const override;
  /// Whether the type has no use for a region with \p state.
  virtual bool IgnoresRegion(kpfC_FieldState const& state) const { return kpfC_RegionIgnored(state.Distribution()); }
  /// Refuses 13: an amplitude is not carried by a word, but by saying nothing of it.
  void AssertMemberState(std::size_t /*index*/, std::string_view member, std::string_view word) const override {
    kpfC_Assert(member != kpfC_FieldState::amplitudeCmd().View() || word != "PROPAGATED", kpfC_ErrorEnm::AmplitudeName);
  }

private:
  using kprC_StepAttribute::Deactivate;  // a field is never switched off

  cls_Shared<rgnC_Region> region_;
  cow_String fieldName_;
};

extern template class DDB_API kprC_PropagatingContainer<kpfC_Field>;
