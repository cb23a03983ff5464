#include "module/kor/korC_Output.h"

#include <algorithm>

#include "framework/ddr_Model.h"
#include "module/kor/korC_OdbRequestTable.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"

template class kprC_StepAttribute<korC_Rules>;
template class kprC_PropagatingContainer<korC_FieldOutput>;
template class kprC_PropagatingContainer<korC_HistoryOutput>;

namespace {
using Row = korC_OdbRequestSpec;
using PrintEnm = Row::PrintEnm;
using LabelEnm = Row::LabelEnm;
constexpr std::size_t npos = kprC_StepTable::npos;

// names of loads and interactions, which other families make
constexpr std::string_view kLoads = "loads", kInteractions = "interactions", kBoltLoad = "BoltLoad";
constexpr std::string_view kContacts[] = {"SurfaceToSurfaceContactStd", "SurfaceToSurfaceContactXpl", "SelfContactStd", "SelfContactXpl"};

bool IsElement(Row const& row) { return row.print == PrintEnm::Element || row.print == PrintEnm::ContactOrElement; }
bool IsNode(Row const& row) { return row.print == PrintEnm::Node; }
bool IsNodeOrElement(Row const& row) {
  return IsNode(row) || (row.print == PrintEnm::Element && row.location != Row::LocationEnm::WHOLE_MODEL);
}
bool IsConnector(Row const& row) { return row.label == LabelEnm::Connector; }
bool IsContact(Row const& row) { return row.label == LabelEnm::Contact; }
bool AsksForContact(korC_OutputState const& state) {
  korC_Variables const& asked = state.variables.ConstGet();
  return !asked.IsList() && asked.Symbol() == korC_VariablesTypeEnm::CONTACT_PRESELECT;
}
bool IsIntegrated(Row const& row) { return row.print == PrintEnm::Integrated; }

/// Whether \p is says so of every variable, or of any, that the state asks for. What PRESELECT stands for fits by itself; the contact
/// variables are contact variables.
bool AreAll(korC_OutputState const& state, bool (*is)(Row const&)) {
  return !AsksForContact(state) && std::ranges::all_of(state.variables.ConstGet().Keys(), [is](cow_String const& key) {
    return is(korC_OdbRequestTable::Instance().First(key.View()));
  });
}
bool IsAny(korC_OutputState const& state, bool (*is)(Row const&)) {
  return (is == &IsContact && AsksForContact(state)) || std::ranges::any_of(state.variables.ConstGet().Keys(), [is](cow_String const& key) {
           return is(korC_OdbRequestTable::Instance().First(key.View()));
         });
}

/// The attribute of another family, or null.
kprC_StepDependent const* Other(ddr_Model const& model, std::string_view extension, cow_String const& name) {
  auto const* const repository = dynamic_cast<kprC_StepAwareRepository const*>(model.ConstExtension(extension));
  return repository == nullptr ? nullptr : repository->ConstItem(name.View());
}

/// The values that say how often, and the way that each of them says it in.
constexpr std::pair<omn_FixedString, char const*> kWays[] = {{korC_OutputState::frequencyCmd(), "FREQUENCY"},
                                                             {korC_OutputState::numIntervalsCmd(), "NUMBER_INTERVALS"},
                                                             {korC_OutputState::timeIntervalCmd(), "TIME_INTERVAL"},
                                                             {korC_OutputState::modesCmd(), "MODES"},
                                                             {korC_OutputState::timePointCmd(), "TIME_POINT"}};
}  // namespace

korC_Output::DomainEnm korC_Output::DomainType() const {
  using enum korC_DomainTypeEnm;
  if (!boltLoad_.IsEmpty()) { return BOLT_LOAD; }
  if (connectors_.Size() != 0) { return CONNECTOR; }
  if (interactions_.Size() != 0) { return INTERACTION; }
  if (layupNames_.Size() != 0) { return COMPOSITE_LAYUP; }
  if (!*region_) { return WHOLE_MODEL; }
  return region_->Type() == rgnC_Surface ? GENERAL_CONTACT_SURFACE : SET;
}

korC_Output::DomainEnm korC_HistoryOutput::DomainType() const {
  return integratedOutputSection_.IsEmpty() ? korC_Output::DomainType() : DomainEnm::INTEGRATED_OUTPUT_SECTION;
}

korC_OutputState const* korC_Output::ConstGetState(cow_String const& step) const {
  Status(step);
  return static_cast<korC_OutputState const*>(StateAt(Steps().Find(step.View())));
}

// ---- what a step takes

korC_OutputState const* korC_Output::CreateState() const {
  std::size_t const create = States().CreateStep();
  return create == npos ? nullptr : static_cast<korC_OutputState const*>(States().State(create));
}

bool korC_Output::Admits(kprC_StepFacts step, bool /*carried*/) const {
  korC_OutputState const* const state = CreateState();
  if (state == nullptr) { return Type().procedures.Contains(step.procedureType); }
  return state->ValidInAnalysisProcedure(step, DomainType());
}

cow_Handle<kprC_Carrying> korC_Output::Carrying() const {
  auto carrying = cow_Handle<kprC_Carrying>::Make();
  korC_OutputState const* const state = CreateState();
  kprC_ProcedureSet const procedures = state == nullptr ? Type().procedures : state->ValidProcedures(DomainType());
  carrying.Get().pass = &Pass();
  carrying.Get().admitted = kprC_StepSet::Where(
      [&](kprC_StepFacts step) { return procedures.Contains(step.procedureType) && (state == nullptr || state->ValidFrequency(step)); });
  return carrying;
}

bool korC_Output::Adapt(std::size_t index, kprC_StepFacts then) {
  if (!States().HasOwn(index) || States().IsOff(index)) { return false; }
  std::unique_ptr<kprC_State> copy = States().StateCopy(index);
  if (!static_cast<korC_OutputState&>(*copy).ChangeProcedureType(then, DomainType())) { return false; }
  copy->NewUid();
  checked_ = false;  // the next pass asks
  States().Set(index, States().Status(index), cow_Handle<kprC_State>(std::move(copy)), false);
  return true;
}

bool korC_Output::ChangeProcedureType(kprC_Procedure const& then, cow_String const& step) {
  std::size_t const index = Steps().Find(step.View());
  return index != npos && Adapt(index, kprC_StepFacts(&then));
}

bool korC_Output::UpdateRecurranceType() {
  bool changed = false;
  std::vector<std::size_t> own;
  ForEachOwnEditable([&own](std::size_t index, kprC_State const&) { own.push_back(index); });
  for (std::size_t const index : own) { changed = Adapt(index, Steps().Facts(index)) || changed; }
  if (changed) { UpdateStates(); }
  return changed;
}

void korC_Output::SetStateStatusChecks() const {
  ForEachRun([](std::size_t, std::size_t, mdl_PropagationStatusEnm status, cls_Object const*) {
    korC_Assert((kStatuses[static_cast<std::size_t>(status)] & kprC_Known) != 0, korC_ErrorEnm::UnknownStatus);
  });
}

// ---- what is refused

void korC_Output::AssertMembers() const {
  ForEachOwnEditable([this](std::size_t index, kprC_State const&) {
    unsigned const procedure = Steps().ProcedureType(index);
    korC_Assert(!Steps().IsInitial(index), korC_ErrorEnm::DefinedInInitialStep);
    if (IsHistory()) {
      korC_Assert(!kprC_noHistoryOutput.Contains(procedure), korC_ErrorEnm::HistoryNotInStep);
    } else {
      korC_Assert(Type().procedures.Contains(procedure), korC_ErrorEnm::FieldNotInStep);
    }
  });
}

void korC_Output::AssertWhole() const {
  using enum korC_DomainTypeEnm;
  DomainEnm const domain = DomainType();
  bool const isElsewhere = domain != WHOLE_MODEL && domain != SET && domain != COMPOSITE_LAYUP;
  bool const saysWhere = rebar_ != korC_RebarEnm::EXCLUDE || sectionPoints_.Size() != 0;
  korC_Assert(IsHistory() || domain != CONNECTOR, korC_ErrorEnm::ConnectorInField);
  korC_Assert(IsHistory() || domain != GENERAL_CONTACT_SURFACE, korC_ErrorEnm::SurfaceInField);
  korC_Assert(std::ranges::all_of(sectionPoints_, [](int point) { return point >= 1; }), korC_ErrorEnm::SectionPoint);
  korC_Assert(!isElsewhere || !saysWhere, korC_ErrorEnm::RebarDomain);
  korC_Assert(rebar_ != korC_RebarEnm::ONLY || sectionPoints_.Size() == 0, korC_ErrorEnm::RebarAtSectionPoints);
}

void korC_HistoryOutput::AssertWhole() const {
  korC_Assert(numberOfContours_ > 0, korC_ErrorEnm::NumberOfContours);
  korC_Output::AssertWhole();
}

void korC_Output::AssertValidVariables(korC_OutputState const& state) const {
  DomainEnm const domain = DomainType();
  korC_Assert(domain != DomainEnm::CONNECTOR || AreAll(state, &IsConnector), korC_ErrorEnm::ConnectorVariables);
  korC_Assert(domain != DomainEnm::INTEGRATED_OUTPUT_SECTION || AreAll(state, &IsIntegrated), korC_ErrorEnm::IntegratedVariables);
  korC_Assert(rebar_ != korC_RebarEnm::ONLY || AreAll(state, &IsElement), korC_ErrorEnm::RebarVariables);
  korC_Assert(!IsHistory() || domain != DomainEnm::WHOLE_MODEL || !IsAny(state, &IsNodeOrElement), korC_ErrorEnm::WholeModelHistory);
}

void korC_Output::AssertValid(korC_OutputState const& state) const {
  state.AssertValid();
  AssertValidVariables(state);
}

void korC_Output::AssertState(korC_OutputState const& state, std::size_t index) const {
  AssertValid(state);
  kprC_StepFacts const step = Steps().Facts(index);
  bool const isCreation = States().IsCreateStep(index);
  korC_Assert(state.GetInvalidVariables(step.procedureType, DomainType()).Size() == 0,
              isCreation ? korC_ErrorEnm::CreateWithInvalidVariables : korC_ErrorEnm::InvalidVariables);
  korC_Assert(state.ValidInAnalysisProcedure(step, DomainType()), korC_ErrorEnm::InvalidStep);
}

void korC_Output::AssertOperation(kprC_Effect effect, std::size_t index, std::size_t to) const {
  if (effect != kprC_Effect::Move) { return; }
  kprC_StepFacts const step = Steps().Facts(to);
  auto const& state = static_cast<korC_OutputState const&>(*States().State(index));
  korC_Assert(state.ValidInAnalysisProcedure(step, DomainType()), korC_ErrorEnm::MoveToInvalidStep);
}

void korC_Output::AssertInModel(ddr_Model const& model) const {
  DomainEnm const domain = DomainType();
  if (domain == DomainEnm::BOLT_LOAD) {
    kprC_StepDependent const* const load = Other(model, kLoads, boltLoad_);
    korC_Assert(load != nullptr, korC_ErrorEnm::NoSuchBoltLoad);
    korC_Assert(load->ConstructionName() == kBoltLoad, korC_ErrorEnm::NotABoltLoad);
    ForEachEditable([](korC_OutputState const& state) { korC_Assert(AreAll(state, &IsNode), korC_ErrorEnm::BoltLoadVariable); });
  }
  korC_Assert(connectors_.Size() <= 1, korC_ErrorEnm::OneConnector);
  korC_Assert(interactions_.Size() <= 1, korC_ErrorEnm::OneInteraction);
  for (cow_String const& name : interactions_) {
    kprC_StepDependent const* const interaction = Other(model, kInteractions, name);
    bool const isContact = interaction != nullptr && std::ranges::find(kContacts, interaction->ConstructionName()) != std::end(kContacts);
    korC_Assert(isContact, korC_ErrorEnm::NotAContact);
  }
  bool isExplicit = IsHistory();
  ForEachOwnEditable(
      [&](std::size_t index, kprC_State const&) { isExplicit = isExplicit && kprC_IsExplicit(Steps().ProcedureType(index)); });
  korC_Assert(filter_.IsEmpty() || isExplicit, korC_ErrorEnm::FilterDomain);
  korC_Assert(domain != DomainEnm::INTEGRATED_OUTPUT_SECTION || isExplicit, korC_ErrorEnm::IntegratedDomain);
  if (region_->InstanceKind() == rgnC_OrphanMesh) {
    ForEachEditable([](korC_OutputState const& state) { korC_Assert(!IsAny(state, &IsContact), korC_ErrorEnm::ContactOnOrphanMesh); });
  }
  bool const ofPlies =
      layupLocationMethod_ != korC_LayupLocationEnm::ALL_LOCATIONS || outputAtPlyTop_ || outputAtPlyMid_ || outputAtPlyBottom_;
  korC_Assert(!ofPlies || layupNames_.Size() != 0, korC_ErrorEnm::NoLayups);
}

// ---- what commands say

void korC_Output::Complete(kprC_Arguments& members, kprC_StepFacts step) const {
  auto const find = [&members](omn_FixedString name) {
    return std::ranges::find(members, name.View(), [](auto const& member) { return std::string_view(member.first); });
  };
  if (auto const variables = find(korC_OutputState::variablesCmd()); variables != members.end()) {
    using enum korC_VariablesTypeEnm;
    auto const* const text = variables->second.As<std::string>();
    omu_PrimEnum<korC_VariablesTypeEnm, 1> symbol;
    bool const isSymbol = text != nullptr && symbol.SetValue(text->c_str());
    if (isSymbol && symbol != NO_OUTPUT_VARIABLES && symbol != PRESELECT && symbol != CONTACT_PRESELECT) {
      Identifiers const keys = korC_VariablesOf(symbol, step.procedureType, Channel(), DomainType());
      korC_Assert(keys.Size() != 0, korC_ErrorEnm::InvalidSymbol);
      variables->second = cls_MemberTraits<Identifiers>::ToValue(keys);
    }
  }
  if (auto const modes = find(korC_OutputState::modesCmd()); modes != members.end()) {
    auto const* const list = modes->second.As<cls_Value::List>();
    korC_Assert(list == nullptr || !list->empty(), korC_ErrorEnm::NoEigenmodes);
  }
  if (find(korC_OutputState::typeCmd()) != members.end()) { return; }
  char const* way = nullptr;
  int ways = 0;
  for (auto const& [name, type] : kWays) {
    auto const said = find(name);
    auto const* const text = said == members.end() ? nullptr : said->second.As<std::string>();
    bool const isWord = text != nullptr && (*text == "UNSET" || *text == "FREED");
    if (said == members.end() || isWord) { continue; }
    way = type;
    ++ways;
  }
  korC_Assert(ways <= 1, korC_ErrorEnm::FrequencyType);  // which of them holds, the command has to say
  if (ways == 1) { members.emplace_back(korC_OutputState::typeCmd().View(), way); }
}
