#pragma once

#include "module/kor/Rules.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/engine/kprC_Propagator.h"
#include "module/kpr/engine/kprC_StepAttribute.h"

/// A request's record of a step.
using korC_StateQuad = kprC_PropagatingState<korC_OutputState>;
extern template class DDB_API kprC_StepAttribute<korC_Rules>;

/// Base of the two kinds of output requests. The per-step operations, with their refusals, are those of kprC_StepAttribute under the
/// family's rules (Rules.h).
///
/// Whether a request is carried into a step is its creation's to say: the variables, the way of writing and the domain have to fit the
/// step's procedure, or the request rests there.
class DDB_API korC_Output : public cls_Persistent<korC_Output, kprC_TypedAttribute<korC_Rules>> {
public:
  using DomainEnm = korC_DomainTypeEnm;
  using ChannelEnm = korC_OdbChannel::TypeEnm;
  using Identifiers = cow_List<cow_String>;

  static constexpr char const* kModule = "kor";

  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString regionCmd() { return "region"; }
  static constexpr omn_FixedString suppressedCmd() { return "suppressed"; }
  static constexpr omn_FixedString boltLoadCmd() { return "boltLoad"; }
  static constexpr omn_FixedString connectorsCmd() { return "connectors"; }
  static constexpr omn_FixedString interactionsCmd() { return "interactions"; }
  static constexpr omn_FixedString sectionPointsCmd() { return "sectionPoints"; }
  static constexpr omn_FixedString rebarCmd() { return "rebar"; }
  static constexpr omn_FixedString filterCmd() { return "filter"; }
  static constexpr omn_FixedString layupNamesCmd() { return "layupNames"; }
  static constexpr omn_FixedString layupLocationMethodCmd() { return "layupLocationMethod"; }
  static constexpr omn_FixedString outputAtPlyTopCmd() { return "outputAtPlyTop"; }
  static constexpr omn_FixedString outputAtPlyMidCmd() { return "outputAtPlyMid"; }
  static constexpr omn_FixedString outputAtPlyBottomCmd() { return "outputAtPlyBottom"; }

  virtual ChannelEnm Channel() const = 0;
  bool IsHistory() const { return Channel() == korC_OdbChannel::HISTORY; }
  /// What the request is about: the first of bolt load, connectors, interactions, section, layups, surface and set that it names, else
  /// the whole model.
  virtual DomainEnm DomainType() const;
  rgnC_Region const& Region() const { return *region_; }

  /// False for a step that the request does not know.
  bool IsEditable(cow_String const& step) const override { return IsMember(step) && kprC_StepAttribute::IsEditable(step); }
  /// The state in force in \p step; null before the creation.
  korC_OutputState const* ConstGetState(cow_String const& step) const;

  /// Whether what the create step asks for may stand in such a step too.
  bool Admits(kprC_StepFacts step, bool carried) const override;
  bool ValidInStep(kprC_StepFacts step) const { return Admits(step, true); }
  bool ValidInStep(cow_String const& step) const { return IsMember(step) && Admits(Steps().Facts(Steps().Find(step.View())), true); }
  bool ValidInAnalysisProcedure(kprC_Procedure const& step, bool carried) const { return Admits(kprC_StepFacts(&step), carried); }
  /// Makes what the request says of its own in \p step fit the procedure of \p then, as far as it can: takes over how often a new request
  /// writes there, and leaves the variables that it has. False where nothing had to change.
  bool ChangeProcedureType(kprC_Procedure const& then, cow_String const& step);
  bool Adapt(std::size_t index, kprC_StepFacts then) override;
  /// The same for every step as it is: after the steps have changed.
  bool UpdateRecurranceType();
  /// Refuses 68 a record whose status requests do not have.
  void SetStateStatusChecks() const;
  /// Whether a status is an active one, or one that nothing is moved across or onto. Both refuse 55 a status that requests do not have.
  static bool IsActive(mdl_PropagationStatusEnm status) { return kprC_StepAttribute::IsActive(status); }
  static bool IsIllegalMove(mdl_PropagationStatusEnm status) { return kprC_StepAttribute::IsIllegalMove(status); }

  /// Refuses, in this order: 52 in force in the initial step; 18 of a field request in a step that writes no fields; 19 of a history
  /// request in a frequency or buckle step; what does not go together in the request: 71, 72, 73, 10, 63, 62; then of each state what it
  /// refuses itself; 65, 66, 64 variables that the domain or the bars do not have; 17 node or element variables of a history about the
  /// whole model; in the create step 46, in a changed one 45 variables that the step does not have; 43 whatever else does not fit the step.
  /// A step is asked where the status is 1 or 3. Nothing while suppressed.
  using kprC_StepAttribute::AssertValid;
  /// The part of AssertValid that asks of a state: what it refuses itself and what does not go with the request, whatever the step.
  void AssertValid(korC_OutputState const& state) const;
  /// The part that asks of the variables alone: 65, 66, 64, 17.
  void AssertValidVariables(korC_OutputState const& state) const;
  /// Refuses 21 a bolt load that \p model does not have, 22 a load of another type, 23 variables that a bolt load does not have; 59 more
  /// than one connector, 60 more than one interaction, 61 one that is unknown or no contact; 74 a filter and 75 an integrated output
  /// section outside the history of an explicit step; 78 contact variables of elements of an orphan mesh; 79 plies of no layup.
  void AssertInModel(ddr_Model const& model) const override;
  /// Turns a symbol that is not stored into its list for the step, and has the one value that says how often decide about the type. Refuses
  /// 48 an empty list of modes, 58 a symbol that stands for nothing there.
  void Complete(kprC_Arguments& members, kprC_StepFacts step) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(regionCmd(), &korC_Output::region_,
          cls_MemberText{"the set or surface; the whole model without"}.RefersTo(cls_Reference::Region));
    visit(suppressedCmd(), &korC_Output::suppress_, cls_MemberText{"whether the request is suppressed as a whole"}.NotSettable());
    visit("states", &korC_Output::states_, cls_MemberText{"the per-step records"}.NotSettable());
    visit(boltLoadCmd(), &korC_Output::boltLoad_,
          cls_MemberText{"name of the bolt load whose bolt it is about"}.RefersTo(cls_Reference::Load));
    visit(connectorsCmd(), &korC_Output::connectors_,
          cls_MemberText{"name of the connector, in a list"}.RefersTo(cls_Reference::Connector));
    visit(interactionsCmd(), &korC_Output::interactions_,
          cls_MemberText{"name of the contact interaction, in a list"}.RefersTo(cls_Reference::Interaction));
    visit(sectionPointsCmd(), &korC_Output::sectionPoints_,
          cls_MemberText{"numbers of the section points; the section's own choice without"}.Refused(korC_ErrorEnm::SectionPoint));
    visit(rebarCmd(), &korC_Output::rebar_, cls_MemberText{"what is written of reinforcing bars"});
    visit(filterCmd(), &korC_Output::filter_,
          cls_MemberText{"name of the filter that smooths the history"}.RefersTo(cls_Reference::Filter));
    visit(layupNamesCmd(), &korC_Output::layupNames_, cls_MemberText{"names of composite layups"});
    visit(layupLocationMethodCmd(), &korC_Output::layupLocationMethod_,
          cls_MemberText{"where in the plies of the layups"}.Refused(korC_ErrorEnm::LayupLocation));
    visit(outputAtPlyTopCmd(), &korC_Output::outputAtPlyTop_, cls_MemberText{"whether at the top of each ply, where that is SPECIFIED"});
    visit(outputAtPlyMidCmd(), &korC_Output::outputAtPlyMid_, cls_MemberText{"whether in the middle of each ply"});
    visit(outputAtPlyBottomCmd(), &korC_Output::outputAtPlyBottom_, cls_MemberText{"whether at the bottom of each ply"});
  }

protected:
  bool RefusedWhereNotAdmitted() const override { return false; }  // AssertState tells more
  bool CarriedByValues() const override { return true; }
  cow_Handle<kprC_Carrying> Carrying() const override;
  void AssertMembers() const override;
  void AssertWhole() const override;
  void AssertState(korC_OutputState const& state, std::size_t index) const override;
  void AssertOperation(kprC_Effect effect, std::size_t index, std::size_t to) const override;

private:
  DDB_LOCAL korC_OutputState const* CreateState() const;

  cls_Shared<rgnC_Region> region_;
  cow_String boltLoad_, filter_;
  cow_List<cow_String> connectors_, interactions_, layupNames_;
  cow_List<int> sectionPoints_;
  omu_PrimEnum<korC_RebarEnm, 1> rebar_ = korC_RebarEnm::EXCLUDE;
  omu_PrimEnum<korC_LayupLocationEnm, 1> layupLocationMethod_ = korC_LayupLocationEnm::ALL_LOCATIONS;
  bool outputAtPlyTop_ = false, outputAtPlyMid_ = false, outputAtPlyBottom_ = false;
};

/// A request for fields: values over the model or a region at chosen moments.
class DDB_API korC_FieldOutput final : public cls_Persistent<korC_FieldOutput, korC_Output> {
public:
  static constexpr omn_FixedString constructorCmd() { return "FieldOutputRequest"; }
  static constexpr omn_FixedString itemCmd() { return "fieldOutputRequest"; }
  static constexpr omn_FixedString repositoryCmd() { return "fieldOutputs"; }
  static constexpr omn_FixedString directionsCmd() { return "directions"; }
  static std::span<kprC_Constructor<korC_FieldOutput> const> Constructors();

  korC_FieldOutput() = default;
  explicit korC_FieldOutput(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  ChannelEnm Channel() const override { return korC_OdbChannel::FIELD; }
  std::unique_ptr<korC_OutputState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }
  korC_FieldOutputState const* ConstGetState(cow_String const& step) const {
    return static_cast<korC_FieldOutputState const*>(korC_Output::ConstGetState(step));
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    korC_Output::VisitMembers(visit);
    visit(directionsCmd(), &korC_FieldOutput::directions_, cls_MemberText{"whether the material's directions are written too"});
  }

private:
  bool directions_ = true;
};

/// A request for histories: values that are followed through a step.
class DDB_API korC_HistoryOutput final : public cls_Persistent<korC_HistoryOutput, korC_Output> {
public:
  using ContourTypeEnm = korC_ContourTypeEnm;
  using KFactorDirectionEnm = korC_KFactorDirectionEnm;

  static constexpr omn_FixedString constructorCmd() { return "HistoryOutputRequest"; }
  static constexpr omn_FixedString itemCmd() { return "historyOutputRequest"; }
  static constexpr omn_FixedString repositoryCmd() { return "historyOutputs"; }
  static constexpr omn_FixedString integratedOutputSectionCmd() { return "integratedOutputSection"; }
  static constexpr omn_FixedString contourIntegralCmd() { return "contourIntegral"; }
  static constexpr omn_FixedString numberOfContoursCmd() { return "numberOfContours"; }
  static constexpr omn_FixedString contourTypeCmd() { return "contourType"; }
  static constexpr omn_FixedString kFactorDirectionCmd() { return "kFactorDirection"; }
  static constexpr omn_FixedString springsCmd() { return "springs"; }
  static std::span<kprC_Constructor<korC_HistoryOutput> const> Constructors();

  korC_HistoryOutput() = default;
  explicit korC_HistoryOutput(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  ChannelEnm Channel() const override { return korC_OdbChannel::HISTORY; }
  DomainEnm DomainType() const override;
  std::unique_ptr<korC_OutputState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }
  korC_HistoryOutputState const* ConstGetState(cow_String const& step) const {
    return static_cast<korC_HistoryOutputState const*>(korC_Output::ConstGetState(step));
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    korC_Output::VisitMembers(visit);
    visit(integratedOutputSectionCmd(), &korC_HistoryOutput::integratedOutputSection_,
          cls_MemberText{"name of the section over which forces are summed up"}.RefersTo(cls_Reference::IntegratedOutputSection));
    visit(contourIntegralCmd(), &korC_HistoryOutput::contourIntegral_,
          cls_MemberText{"name of the crack whose contour integrals are written"});
    visit(numberOfContoursCmd(), &korC_HistoryOutput::numberOfContours_,
          cls_MemberText{"number of contours around the tip of the crack"}.Refused(korC_ErrorEnm::NumberOfContours));
    visit(contourTypeCmd(), &korC_HistoryOutput::contourType_, cls_MemberText{"what the contours evaluate"});
    visit(kFactorDirectionCmd(), &korC_HistoryOutput::kFactorDirection_,
          cls_MemberText{"criterion for the direction in which the crack grows"});
    visit(springsCmd(), &korC_HistoryOutput::springs_, cls_MemberText{"names of springs and dashpots"});
  }

protected:
  void AssertWhole() const override;

private:
  cow_String integratedOutputSection_, contourIntegral_;
  int numberOfContours_ = 1;
  omu_PrimEnum<ContourTypeEnm, 1> contourType_ = ContourTypeEnm::J_INTEGRAL;
  omu_PrimEnum<KFactorDirectionEnm, 1> kFactorDirection_ = KFactorDirectionEnm::MERR;
  cow_List<cow_String> springs_;
};

extern template class DDB_API kprC_PropagatingContainer<korC_FieldOutput>;
extern template class DDB_API kprC_PropagatingContainer<korC_HistoryOutput>;
