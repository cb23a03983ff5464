#include "module/kor/korC_OdbRequestTable.h"

#include <algorithm>

#include "module/kor/korC_OutputState.h"
#include "module/kor/korC_assert.h"

namespace {
using Table = korC_OdbRequestTable;
using Row = korC_OdbRequestSpec;
using PrintEnm = Row::PrintEnm;
using LabelEnm = Row::LabelEnm;

constexpr std::string_view kCategories[] = {"Stresses",
                                            "Strains",
                                            "Displacement/Velocity/Acceleration",
                                            "Forces/Reactions",
                                            "Contact",
                                            "Connector",
                                            "Energy",
                                            "Failure/Fracture",
                                            "Thermal",
                                            "Electrical",
                                            "Porous media/Fluids",
                                            "Acoustics",
                                            "Mass diffusion\\@korC_ODBREQUEST_SPEC_MASS_DIFFUSION",
                                            "Volume/Thickness/Coordinates",
                                            "Mass center kinematics",
                                            "Error indicators",
                                            "State/Field/User/Time"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

constexpr unsigned Bit(PrintEnm print) { return 1U << static_cast<unsigned>(print); }
constexpr unsigned kOfContact = Bit(PrintEnm::Contact) | Bit(PrintEnm::Surface) | Bit(PrintEnm::ContactOrElement);
constexpr unsigned kOfElements = Bit(PrintEnm::Element) | Bit(PrintEnm::ContactOrElement);
/// The classes of output that each symbol takes the variables of, in the order of the symbols.
constexpr unsigned kPrints[] = {
    /* NO_OUTPUT_VARIABLES      */ 0,
    /* PRESELECT                */ 0,
    /* CONTACT_PRESELECT        */ kOfContact,
    /* ELEMENT_PRESELECT        */ kOfElements,
    /* ENERGY_PRESELECT         */ Bit(PrintEnm::Energy),
    /* INCREMENTATION_PRESELECT */ Bit(PrintEnm::Incrementation),
    /* NODE_PRESELECT           */ Bit(PrintEnm::Node),
    /* INTEGRATED_PRESELECT     */ Bit(PrintEnm::Integrated),
    /* CONTACT_ALL              */ kOfContact,
    /* ELEMENT_ALL              */ kOfElements,
    /* ENERGY_ALL               */ Bit(PrintEnm::Energy),
    /* INCREMENTATION_ALL       */ Bit(PrintEnm::Incrementation),
    /* NODE_ALL                 */ Bit(PrintEnm::Node),
    /* MODAL_ALL                */ Bit(PrintEnm::Modal),
    /* RADIATION_ALL            */ Bit(PrintEnm::Radiation),
    /* INTEGRATED_ALL           */ Bit(PrintEnm::Integrated),
};

/// The first row under the key that has the procedure type; null where none does. Refuses with \p unknown a key that \p index does not
/// have.
template <class Index> Row const* RowIn(Index const& index, std::string_view key, unsigned procedureType, korC_ErrorEnm unknown) {
  auto const found = index.find(key);
  korC_Assert(found != index.end(), unknown);
  for (std::uint16_t const number : found->second) {
    if (Table::Rows()[number].procedures.Contains(procedureType)) { return &Table::Rows()[number]; }
  }
  return nullptr;
}
}  // namespace

std::span<std::string_view const> korC_OdbCategories() { return kCategories; }

std::string_view korC_OdbRequestSpec::Description() const {
  return thr_GlobalSingleton<korC_OdbDescriptions>::Instance().Text(descriptionIndex);
}

bool korC_OdbRequest::EqualFrequency(korC_OdbRequest const& other) const {
  if (type != other.type) { return false; }
  switch (type) {
    case korC_TypeEnm::FREQUENCY: return frequency == other.frequency;
    case korC_TypeEnm::NUMBER_INTERVALS: return numIntervals == other.numIntervals;
    case korC_TypeEnm::TIME_INTERVAL: return timeInterval == other.timeInterval;
    case korC_TypeEnm::MODES: return modes == other.modes;
    case korC_TypeEnm::TIME_POINT: return timePoint == other.timePoint;
    case korC_TypeEnm::INVALID: break;
  }
  return true;
}

korC_OdbRequestTable::korC_OdbRequestTable() {
  std::span<Row const> const rows = Rows();
  names_.reserve(rows.size());
  for (std::size_t at = 0; at < rows.size(); ++at) {
    Row const& row = rows[at];
    auto const i = static_cast<std::uint16_t>(at);
    names_[row.name].push_back(i);
    row.ForEachComponent([&](std::string_view component) { components_[component].push_back(i); });
    if (!row.parent.empty()) { children_[row.parent].push_back(i); }
  }
}

std::span<std::uint16_t const> korC_OdbRequestTable::RowsOf(std::string_view key) const {
  for (Index const* index : {&names_, &components_}) {
    if (auto const found = index->find(key); found != index->end()) { return found->second; }
  }
  return {};
}

bool korC_OdbRequestTable::Fits(Row const& row, DomainEnm domain) {
  using enum korC_DomainTypeEnm;
  switch (domain) {
    case SET:
    case WHOLE_MODEL:
    case BOLT_LOAD: return row.print != PrintEnm::Integrated;
    case CONNECTOR: return row.label == LabelEnm::Connector;
    case INTERACTION:
    case GENERAL_CONTACT_SURFACE: return (kOfContact & Bit(row.print)) != 0;
    case INTEGRATED_OUTPUT_SECTION: return row.print == PrintEnm::Integrated;
    case COMPOSITE_LAYUP: return (kOfElements & Bit(row.print)) != 0;
  }
  return false;
}

kprC_ProcedureSet korC_OdbRequestTable::Procedures(std::string_view key, ChannelEnm channel, DomainEnm domain) const {
  kprC_ProcedureSet procedures;
  for (std::uint16_t const number : RowsOf(key)) {
    Row const& row = Rows()[number];
    if (row.IsIn(channel) && Fits(row, domain)) { procedures = procedures | row.procedures; }
  }
  return procedures;
}

korC_OdbRequestTable::Row const* korC_OdbRequestTable::Find(std::string_view key, unsigned procedureType, ChannelEnm channel) const {
  for (std::uint16_t const number : RowsOf(key)) {
    Row const& row = Rows()[number];
    if (row.procedures.Contains(procedureType) && row.IsIn(channel)) { return &row; }
  }
  return nullptr;
}

template <class Keep>
korC_OdbRequestTable::Identifiers korC_OdbRequestTable::Names(unsigned procedureType, ChannelEnm channel, DomainEnm domain,
                                                              Keep&& keep) const {
  Identifiers names;
  std::string_view last;  // rows of one name that a step has more than one of stand side by side
  for (Row const& row : Rows()) {
    if (!row.procedures.Contains(procedureType) || !row.IsIn(channel) || !Fits(row, domain) || row.name == last || !keep(row)) { continue; }
    last = row.name;
    names.Append(cow_String(row.name));
  }
  return names;
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::All(unsigned procedureType, ChannelEnm channel, DomainEnm domain) const {
  return Names(procedureType, channel, domain, [](Row const&) { return true; });
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::Requests(LabelEnm label, unsigned procedureType, ChannelEnm channel,
                                                                 DomainEnm domain) const {
  return Names(procedureType, channel, domain, [label](Row const& row) { return row.label == label; });
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::Filter(Identifiers const& list, unsigned procedureType, ChannelEnm channel,
                                                               DomainEnm domain) const {
  Identifiers valid;
  for (cow_String const& key : list) {
    if (Procedures(key.View(), channel, domain).Contains(procedureType)) { valid.Append(key); }
  }
  return valid;
}

std::vector<korC_OdbRequest> korC_OdbRequestTable::DefaultRequests(unsigned procedureType, ChannelEnm channel, DomainEnm domain) const {
  std::vector<korC_OdbRequest> requests;
  korC_OdbRequest const often = korC_DefaultFrequency(procedureType, channel);
  for (cow_String const& name : Defaults(procedureType, channel, domain)) {
    requests.push_back(often);
    requests.back().name = name;
  }
  return requests;
}

std::vector<LabelEnm> korC_OdbRequestTable::Labels(ChannelEnm channel) const {
  std::vector<LabelEnm> labels;
  for (Row const& row : Rows()) {
    if (row.IsIn(channel) && std::ranges::find(labels, row.label) == labels.end()) { labels.push_back(row.label); }
  }
  return labels;
}

std::vector<LabelEnm> korC_OdbRequestTable::Labels(ChannelEnm channel, unsigned procedureType, DomainEnm domain) const {
  std::vector<LabelEnm> labels;
  Names(procedureType, channel, domain, [&labels](Row const& row) {
    if (std::ranges::find(labels, row.label) == labels.end()) { labels.push_back(row.label); }
    return false;
  });
  return labels;
}

korC_OdbRequestTable::Row const* korC_OdbRequestTable::Request(std::string_view name, unsigned procedureType) const {
  return RowIn(names_, name, procedureType, korC_ErrorEnm::UnknownVariable);
}

LabelEnm korC_OdbRequestTable::Label(std::string_view name, unsigned procedureType) const {
  return FirstOf(Request(name, procedureType), names_.at(name)).label;
}

PrintEnm korC_OdbRequestTable::Print(std::string_view name, unsigned procedureType) const {
  return FirstOf(Request(name, procedureType), names_.at(name)).print;
}

bool korC_OdbRequestTable::IsComponentRequest(std::string_view key) const { return !names_.contains(key) && components_.contains(key); }

korC_OdbRequestTable::Row const* korC_OdbRequestTable::RequestSpecFromComponent(std::string_view component, unsigned procedureType) const {
  return RowIn(components_, component, procedureType, korC_ErrorEnm::UnknownComponent);
}

cow_String korC_OdbRequestTable::RequestFromComponent(std::string_view component, unsigned procedureType) const {
  Row const* const row = RequestSpecFromComponent(component, procedureType);
  return row == nullptr ? cow_String() : cow_String(row->name);
}

LabelEnm korC_OdbRequestTable::LabelFromComponent(std::string_view component, unsigned procedureType) const {
  return FirstOf(RequestSpecFromComponent(component, procedureType), components_.at(component)).label;
}

PrintEnm korC_OdbRequestTable::PrintFromComponent(std::string_view component, unsigned procedureType) const {
  return FirstOf(RequestSpecFromComponent(component, procedureType), components_.at(component)).print;
}

bool korC_OdbRequestTable::ComponentHasLabel(std::string_view component, LabelEnm label, unsigned procedureType) const {
  Row const* const row = RequestSpecFromComponent(component, procedureType);
  return row != nullptr && row->label == label;
}

bool korC_OdbRequestTable::IsParentRequest(std::string_view name) const { return children_.contains(name); }

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::SpawnedIdentifiers(std::string_view name, unsigned procedureType) const {
  Identifiers spawned;
  auto const found = children_.find(name);
  if (found == children_.end()) { return spawned; }
  for (std::uint16_t const number : found->second) {
    if (Rows()[number].procedures.Contains(procedureType)) { spawned.Append(cow_String(Rows()[number].name)); }
  }
  return spawned;
}

template <class Is>
korC_OdbRequestTable::Identifiers korC_OdbRequestTable::Rejected(Identifiers const& list, unsigned procedureType, ChannelEnm channel,
                                                                 DomainEnm domain, Is&& is) const {
  Identifiers rejected;
  for (cow_String const& key : list) {
    auto const takes = [&](std::uint16_t number) {
      Row const& row = Rows()[number];
      return row.procedures.Contains(procedureType) && row.IsIn(channel) && Fits(row, domain) && is(row);
    };
    if (std::ranges::none_of(RowsOf(key.View()), takes)) { rejected.Append(key); }
  }
  return rejected;
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::GetInvalidIdentifiers(Identifiers const& list, unsigned procedureType,
                                                                              ChannelEnm channel, DomainEnm domain) const {
  return Rejected(list, procedureType, channel, domain, [](Row const&) { return true; });
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::GetInvalidLabelIdentifiers(Identifiers const& list, unsigned procedureType,
                                                                                   LabelEnm label, ChannelEnm channel,
                                                                                   DomainEnm domain) const {
  return Rejected(list, procedureType, channel, domain, [label](Row const& row) { return row.label == label; });
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::GetInvalidPrintIdentifiers(Identifiers const& list, unsigned procedureType,
                                                                                   PrintEnm print, ChannelEnm channel,
                                                                                   DomainEnm domain) const {
  return GetInvalidPrintIdentifiers(list, procedureType, print, print, channel, domain);
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::GetInvalidPrintIdentifiers(Identifiers const& list, unsigned procedureType,
                                                                                   PrintEnm one, PrintEnm other, ChannelEnm channel,
                                                                                   DomainEnm domain) const {
  return Rejected(list, procedureType, channel, domain, [=](Row const& row) { return row.print == one || row.print == other; });
}

void korC_OdbRequestTable::AssertKnown(std::string_view key) const {
  if (IsKnown(key)) { return; }
  std::string_view stem = key;
  while (!stem.empty() && IsDigit(stem.back())) { stem.remove_suffix(1); }
  bool const isComponent = stem != key && IsKnown(stem);
  korC_Assert(!isComponent, korC_ErrorEnm::UnknownComponent);
  korC_Assert(false, korC_ErrorEnm::UnknownVariable);
}

cow_List<cow_String> korC_VariablesOf(korC_VariablesTypeEnm symbol, unsigned procedureType, korC_OdbChannel::TypeEnm channel,
                                      korC_DomainTypeEnm domain) {
  using enum korC_VariablesTypeEnm;
  Table const& table = Table::Instance();
  bool const all = symbol >= CONTACT_ALL;
  Table::Identifiers from = all ? table.All(procedureType, channel, domain) : table.Defaults(procedureType, channel, domain);
  if (symbol == PRESELECT) { return from; }
  unsigned const prints = kPrints[static_cast<std::size_t>(symbol)];
  Table::Identifiers keys;
  for (cow_String const& key : from) {
    Row const& row = *table.Find(key.View(), procedureType, channel);
    bool const ownOne = !all || row.parent.empty();  // what is worked out comes with what it is worked out from
    if (ownOne && (prints & Bit(row.print)) != 0) { keys.Append(key); }
  }
  return keys;
}
