#include "command/Hints.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include "command/Members.h"
#include "command/Words.h"
#include "framework/Refusal.h"
#include "module/kor/korC_OdbRequestTable.h"
#include "module/kor/korC_Output.h"
#include "module/kpr/kprC_assert.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "module/kpr/steps/kprC_StepParameters.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr std::size_t npos = kprC_StepTable::npos;

std::string Named(kprC_StepTable const& steps, std::size_t index) { return Quoted(steps.Name(index).View()); }

/// 'It is built in there (held by the modes: neither active nor editable).'
std::string StatusText(kprC_StepDependent const& item, std::size_t index) {
  StatusWord const& word = WordOf(item.StatusAt(index));
  if (item.StatusAt(index) == mdl_PropagationStatusEnm::NotYetCreated) {
    cow_String const begins = item.CreateStepName();
    return "It is not yet created there" + (begins.IsEmpty() ? "." : ": it begins in " + Quoted(begins.View()) + ".");
  }
  std::string_view const format = item.StatusFormat();
  if (format.empty()) { return "It is " + std::string(word.word) + " there (" + std::string(word.meaning) + ")."; }
  atr_String const status = atr_SubstituteFormat(atr_translate(std::string(format).c_str()), {word.word, item.Steps().Name(index).View()});
  return std::string(status.View()) + " (" + std::string(word.meaning) + ")";
}

/// The nearest step before \p index, or else behind it, in which the attribute can be edited.
std::size_t NearestEditable(kprC_StepDependent const& item, std::size_t index) {
  kprC_StepTable const& steps = item.Steps();
  for (std::size_t at = index; at-- > 0;) {
    if (item.IsEditable(steps.Name(at))) { return at; }
  }
  for (std::size_t at = index + 1; at < steps.Size(); ++at) {
    if (item.IsEditable(steps.Name(at))) { return at; }
  }
  return npos;
}

/// The first step from \p begin to \p end in which the attribute says something that a move may not pass.
std::size_t FirstInTheWay(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, std::size_t begin, std::size_t end) {
  for (std::size_t at = begin; at < end; ++at) {
    if ((repository.Statuses()[static_cast<std::size_t>(item.StatusAt(at))] & kprC_IllegalMove) != 0) { return at; }
  }
  return npos;
}

/// Of steps with nlgeom off behind one that has it on.
std::string NlgeomHint(kprC_StepTable const& steps) {
  for (std::size_t i = 1; i < steps.Size(); ++i) {
    auto const* step = dynamic_cast<kprC_Step const*>(steps[i].procedure.ConstGet());
    if (step == nullptr || step->Nlgeom() != kprC_Step::NlgeomEnm::ON) { continue; }
    return R"(It is "OFF" where it is left out, and "ON" since )" + Named(steps, i) + R"(: give "nlgeom": "ON".)";
  }
  return {};
}

/// The step module's refusal of \p step's parameters; -1 where there is none.
int CodeOf(kprC_Step const& step) {
  try {
    step.AssertValid();
  } catch (std::exception const& error) { return RefusalOf(error).code; }
  return -1;
}

/// Of a list that is to blame: the element with which \p step comes to be refused so, and what it says.
std::string ElementHint(kprC_Step const& step, int code) {
  for (cls_MemberInfo const& info : ClassOf(step).members) {
    if (!info.many || info.kind != cls_MemberKind::Object) { continue; }
    cls_Value const value = step.Member(info.name);
    auto const& list = *value.As<cls_Value::List>();
    std::unique_ptr<cls_Object> const copy = step.Copy();
    auto& trial = dynamic_cast<kprC_Step&>(*copy);
    auto const isRefused = [&](std::size_t count) {
      trial.SetMember(info.name, cls_Value::List(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(count)));
      return CodeOf(trial) == code;
    };
    if (list.empty() || isRefused(0)) { continue; }
    std::size_t taken = 0, refused = list.size();
    while (refused - taken > 1) {
      std::size_t const middle = taken + (refused - taken) / 2;
      (isRefused(middle) ? refused : taken) = middle;
    }
    return "Number " + std::to_string(refused) + " of " + Quoted(info.name) + " is " + JsonText(list[refused - 1]) + ".";
  }
  return {};
}

/// What parameters must be where the refusal alone does not say it.
std::string_view Wanted(kprC_ErrorEnm code) {
  using enum kprC_ErrorEnm;
  switch (code) {
    case FrequencyRangeValues: return R"(Expected 0 <= "lower" <= "upper".)";
    case RandomResponseRange: return R"(Expected 0 < "lower" < "upper".)";
    case TemperatureDifference:
      return R"(Automatic increments of a transient want "deltmx" above 0: the largest change of temperature in one.)";
    default: return {};
  }
}

}  // namespace

std::string StatusHint(kprC_StepDependent const& item, cow_String const& step) {
  std::size_t const index = item.Steps().Find(step.View());
  return index == npos ? std::string() : StatusText(item, index);
}

std::string NotEditableHint(kprC_StepDependent const& item, cow_String const& step) {
  std::size_t const index = item.Steps().Find(step.View());
  if (index == npos) { return {}; }
  if (item.StatusAt(index) == mdl_PropagationStatusEnm::NotYetCreated) { return StatusText(item, index); }
  std::size_t const editable = NearestEditable(item, index);
  std::string const instead = editable == npos ? "" : " It can be edited in " + Named(item.Steps(), editable) + ".";
  return StatusText(item, index) + instead;
}

std::string AdmissionHint(kprC_StepDependent const& item, kprC_StepTable const& steps, cow_String const& step) {
  std::size_t const index = steps.Find(step.View());
  // a new one says what the type admits, whatever values this one has
  auto const made = cls_MetadataRegistrar::Registrar().Find(item.DynTypeId())->make();
  auto const* const type = dynamic_cast<kprC_StepDependent const*>(made.get());
  auto const admits = [&](kprC_StepFacts at) { return (type == nullptr ? item : *type).Admits(at, false); };
  if (index == npos || admits(steps.Facts(index))) { return {}; }
  std::vector<std::string> others;
  for (std::size_t at = 0; at < steps.Size(); ++at) {
    if (admits(steps.Facts(at))) { others.emplace_back(steps.Name(at).View()); }
  }
  unsigned const procedure = steps.ProcedureType(index);
  bool const isAdiabatic = steps.Facts(index).Has(kprC_StepFacts::Adiabatic) && admits(procedure);
  std::string const why = isAdiabatic ? " is adiabatic and" : " is a step of the procedure " + ProcedureText(procedure) + ", which";
  constexpr std::size_t kShown = 3;
  return Quoted(step.View()) + why + " does not take this type; " +
         (others.empty() ? "no step of the model does." : "steps that do: " + QuotedList(others, kShown) + ".");
}

std::string OutputHint(kprC_StepDependent const& item, kprC_Arguments const& said, kprC_StepFacts step, Refusal const& refused) {
  auto const* const request = dynamic_cast<korC_Output const*>(&item);
  if (request == nullptr || refused.module != korC_Output::kModule) { return {}; }
  std::string const procedure = ProcedureText(step.procedureType);
  korC_OdbRequestTable const& table = korC_OdbRequestTable::Instance();
  auto const given = std::ranges::find(said, korC_OutputState::variablesCmd().View(), &kprC_Arguments::value_type::first);
  std::vector<std::string> keys;
  if (auto const* list = given == said.end() ? nullptr : given->second.As<cls_Value::List>()) {
    for (cls_Value const& key : *list) {
      if (auto const* text = key.As<std::string>()) { keys.push_back(*text); }
    }
  }
  switch (static_cast<korC_ErrorEnm>(refused.code)) {
    case korC_ErrorEnm::UnknownVariable:
    case korC_ErrorEnm::UnknownComponent: {
      auto const unknown = std::ranges::find_if(keys, [&table](std::string const& key) { return !table.IsKnown(key); });
      if (unknown == keys.end()) { return {}; }
      std::vector<std::string> known;
      for (korC_OdbRequestSpec const& row : korC_OdbRequestTable::Rows()) {
        known.emplace_back(row.name);
        row.ForEachComponent([&known](std::string_view component) { known.emplace_back(component); });
      }
      std::string const nearest = Nearest(*unknown, known);
      return "There is no variable " + Quoted(*unknown) + "." + (nearest.empty() ? "" : " Did you mean " + Quoted(nearest) + "?");
    }
    case korC_ErrorEnm::InvalidVariables:
    case korC_ErrorEnm::CreateWithInvalidVariables: {
      std::erase_if(keys, [&](std::string const& key) {
        return table.Procedures(key, request->Channel(), request->DomainType()).Contains(step.procedureType);
      });
      if (keys.empty()) { return {}; }
      std::string const channel = request->IsHistory() ? "history" : "field";
      constexpr std::size_t kShown = 5;
      return "A " + channel + " request of this kind in a step of the procedure " + procedure + " does not have " +
             QuotedList(keys, kShown) + ".";
    }
    case korC_ErrorEnm::HistoryNotInStep: return "Ask for the modes in a field request.";
    case korC_ErrorEnm::InvalidStep: {
      bool const isOfSurface = request->DomainType() == korC_DomainTypeEnm::GENERAL_CONTACT_SURFACE;
      if (isOfSurface && !kprC_IsExplicit(step.procedureType)) { return "Output on a surface is for explicit steps."; }
      std::unique_ptr<korC_OutputState> const state = request->NewStateFor(step.procedureType);
      std::vector<std::string> ways;
      for (auto const& row : omu_EnumTable<korC_TypeEnm>::rows) {
        if (row.text != nullptr && state->ValidOutputType(static_cast<korC_TypeEnm>(row.value), step)) { ways.emplace_back(row.text); }
      }
      if (ways.empty()) { return "Steps of the procedure " + procedure + " write nothing."; }
      bool const marks = kprC_TimeMarksIsAllowed(step.procedureType, request->IsHistory());
      return "In a step of the procedure " + procedure + " a request says how often by " + QuotedList(ways, ways.size()) +
             (marks ? "." : ", and has no time marks.");
    }
    default: return {};
  }
}

std::string OperationHint(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, kprC_Operation const& operation,
                          cow_String const& step, cow_String const& toStep, int code) {
  auto const refused = std::ranges::find(operation.tests, code, &kprC_Test::refusal);
  kprC_StepTable const& steps = item.Steps();
  std::size_t const index = steps.Find(step.View()), to = steps.Find(toStep.View());
  if (index == npos || to == npos) { return {}; }
  auto const takeBack = [&](std::size_t begin, std::size_t end) {
    std::size_t const at = FirstInTheWay(repository, item, begin, end);
    if (at == npos) { return std::string(); }
    return "In " + Named(steps, at) + " it is " + std::string(WordOf(item.StatusAt(at)).word) + ": remove that first.";
  };
  if (refused == operation.tests.end()) { return operation.effect == kprC_Effect::Move ? AdmissionHint(item, steps, toStep) : ""; }
  switch (refused->ask) {
    case kprC_Ask::Between: return takeBack(std::min(index, to) + 1, std::max(index, to));
    case kprC_Ask::Destination:
    case kprC_Ask::DestinationFirst: return takeBack(to, to + 1);
    case kprC_Ask::NoReset:
      return item.IsEditable(step) ? R"(What a step sets is taken back by "remove".)"
                                   : StatusText(item, index) + " There is nothing to reset.";
    case kprC_Ask::CreateStep: return R"(It was created there: "delete" takes it out of the model.)";
    case kprC_Ask::NotAdmitted:
    case kprC_Ask::NotAdmittedLater:
    case kprC_Ask::Target: return AdmissionHint(item, steps, toStep);
    case kprC_Ask::Inactive:
    case kprC_Ask::NotEditable:
    case kprC_Ask::PassedOver:
    case kprC_Ask::BuiltIn:
    case kprC_Ask::Propagated: return StatusText(item, index);
    case kprC_Ask::Perturbation:
      return Quoted(step.View()) + " is a step of the perturbation procedure " + ProcedureText(steps.ProcedureType(index)) + ".";
    default: return {};
  }
}

std::string WordHint(std::string_view word) {
  if (word == "UNSET") { return R"("FREED" gives a value up from a step on; "remove" takes back what the step sets.)"; }
  if (word == "FREED") { return R"(There is nothing to give up: leave the value out, or say "UNSET".)"; }
  return {};
}

std::string ParameterHint(kprC_Step const& step, kprC_StepTable const& steps, int code) {
  using enum kprC_ErrorEnm;
  if (static_cast<kprC_ErrorEnm>(code) == NlgeomTurnedOff) { return NlgeomHint(steps); }
  static constexpr kprC_ErrorEnm kOfIncrements[] = {InitialIncrement, MinIncrement, MaxIncrement, TimePeriod, InitialAbovePeriod};
  if (std::ranges::find(kOfIncrements, static_cast<kprC_ErrorEnm>(code)) == std::end(kOfIncrements)) {
    std::string const wanted(Wanted(static_cast<kprC_ErrorEnm>(code))), element = ElementHint(step, code);
    return wanted.empty() || element.empty() ? wanted + element : wanted + " " + element;
  }
  using Parameters = kprC_StepParameters;
  std::ostringstream values;
  for (auto const name : {Parameters::timePeriodCmd(), Parameters::initialIncCmd(), Parameters::minIncCmd(), Parameters::maxIncCmd()}) {
    if (ClassOf(step).Find(name) == nullptr) { continue; }
    cls_Value const value = step.Member(name);
    if (auto const* number = value.As<double>()) {
      values << (values.tellp() == 0 ? "The step has " : ", ") << Quoted(name) << " " << *number;
    }
  }
  return values.tellp() == 0 ? "" : values.str() + ".";
}

std::string SequenceHint(kprC_StepTable const& steps) {
  kprC_StepSequencer sequencer(true);
  for (std::size_t i = 1; i < steps.Size(); ++i) {
    std::string const why = sequencer.WhyNot(steps.ProcedureType(i));
    if (!why.empty()) { return Named(steps, i) + " behind it could not follow what would stand before: " + why; }
    sequencer.Append(steps.ProcedureType(i));
  }
  return {};
}

}  // namespace gattr
