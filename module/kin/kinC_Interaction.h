#pragma once

#include "module/kin/Rules.h"
#include "module/kin/kinC_InteractionState.h"
#include "module/kin/kinC_Names.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/engine/kprC_Propagator.h"
#include "module/kpr/engine/kprC_StepAttribute.h"
#include "module/kpr/family/kprC_TypeOf.h"

/// An interaction's record of a step.
using kinC_StateQuad = kprC_PropagatingState<kinC_InteractionState>;
extern template class DDB_API kprC_StepAttribute<kinC_Rules>;

/// Base of every interaction. The per-step operations, with their refusals, are those of kprC_StepAttribute under the
/// family's rules (Rules.h); a type adds its members, its state and what it alone refuses.
///
/// AssertValid refuses, in this order: what the type refuses of its create step, 32 in a step that does not admit it where
/// that is refused, what it refuses as a whole, and what each state of a step with the status 1, 2 or 3 refuses. Nothing while suppressed.
class DDB_API kinC_Interaction : public cls_Persistent<kinC_Interaction, kprC_TypedAttribute<kinC_Rules>>, public kinC_InteractionNames {
public:
  static constexpr char const* kModule = "kin";
  static constexpr cls_Reference kReference = cls_Reference::Interaction;  ///< as what others name them
  /// The construction commands of the family.
  static std::span<kprC_Constructor<kinC_Interaction> const> Constructors();
  /// Those of lists.
  static std::span<kprC_TypeEdit const> TypeEdits();

  static constexpr omn_FixedString interactionCmd() { return "interaction"; }
  static constexpr omn_FixedString itemCmd() { return interactionCmd(); }
  static constexpr omn_FixedString interactionRepositoryCmd() { return "interactions"; }
  static constexpr omn_FixedString fieldNameCmd() { return "fieldName"; }

  /// False for a step that the interaction does not know.
  bool IsEditable(cow_String const& step) const override { return IsMember(step) && kprC_StepAttribute::IsEditable(step); }
  mdl_PropagationStatusEnm GetPropStatus(cow_String const& step) const { return Status(step); }
  /// Whether the status says that something changes in its step.
  static bool IsModified(Status_ status) { return ChangedInStep(status); }
  bool IsModified(cow_String const& step) const { return IsModified(Status(step)); }
  /// The name of the interaction property in force in \p step, for general contact that of the whole domain; empty where there is none.
  virtual cow_String InteractionProperty(cow_String const& step) const;
  /// The sets of nodes among the regions in contact; none for a type that is no contact.
  virtual cls_xoList<rgnC_Region> ConstGetContactNodeSets() const { return {}; }
  /// Whether a named field distributes the values, and its name.
  virtual bool UsesField(cow_String& /*name*/) const { return false; }

  /// The type's own rule for steps that its row does not grant; \p allowPerturbation where it is carried into them.
  bool ValidInStepSpecialRule(unsigned procedureType, bool allowPerturbation) const {
    return ValidByOwnRule(procedureType, allowPerturbation);
  }
  /// The status in which a step is entered with \p status.
  mdl_PropagationStatusEnm CheckForNonPropagation(mdl_PropagationStatusEnm status) const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(suppressedCmd(), &kinC_Interaction::suppress_, cls_MemberText{"whether the interaction is suppressed as a whole"}.NotSettable());
    visit("states", &kinC_Interaction::states_, cls_MemberText{"the per-step records"}.NotSettable());
  }

protected:
  static constexpr std::size_t kFirstAnalysisStep = 1;  // behind the initial step

  bool ValidByOwnRule(unsigned procedureType, bool carried) const override;
  void AssertMembers() const final;
  void AssertState(kinC_InteractionState const& state, std::size_t index) const override;
  /// What the type refuses of its create step, at \p index.
  virtual void AssertCreateStep(std::size_t /*index*/) const {}
  /// Refuses \p code a record of its own with \p status, whatever the step.
  void AssertNoOwn(mdl_PropagationStatusEnm status, kinC_ErrorEnm code) const;
  /// Whether every step behind the initial one is integrated explicitly in time, and there is one.
  bool IsInExplicitAnalysis() const;
};

extern template class DDB_API kprC_PropagatingContainer<kinC_Interaction>;
