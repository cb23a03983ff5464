#pragma once

#include "framework/mdl_PropList.h"
#include "module/kin/kinC_Interaction.h"
#include "module/kin/kinC_RegionPair.h"
#include "module/kin/kinC_SurfaceValues.h"
#include "platform/BasicUtils/cow_2DArray.h"

/// What general contact says in a step. Each list goes index by index with that of the interaction of the same kind.
class DDB_API kinC_ContactExpState final : public kprC_StateOf<kinC_ContactExpState, kinC_InteractionState> {
public:
  static constexpr omn_FixedString useAllstarCmd() { return "useAllstar"; }

  kinC_ContactExpState() = default;
  explicit kinC_ContactExpState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<bool> useAllstar;
  mdl_PropList<bool> activeIncludedPairs, activeExcludedPairs;
#define DDB_ASSIGNMENT(Kind, Value, regions, values, ...) mdl_PropList<Value> values;
#include "module/kin/kinC_Assignments.def"

  /// Whether the pairs of the included or the excluded domain take part.
  mdl_PropList<bool> const& Active(bool excluded) const { return excluded ? activeExcludedPairs : activeIncludedPairs; }
  mdl_PropList<bool>& Active(bool excluded) { return excluded ? activeExcludedPairs : activeIncludedPairs; }

  /// Refuses 3 an assignment of no property.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_ContactExpState;
    kinC_InteractionState::VisitMembers(visit);
    visit(useAllstarCmd(), &Self::useAllstar,
          cls_MemberText{"whether the included domain is every surface of the model rather than the included pairs"});
    visit("activeIncludedPairs", &Self::activeIncludedPairs,
          cls_MemberText{"whether each of the included pairs takes part in contact"}.NotSettable());
    visit("activeExcludedPairs", &Self::activeExcludedPairs,
          cls_MemberText{"whether each of the excluded pairs is taken out of contact"}.NotSettable());
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, heading, shown, refers, of, meaning) \
  visit(#values, &Self::values, cls_MemberText{meaning}.RefersTo(cls_Reference::refers).NotSettable());
#include "module/kin/kinC_Assignments.def"
  }
};

/// Contact of a whole domain with itself, in explicit procedures: every surface of the model or a list of pairs, without those of
/// another list, and what is assigned to surfaces and pairs. The lists grow and shrink as a whole; which pairs take part and what is
/// assigned is said step by step, and carried on until a later step says something else.
///
/// An element of a list keeps its index over all steps, and is unset in those before the one that adds it. Pairs are the same
/// whichever of their surfaces is the first. What edits a step does nothing, and answers false, where the contact cannot be edited
/// in it; a refused edit leaves it as it was.
///
/// Refuses in addition, of every step: 3 an assignment of no property, 140 a property assigned to a pair while none is assigned to the
/// whole domain.
class DDB_API kinC_ContactExp final : public cls_Persistent<kinC_ContactExp, kinC_Interaction> {
public:
  using SurfaceTypeEnm = kinC_SurfaceTypeEnm;
  using Pairs_ = kinC_RegionPairs;
  template <class V> using Values = cls_xo1DArrayList<mdl_PropAttr<V>>;

  static constexpr omn_FixedString includedPairsCmd() { return "includedPairs"; }
  static constexpr omn_FixedString excludedPairsCmd() { return "excludedPairs"; }
  static constexpr omn_FixedString useAllstarCmd() { return kinC_ContactExpState::useAllstarCmd(); }
  static constexpr omn_FixedString assignmentsCmd() { return "assignments"; }
  static constexpr omn_FixedString indexCmd() { return "index"; }
  static constexpr omn_FixedString indicesCmd() { return "indices"; }
  static constexpr omn_FixedString valueCmd() { return "value"; }
  static constexpr omn_FixedString appendInStepCmd() { return "appendInStep"; }
  static constexpr omn_FixedString changeValuesInStepCmd() { return "changeValuesInStep"; }
  static constexpr omn_FixedString addPairsCmd() { return "addPairs"; }
  static constexpr omn_FixedString removePairsCmd() { return "removePairs"; }
  static constexpr omn_FixedString deleteCmd() { return "deleteAssignments"; }
  static constexpr omn_FixedString reportCmd() { return "report"; }

  kinC_ContactExp() = default;
  explicit kinC_ContactExp(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  std::unique_ptr<kinC_InteractionState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  /// Has pairs take part from a step on, of the included domain or, with \p excluded, of the excluded one. False where there are none
  /// or one takes part already, in this domain or the other. Linear in the pairs.
  bool AddPairs(Pairs_ const& pairs, cow_String const& step, bool excluded);
  /// Takes pairs out from a step on; they keep their places. False where one does not take part.
  bool RemovePairs(Pairs_ const& pairs, cow_String const& step, bool excluded);
  /// Merges the pairs of a domain that are the same into the first of them, which takes part where one did. Refuses 188 to merge one of
  /// geometry with one of mesh.
  void CompressRegionPairs(bool excluded);

  // What is asked of a step refuses 77 one that does not exist. Nothing is in force before the creation.

  /// The names of the pairs of a domain that take part in a step, a row each.
  cow_2DArray<cow_String> Pairs(cow_String const& step, bool excluded) const;
  /// Adds the surfaces of those pairs to \p regions, each once.
  void PairsInStep(cow_String const& step, cls_xoList<rgnC_Region>& regions, bool excluded) const;
  /// The surfaces of all that is in force in a step, each once.
  cls_xoList<rgnC_Region> RegionsInStep(cow_String const& step) const;
  /// Adds the surfaces of the pairs with a part assigned in a step to \p regions, each once.
  void MasterSlaveInStep(cow_String const& step, cls_xoList<rgnC_Region>& regions) const;
  bool WholeModelContact(cow_String const& step) const;
  /// The same for the property; \p global becomes the name of that of the whole domain, which is among the rows where \p withGlobal
  /// says so.
  cow_2DArray<cow_String> ContactProperty(cow_String const& step, cow_String& global, bool withGlobal) const;
  cow_String InteractionProperty(cow_String const& step) const override;

  // For each kind: Append<kind> adds assignments in a step, as many as there are values; Change<kind> gives the one at an index,
  // which has to be in force there, another value from a step on; Delete<kind> takes those of some indices out of all steps, false where
  // one does not exist; <kind> lists what is in force in a step: the names of the regions, and the value.
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...)                                                         \
  static constexpr omn_FixedString regions##Cmd() { return #regions; }                                                     \
  static constexpr omn_FixedString command##Cmd() { return #command; }                                                     \
  bool Append##Kind(cow_String const& step, Pairs_ const& pairs, Values<Value> const& given) {                             \
    return Append(k##Kind, step, pairs, given);                                                                            \
  }                                                                                                                        \
  bool Change##Kind(cow_String const& step, int index, Value const& value) { return Change(k##Kind, step, index, value); } \
  bool Delete##Kind(cow_1DArrayList<int> const& indices) { return Delete(k##Kind, indices); }                              \
  cow_2DArray<cow_String> Kind(cow_String const& step) const { return Listed(k##Kind, step); }
#include "module/kin/kinC_Assignments.def"

  /// The state in force in a step; refuses 1 where there is none. What is changed through GetState becomes the step's own.
  kinC_ContactExpState const& ConstGetState(cow_String const& step) const;
  kinC_ContactExpState& GetState(cow_String const& step);

  /// Edits that make the lists: each element where it is said first, in the order of the places, then what later steps say.
  void ForEachTypeEdit(EditVisitor const& visit) const override;

  /// The domains and the assignments of every step in which the contact is active. As long as the lists are over all steps.
  atr_String Report() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_ContactExp;
    kinC_Interaction::VisitMembers(visit);
    visit(includedPairsCmd(), &Self::includedPairs_, cls_MemberText{"the pairs that may touch"}.NotSettable());
    visit(excludedPairsCmd(), &Self::excludedPairs_, cls_MemberText{"the pairs that are taken out"}.NotSettable());
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, heading, shown, refers, of, ...) \
  visit(regions##Cmd(), &Self::regions##_, cls_MemberText{of}.NotSettable());
#include "module/kin/kinC_Assignments.def"
  }

protected:
  void AssertState(kinC_InteractionState const& state, std::size_t index) const override;

private:
  using State_ = kinC_ContactExpState;

  /// A kind of assignments: where the pairs stand, and where in the states the values; how many surfaces of a pair are shown.
  template <class V> struct AssignmentsOf {
    Pairs_ kinC_ContactExp::*pairs;
    mdl_PropList<V> State_::*values;
    std::size_t shown;
  };
  struct Place;
  class Places;

  template <class V> bool Append(AssignmentsOf<V> const& kind, cow_String const& step, Pairs_ const& pairs, Values<V> const& values);
  template <class V> bool Change(AssignmentsOf<V> const& kind, cow_String const& step, int index, V const& value);
  template <class V> bool Delete(AssignmentsOf<V> const& kind, cow_1DArrayList<int> const& indices);
  template <class V> cow_2DArray<cow_String> Listed(AssignmentsOf<V> const& kind, cow_String const& step) const;
  template <class V> std::string Reported(AssignmentsOf<V> const& kind, std::string_view heading) const;
  std::string Reported(bool excluded, std::string_view heading) const;
  /// Calls \p fn(state) with the state in force in every step in which the contact is active, and adds what it answers behind the step.
  template <class Fn> std::string ReportedByStep(std::string_view heading, Fn&& fn) const;

  Pairs_ const& Domain(bool excluded) const { return excluded ? excludedPairs_ : includedPairs_; }
  Pairs_& Domain(bool excluded) { return excluded ? excludedPairs_ : includedPairs_; }
  /// Where the pairs of a domain stand that \p pairs ask for; false where nothing can be edited or a pair is asked for twice.
  DDB_LOCAL bool Find(Pairs_ const& pairs, cow_String const& step, bool excluded, Places& places) const;
  /// The state in force in a step, null before the creation.
  DDB_LOCAL State_ const* InForce(cow_String const& step) const;
  /// Has \p edit change the state of a step in which the contact can be edited, and \p list with it; both stay where that is refused.
  template <class Fn> void EditIn(cow_String const& step, Pairs_& list, Fn&& edit);
  /// Has \p edit change every own state, and \p list with it.
  template <class Fn> void EditAll(Pairs_& list, Pairs_ changed, Fn&& edit);

  DDB_LOCAL void TellPairs(EditVisitor const& visit) const;

  Pairs_ includedPairs_, excludedPairs_;
#define DDB_ASSIGNMENT(Kind, Value, regions, ...) Pairs_ regions##_;
#include "module/kin/kinC_Assignments.def"
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, heading, shown, ...) \
  static constexpr AssignmentsOf<Value> k##Kind{&kinC_ContactExp::regions##_, &State_::values, shown};
#include "module/kin/kinC_Assignments.def"
};
