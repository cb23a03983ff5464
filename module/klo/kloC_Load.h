#pragma once

#include "module/klo/Rules.h"
#include "module/klo/kloC_LoadState.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/engine/kprC_Propagator.h"
#include "module/kpr/engine/kprC_StepAttribute.h"
#include "module/kpr/family/kprC_TypeOf.h"

/// A load's record of a step.
using kloC_StateQuad = kprC_PropagatingState<kloC_LoadState>;
extern template class DDB_API kprC_StepAttribute<kloC_Rules>;

/// Base of every load. The per-step operations, with their refusals, are those of kprC_StepAttribute under the family's
/// rules (Rules.h); a type adds its state and what it alone refuses.
class DDB_API kloC_Load : public cls_Persistent<kloC_Load, kprC_TypedAttribute<kloC_Rules>> {
public:
  using CategoryEnm = kloC_CategoryEnm;
  using enum kloC_CategoryEnm;

  static constexpr char const* kModule = "klo";
  static constexpr cls_Reference kReference = cls_Reference::Load;  ///< as what others name them
  /// The construction commands of the family.
  static std::span<kprC_Constructor<kloC_Load> const> Constructors();

  static constexpr omn_FixedString loadCmd() { return "load"; }
  static constexpr omn_FixedString itemCmd() { return loadCmd(); }
  static constexpr omn_FixedString copyConstructorCmd() { return "Load"; }
  static constexpr omn_FixedString loadRepositoryCmd() { return "loads"; }
  static constexpr omn_FixedString regionCmd() { return "region"; }
  static constexpr omn_FixedString suppressCmd() { return "suppress"; }
  static constexpr omn_FixedString fieldNameCmd() { return "fieldName"; }

  /// False for a step that the load does not know.
  bool IsEditable(cow_String const& step) const override { return IsMember(step) && kprC_StepAttribute::IsEditable(step); }

  /// Refuses, in this order: 18 in force in an anneal step, 34 in a step that does not admit the type; what the type
  /// refuses as a whole; of each state 41 no magnitude in the create step, what the state refuses itself, 70 no field
  /// name with the distribution FIELD, and what the type refuses there. A step is asked where the status is 1, 2 or 3.
  /// Nothing while suppressed.
  using kprC_StepAttribute::AssertValid;
  /// The part of AssertValid that asks for no magnitude: 18 and 34.
  void AssertValidAnyMagnitude() const;
  /// Refuses what the space of \p model cannot have.
  void AssertInModel(ddr_Model const& model) const override;

  rgnC_Region const& Region() const { return *region_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(regionCmd(), &kloC_Load::region_, cls_MemberText{"the set or surface that it acts on"}.RefersTo(cls_Reference::Region));
    visit(suppressCmd(), &kloC_Load::suppress_, cls_MemberText{"whether the load is suppressed as a whole"}.NotSettable());
    visit("states", &kloC_Load::states_, cls_MemberText{"the per-step records"}.NotSettable());
    visit(fieldNameCmd(), &kloC_Load::fieldName_,
          cls_MemberText{"the field that the distribution FIELD takes"}.RefersTo(cls_Reference::Field));
  }

protected:
  void AssertState(kloC_LoadState const& state, std::size_t index) const override;
  /// Refuses 17 an amplitude that a later step leaves unsaid in so many words: what it takes back is FREED.
  void AssertMemberState(std::size_t index, std::string_view member, std::string_view word) const override;

private:
  cls_Shared<rgnC_Region> region_;
  cow_String fieldName_;
};

extern template class DDB_API kprC_PropagatingContainer<kloC_Load>;
