#include "module/kbc/kbcC_BC.h"

#include "module/kpr/kprC_Procedures.h"
#include "module/kpr/kprC_Step.h"

template class kprC_History<kbcC_StepRules>;
template class kprC_StepAttribute<kbcC_StepRules>;

cow_1DArrayList<cow_String> kbcC_BC::Amplitudes() const {
  cow_Map<cow_String, bool> seen;
  cow_1DArrayList<cow_String> names;
  for (auto const& own : States().Own()) {
    cow_String const& name = own.state->amplitude.ConstGet();
    if (own.state->amplitude.HasValue() && !name.IsEmpty() && seen.Insert(name, true)) { names.Append(name); }
  }
  return names;
}

cls_xoList<rgnC_Region> kbcC_BC::Regions(rgnC_RegionType type) const {
  cls_xoList<rgnC_Region> regions;
  if (region_ && region_.Type() == type) { regions.Append(region_); }
  return regions;
}

bool kbcC_BC::ValidInALoadCase(cow_String const& step, bool raise) const {
  auto const holds = [raise](bool condition, kbcC_ErrorEnm code) {
    if (raise) { kbcC_Assert(condition, code); }
    return condition;
  };
  return holds(!suppress_ && IsMember(step) && IsActive(Status(step)), kbcC_ErrorEnm::LoadCaseNotActive) &&
         holds(AllowedInALoadCase() || NYIForLoadCase(), kbcC_ErrorEnm::LoadCaseType) &&
         holds(!NYIForLoadCase(), kbcC_ErrorEnm::LoadCaseNotSupported);
}

bool kbcC_BC::ValidInStep(unsigned procedureType, bool carried, bool /*isInitial*/, bool /*isExplicit*/) const {
  return kbcC_isValidBCTypeforStep(DynTypeId(), procedureType) || ValidByOwnRule(procedureType, carried);
}

bool kbcC_BC::ValidInStep(kprC_Step const& step, bool carried, bool isInitial, bool isExplicit) const {
  return ValidInStep(kprC_ProcedureTypeOf(&step), carried, isInitial, isExplicit);
}

bool kbcC_BC::ValidInStepButRelaxCheckOnInitial(unsigned procedureType, bool carried) const {
  return ValidInStep(procedureType, carried, procedureType == 0, procedureType != 0 && kprC_IsExplicit(procedureType));
}

bool kbcC_BC::Insert(cow_String const& step, kbcC_BCState const& state) {
  std::size_t const index = States().Find(step.View());
  if (index != kprC_StepTable::npos || States().Size() == 0) { AssertComponentState(index, state.IsConditionModified(), false); }
  return kprC_StepAttribute::Insert(step, state);
}

void kbcC_BC::AssertComponentState(std::size_t index, bool freed, bool unset) const {
  bool const creation = index == kprC_StepTable::npos || StatusAt(index) == mdl_PropagationStatusEnm::Created;
  if (creation) { return kbcC_Assert(!freed, kbcC_ErrorEnm::CreateStepComponent); }
  bool const active = IsActive(StatusAt(index));
  kbcC_Assert(active || !(freed || unset), kbcC_ErrorEnm::ComponentFreedOrUnset);
  kbcC_Assert(!unset, kbcC_ErrorEnm::ComponentUnset);
}

void kbcC_BC::AssertMemberState(std::size_t index, std::string_view /*member*/, std::string_view word) const {
  AssertComponentState(index, word == "FREED", word == "UNSET");
}

void kbcC_BC::AssertValid() const {
  if (suppress_) { return; }
  kbcC_Assert(!UsesField() || !fieldName_.IsEmpty(), kbcC_ErrorEnm::FieldNameMissing);
  // What is carried rests where its type is not admitted, and holds nothing that its source does not: the own records
  // are the ones to ask.
  for (auto const& own : States().Own()) {
    bool const anneal = Steps().ProcedureType(own.index) == kprC_ProcedureType::Anneal;
    kbcC_Assert(!anneal || !IsActive(own.status), kbcC_ErrorEnm::AnnealStep);
  }
  for (auto const& own : States().Own()) {
    bool const carried = own.status != mdl_PropagationStatusEnm::Created;
    kbcC_Assert(!IsActive(own.status) || Admits(Steps().ProcedureType(own.index), carried), kbcC_ErrorEnm::InvalidStep);
  }
  for (auto const& own : States().Own()) {
    if (IsActive(own.status)) { AssertState(*own.state, Steps()[own.index].procedure && Steps().ProcedureType(own.index) == 0); }
  }
}

std::string_view kbcC_BC::MemberName(std::string_view command) const {
  if (command == csysCmd()) { return "csys"; }
  return command == distributionTypeCmd() ? distributionCmd().View() : command;
}

void kbcC_BC::Refuse(kprC_EditRefusal refusal) {
  kbcC_Assert(false, kbcC_StepRules::Edit(refusal));
  std::abort();  // not reached: the refusal is raised above
}

void kbcC_BC::RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const {
  if (text.refusal >= 0) { kbcC_Assert(false, static_cast<kbcC_ErrorEnm>(text.refusal)); }
  kprC_StepAttribute::RefuseValue(name, text, expected);
}
