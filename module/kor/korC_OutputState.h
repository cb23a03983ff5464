#pragma once

#include "module/kor/korC_OdbRequestSpec.h"
#include "module/kor/korC_Variables.h"
#include "module/kor/korC_assert.h"
#include "module/kpr/family/kprC_RefusingState.h"
#include "module/kpr/procedures/kprC_OutputFrequency.h"
#include "platform/BasicUtils/cls_xoList.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// How often a new request of a step of \p procedureType writes, under an empty name: every increment, 20 or 200 times in explicit steps,
/// for all modes.
DDB_API korC_OdbRequest korC_DefaultFrequency(unsigned procedureType, korC_OdbChannel::TypeEnm channel);

/// What an output request asks for in a step: base of the states of the two kinds. Which of the values says how often it writes is
/// "type"; the others have no effect.
class DDB_API korC_OutputState : public kprC_StateOf<korC_OutputState, kprC_RefusingState<&korC_Assert>> {
public:
  using Identifiers = cow_List<cow_String>;
  using ChannelEnm = korC_OdbChannel::TypeEnm;
  using DomainEnm = korC_DomainTypeEnm;

  static constexpr omn_FixedString variablesCmd() { return "variables"; }
  static constexpr omn_FixedString typeCmd() { return "type"; }
  static constexpr omn_FixedString frequencyCmd() { return "frequency"; }
  static constexpr omn_FixedString numIntervalsCmd() { return "numIntervals"; }
  static constexpr omn_FixedString timeIntervalCmd() { return "timeInterval"; }
  static constexpr omn_FixedString modesCmd() { return "modes"; }
  static constexpr omn_FixedString timePointCmd() { return "timePoint"; }
  static constexpr omn_FixedString timeMarksCmd() { return "timeMarks"; }
  static constexpr omn_FixedString deactivateCmd() { return "deactivate"; }

  korC_OutputState() = default;
  explicit korC_OutputState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<korC_Variables> variables;
  mdl_PropAttr<korC_FrequencyType> type;
  mdl_PropAttr<int> frequency, numIntervals;
  mdl_PropAttr<double> timeInterval;
  mdl_PropAttr<cow_List<int>> modes;  ///< all of them where it is empty
  mdl_PropAttr<cow_String> timePoint;
  mdl_PropAttr<bool> timeMarks;

  /// Where the values go. The base has no answer of its own.
  virtual ChannelEnm Channel() const { return korC_OdbChannel::FIELD; }
  bool IsHistory() const { return Channel() == korC_OdbChannel::HISTORY; }

  /// Refuses by the type 49 a frequency below 1, 3 less than 1 interval, 50 a negative interval of time, 9 a mode below 1, 77 no name of
  /// points of time, 11 any other type; then, where no variables are listed, 54 that there are none and 57 a symbol other than PRESELECT
  /// and CONTACT_PRESELECT; 12 and 13 a key that no row of the table of variables knows.
  void AssertValid() const override;

  /// Whether a request may say how often it writes in that way in such a step.
  bool ValidOutputType(korC_TypeEnm way, kprC_StepFacts step) const;
  bool ValidOutputType(korC_TypeEnm way, kprC_Procedure const& step) const { return ValidOutputType(way, kprC_StepFacts(&step)); }
  /// Whether all of it may stand in such a step, in a request about that domain: variables, type, time marks.
  bool ValidInAnalysisProcedure(kprC_StepFacts step, DomainEnm domain) const;
  /// \p inSet: of a request about a set, else about the whole model.
  bool ValidInAnalysisProcedure(kprC_Procedure const& step, bool inSet) const {
    return ValidInAnalysisProcedure(kprC_StepFacts(&step), inSet ? DomainEnm::SET : DomainEnm::WHOLE_MODEL);
  }
  /// Whether the way of writing may stand in such a step, whatever the variables.
  bool ValidFrequency(kprC_StepFacts step) const;
  /// The procedures in whose steps the variables may be asked for. Linear in their list; a symbol may be anywhere.
  kprC_ProcedureSet ValidProcedures(DomainEnm domain) const;
  /// The keys of the list, or of \p list, that a step of \p procedureType has not.
  Identifiers GetInvalidVariables(unsigned procedureType, DomainEnm domain = DomainEnm::WHOLE_MODEL) const;
  Identifiers GetInvalidVariables(Identifiers const& list, unsigned procedureType, DomainEnm domain = DomainEnm::WHOLE_MODEL) const;

  /// Puts the list in the place of the symbol; \p inSet as above. False, and nothing has changed, where there is no symbol, or one that
  /// stands for nothing there.
  bool ConvertSymbolToVariables(unsigned procedureType, bool inSet);
  /// Puts a symbol in the place of a list that has just what it stands for.
  bool ConvertVariablesToSymbol(unsigned procedureType, bool inSet);
  /// Takes over how often a new request writes there where this one may not write as it does; where it may, but not at exact times,
  /// that it does not. False where nothing has to change.
  bool ChangeFrequencyType(kprC_StepFacts step);
  bool ChangeFrequencyType(kprC_Procedure const& step) { return ChangeFrequencyType(kprC_StepFacts(&step)); }
  /// Makes it one that may stand in such a step, as far as it can: ChangeFrequencyType, and only the variables that the step has.
  bool ChangeProcedureType(kprC_StepFacts step, DomainEnm domain);
  bool ChangeProcedureType(kprC_Procedure const& step, bool inSet) {
    return ChangeProcedureType(kprC_StepFacts(&step), inSet ? DomainEnm::SET : DomainEnm::WHOLE_MODEL);
  }
  /// Leaves the variables that a step of \p procedureType has; where it has none of them the list stays as it is.
  bool ReconstructVariables(unsigned procedureType, DomainEnm domain = DomainEnm::WHOLE_MODEL);

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(deactivateCmd(), &korC_OutputState::switchedOff_,
          cls_MemberText{"whether the request is switched off in the step"}.NotSettable());
    visit(variablesCmd(), &korC_OutputState::variables,
          cls_MemberText{"the variables: a list of keys and components, or a symbol"}.Refused(korC_ErrorEnm::UnknownVariable));
    visit(typeCmd(), &korC_OutputState::type,
          cls_MemberText{"in which way it is said how often values are written"}.Refused(korC_ErrorEnm::FrequencyType));
    visit(frequencyCmd(), &korC_OutputState::frequency, cls_MemberText{"every so many increments"});
    visit(numIntervalsCmd(), &korC_OutputState::numIntervals, cls_MemberText{"at so many equal parts of the step's time"});
    visit(timeIntervalCmd(), &korC_OutputState::timeInterval,
          cls_MemberText{"the time between two of them; 0 for every increment", "time"}.Refused(korC_ErrorEnm::TimeIntervalValue));
    visit(modesCmd(), &korC_OutputState::modes,
          cls_MemberText{"the modes that are written; all of them while none is listed"}.Refused(korC_ErrorEnm::EigenmodeNumber));
    visit(timePointCmd(), &korC_OutputState::timePoint,
          cls_MemberText{"name of the points of time at which values are written"}.RefersTo(cls_Reference::TimePoint));
    visit(timeMarksCmd(), &korC_OutputState::timeMarks,
          cls_MemberText{"whether values are written at the exact times, to which the increments are fitted"});
  }

protected:
  /// What a new request asks for.
  void Begin(unsigned procedureType, ChannelEnm channel);
  void TakeFrequency(korC_OdbRequest const& often);
};

class DDB_API korC_FieldOutputState final : public kprC_StateOf<korC_FieldOutputState, korC_OutputState> {
public:
  explicit korC_FieldOutputState(unsigned procedureType = 0) { Begin(procedureType, korC_OdbChannel::FIELD); }
  explicit korC_FieldOutputState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  ChannelEnm Channel() const override { return korC_OdbChannel::FIELD; }
  template <class V> static constexpr void VisitMembers(V&& visit) { korC_OutputState::VisitMembers(visit); }
};

class DDB_API korC_HistoryOutputState final : public kprC_StateOf<korC_HistoryOutputState, korC_OutputState> {
public:
  explicit korC_HistoryOutputState(unsigned procedureType = 0) { Begin(procedureType, korC_OdbChannel::HISTORY); }
  explicit korC_HistoryOutputState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  ChannelEnm Channel() const override { return korC_OdbChannel::HISTORY; }
  template <class V> static constexpr void VisitMembers(V&& visit) { korC_OutputState::VisitMembers(visit); }
};
