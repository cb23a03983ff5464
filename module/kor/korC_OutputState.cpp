#include "module/kor/korC_OutputState.h"

#include <algorithm>

#include "module/kor/korC_OdbRequestTable.h"

namespace {
constexpr int kFieldIntervals = 20, kHistoryIntervals = 200;

korC_DomainTypeEnm DomainOf(bool inSet) { return inSet ? korC_DomainTypeEnm::SET : korC_DomainTypeEnm::WHOLE_MODEL; }
}  // namespace

korC_OdbRequest korC_DefaultFrequency(unsigned procedureType, korC_OdbChannel::TypeEnm channel) {
  korC_OdbRequest often;
  if (kprC_explicitOutput.Contains(procedureType)) {
    often.type = korC_TypeEnm::NUMBER_INTERVALS;
    often.numIntervals = channel == korC_OdbChannel::FIELD ? kFieldIntervals : kHistoryIntervals;
  } else if (kprC_modalOutput.Contains(procedureType)) {
    often.type = korC_TypeEnm::MODES;
  }
  return often;
}

void korC_OutputState::Begin(unsigned procedureType, ChannelEnm channel) {
  variables = korC_Variables(korC_VariablesTypeEnm::PRESELECT);
  TakeFrequency(korC_DefaultFrequency(procedureType, channel));
}

void korC_OutputState::TakeFrequency(korC_OdbRequest const& often) {
  using enum korC_TypeEnm;
  auto const take = [&often](auto& member, korC_TypeEnm way, auto value) {
    if (often.type == way) {
      member = std::move(value);
    } else if (member.HasValue()) {
      member = mdl_PropAttributeStateEnm::Unset;
    }
  };
  type = korC_FrequencyType(often.type);
  take(frequency, FREQUENCY, often.frequency);
  take(numIntervals, NUMBER_INTERVALS, often.numIntervals);
  take(timeInterval, TIME_INTERVAL, often.timeInterval);
  take(modes, MODES, often.modes);
  take(timePoint, TIME_POINT, often.timePoint);
}

void korC_OutputState::AssertValid() const {
  bool const isMode = std::ranges::all_of(modes.ConstGet(), [](int mode) { return mode >= 1; });
  switch (type.HasValue() ? static_cast<korC_TypeEnm>(type.ConstGet()) : korC_TypeEnm::INVALID) {
    case korC_TypeEnm::FREQUENCY: korC_Assert(frequency.ConstGet() >= 1, korC_ErrorEnm::Frequency); break;
    case korC_TypeEnm::NUMBER_INTERVALS: korC_Assert(numIntervals.ConstGet() >= 1, korC_ErrorEnm::NumberOfIntervals); break;
    case korC_TypeEnm::TIME_INTERVAL: korC_Assert(timeInterval.ConstGet() >= 0.0, korC_ErrorEnm::TimeInterval); break;
    case korC_TypeEnm::MODES: korC_Assert(isMode, korC_ErrorEnm::EigenmodeNumber); break;
    case korC_TypeEnm::TIME_POINT: korC_Assert(!timePoint.ConstGet().IsEmpty(), korC_ErrorEnm::NoTimePoint); break;
    case korC_TypeEnm::INVALID: korC_Assert(false, korC_ErrorEnm::FrequencyType);
  }
  korC_Variables const& asked = variables.ConstGet();
  if (!asked.IsList()) {
    using enum korC_VariablesTypeEnm;
    korC_Assert(asked.Symbol() != NO_OUTPUT_VARIABLES, korC_ErrorEnm::NoVariables);
    korC_Assert(asked.Symbol() == PRESELECT || asked.Symbol() == CONTACT_PRESELECT, korC_ErrorEnm::UnsupportedSymbol);
    return;
  }
  korC_OdbRequestTable const& table = korC_OdbRequestTable::Instance();
  for (cow_String const& key : asked.Keys()) { table.AssertKnown(key.View()); }
}

bool korC_OutputState::ValidOutputType(korC_TypeEnm way, kprC_StepFacts step) const {
  switch (way) {
    case korC_TypeEnm::FREQUENCY: return kprC_OutputFrequencyIsAllowed(step.procedureType, IsHistory());
    case korC_TypeEnm::NUMBER_INTERVALS: return kprC_NumberIntervalIsAllowed(step);
    case korC_TypeEnm::TIME_INTERVAL: return kprC_TimeIntervalIsAllowed(step.procedureType);
    case korC_TypeEnm::MODES: return kprC_ModesIsAllowed(step.procedureType);
    case korC_TypeEnm::TIME_POINT: return kprC_TimePointIsAllowed(step.procedureType, IsHistory());
    case korC_TypeEnm::INVALID: break;
  }
  return false;
}

bool korC_OutputState::ValidFrequency(kprC_StepFacts step) const {
  if (IsHistory() && kprC_noHistoryOutput.Contains(step.procedureType)) { return false; }
  bool const marks = timeMarks.HasValue() && timeMarks.ConstGet();
  if (marks && !kprC_TimeMarksIsAllowed(step.procedureType, IsHistory())) { return false; }
  return type.HasValue() && ValidOutputType(type.ConstGet(), step);
}

bool korC_OutputState::ValidInAnalysisProcedure(kprC_StepFacts step, DomainEnm domain) const {
  return ValidFrequency(step) && ValidProcedures(domain).Contains(step.procedureType);
}

kprC_ProcedureSet korC_OutputState::ValidProcedures(DomainEnm domain) const {
  kprC_ProcedureSet procedures = domain == DomainEnm::GENERAL_CONTACT_SURFACE ? kprC_explicitOutput : kprC_anyOutput;
  korC_Variables const& asked = variables.ConstGet();
  if (!asked.IsList()) { return procedures; }
  korC_OdbRequestTable const& table = korC_OdbRequestTable::Instance();
  for (cow_String const& key : asked.Keys()) { procedures = procedures & table.Procedures(key.View(), Channel(), domain); }
  return procedures;
}

korC_OutputState::Identifiers korC_OutputState::GetInvalidVariables(unsigned procedureType, DomainEnm domain) const {
  return GetInvalidVariables(variables.ConstGet().Keys(), procedureType, domain);
}

korC_OutputState::Identifiers korC_OutputState::GetInvalidVariables(Identifiers const& list, unsigned procedureType,
                                                                    DomainEnm domain) const {
  if (list.Size() == 0) { return {}; }
  return korC_OdbRequestTable::Instance().GetInvalidIdentifiers(list, procedureType, Channel(), domain);
}

bool korC_OutputState::ConvertSymbolToVariables(unsigned procedureType, bool inSet) {
  korC_Variables const& asked = variables.ConstGet();
  if (asked.IsList() || asked.Symbol() == korC_VariablesTypeEnm::NO_OUTPUT_VARIABLES) { return false; }
  Identifiers keys = korC_VariablesOf(asked.Symbol(), procedureType, Channel(), DomainOf(inSet));
  if (keys.Size() == 0) { return false; }
  variables = korC_Variables(std::move(keys));
  return true;
}

bool korC_OutputState::ConvertVariablesToSymbol(unsigned procedureType, bool inSet) {
  korC_Variables const& asked = variables.ConstGet();
  if (!asked.IsList()) { return false; }
  auto const sorted = [](Identifiers const& keys) {
    std::vector<cow_String> list(keys.begin(), keys.end());
    std::ranges::sort(list);
    return list;
  };
  std::vector<cow_String> const listed = sorted(asked.Keys());
  for (auto const& row : omu_EnumTable<korC_VariablesTypeEnm>::rows) {
    auto const symbol = static_cast<korC_VariablesTypeEnm>(row.value);
    if (row.text == nullptr || symbol == korC_VariablesTypeEnm::NO_OUTPUT_VARIABLES) { continue; }
    if (sorted(korC_VariablesOf(symbol, procedureType, Channel(), DomainOf(inSet))) == listed) {
      variables = korC_Variables(symbol);
      return true;
    }
  }
  return false;
}

bool korC_OutputState::ChangeFrequencyType(kprC_StepFacts step) {
  korC_OdbRequest const often = korC_DefaultFrequency(step.procedureType, Channel());
  bool const allowed = type.HasValue() && ValidOutputType(type.ConstGet(), step);
  bool const marks = timeMarks.HasValue() && timeMarks.ConstGet();
  if (!allowed) {
    if (!ValidOutputType(often.type, step)) { return false; }
    TakeFrequency(often);
    if (timeMarks.HasValue()) { timeMarks = false; }
    return true;
  }
  if (!marks || kprC_TimeMarksIsAllowed(step.procedureType, IsHistory())) { return false; }
  timeMarks = false;
  return true;
}

bool korC_OutputState::ReconstructVariables(unsigned procedureType, DomainEnm domain) {
  Identifiers const listed = variables.ConstGet().Keys();
  Identifiers valid = korC_OdbRequestTable::Instance().Filter(listed, procedureType, Channel(), domain);
  if (valid.Size() == 0 || valid.Size() == listed.Size()) { return false; }
  variables = korC_Variables(std::move(valid));
  return true;
}

bool korC_OutputState::ChangeProcedureType(kprC_StepFacts step, DomainEnm domain) {
  bool const often = ChangeFrequencyType(step);
  return ReconstructVariables(step.procedureType, domain) || often;
}
