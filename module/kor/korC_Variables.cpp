#include <algorithm>
#include <array>

#include "module/kor/korC_OdbRequestTable.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum korC_OdbRequestSpec::LocationEnm;
using LabelEnm = korC_OdbRequestSpec::LabelEnm;
using PrintEnm = korC_OdbRequestSpec::PrintEnm;
using Set = kprC_ProcedureSet;

enum Channels : unsigned { Neither = 0, Field = 1, History = 2, Both = 3 };

// Sets of procedures that rows share.
constexpr Set kExplicit = ExplicitDynamics | TempDisplacementDynamics;
constexpr Set kQuasiStatic = Static | StaticRiks | Visco | Geostatic | Soils | CoupledTempDisplacement;
constexpr Set kDynamic = kExplicit | ImplicitDynamics | SubspaceDynamics;
constexpr Set kSteadyState = SteadyStateDirect | SteadyStateModal | SteadyStateSubspace;
constexpr Set kModal = Frequency | ModalDynamics | SteadyStateModal | ResponseSpectrum | RandomResponse;
/// General steps that solve for displacements: those in which contact is made and material yields.
constexpr Set kGeneralMechanical = kQuasiStatic | kDynamic;
constexpr Set kStrained = kGeneralMechanical;
constexpr Set kMechanical = kGeneralMechanical | kSteadyState | kModal | Buckle | ComplexFrequency | StaticLinearPerturbation;
// the same without the explicit ones
constexpr Set kStandardContact = kGeneralMechanical - kExplicit;
constexpr Set kStandardStrained = kStrained - kExplicit;
constexpr Set kStandardMechanical = kMechanical - kExplicit;
/// Perturbation steps that keep the contact of their base state.
constexpr Set kLinearContact = StaticLinearPerturbation | SteadyStateDirect | Buckle;
/// Where strains depend on time, or have done so in an earlier step.
constexpr Set kCreep = kQuasiStatic | ImplicitDynamics;
/// Where there are velocities.
constexpr Set kInMotion = kDynamic | kSteadyState | ModalDynamics | ResponseSpectrum | RandomResponse;
/// Where the base of the model may move.
constexpr Set kOnMovingBase = ModalDynamics | SteadyStateModal | SteadyStateSubspace | ResponseSpectrum | RandomResponse;
constexpr Set kInertiaRelief = Static | StaticRiks | ImplicitDynamics | StaticLinearPerturbation | Buckle;
constexpr Set kThermal = HeatTransfer | CoupledThermalElectric | CoupledTempDisplacement | TempDisplacementDynamics;
constexpr Set kStandardThermal = kThermal - kExplicit;
/// Where surfaces that slide make heat.
constexpr Set kThermalContact = CoupledTempDisplacement | TempDisplacementDynamics;
/// Where temperatures are solved for, or read as a field.
constexpr Set kTemperatures = kThermal | kGeneralMechanical;
constexpr Set kCavityRadiation = HeatTransfer | CoupledThermalElectric | CoupledTempDisplacement;
constexpr Set kCurrent = CoupledThermalElectric;
/// Piezoelectric steps.
constexpr Set kCharge = Static | StaticLinearPerturbation | SteadyStateDirect | ImplicitDynamics;
constexpr Set kElectrostatic = kCharge | kCurrent;
constexpr Set kPorous = Geostatic | Soils;
constexpr Set kFluidCavity = kExplicit | Static | StaticRiks | Visco | ImplicitDynamics;
constexpr Set kInflator = kExplicit;
constexpr Set kAcoustic =
    kSteadyState | Static | Visco | ImplicitDynamics | ExplicitDynamics | SubspaceDynamics | Frequency | ComplexFrequency | ModalDynamics;
/// Where sound is a wave of one frequency.
constexpr Set kHarmonic = kSteadyState;
constexpr Set kGeneral = kGeneralMechanical | kThermal | MassDiffusion;
constexpr Set kStandardGeneral = kGeneral - kExplicit;

constexpr auto kRows = [] {
  auto rows = std::to_array<korC_OdbRequestSpec>({
#define KOR_VARIABLE(key, description, location, category, print, components, parent, procedures, channels) \
  {{}, key, 0, location, LabelEnm::category, PrintEnm::print, components, parent, procedures, channels},
#include "module/kor/Variables.def"
  });
  int index = 0;
  for (korC_OdbRequestSpec& row : rows) { row.descriptionIndex = ++index; }
  return rows;
}();

constexpr std::string_view kDescriptions[] = {
#define KOR_VARIABLE(key, description, ...) description,
#include "module/kor/Variables.def"
};

/// What PRESELECT stands for: in each group of procedures and channel, a short list.
struct Preselect {
  Set procedures;
  korC_OdbChannel::TypeEnm channel;
  std::string_view keys;
};
constexpr Preselect kPreselects[] = {
    {Set{Static, StaticRiks, Visco}, korC_OdbChannel::FIELD, "S PE PEEQ PEMAG LE U RF CF CSTRESS CDISP"},
    {Set{Geostatic, Soils}, korC_OdbChannel::FIELD, "S PE PEEQ LE U RF CF CSTRESS CDISP VOIDR SAT POR"},
    {Set{CoupledTempDisplacement}, korC_OdbChannel::FIELD, "S PE PEEQ PEMAG LE U RF CF CSTRESS CDISP NT HFL RFL"},
    {Set{TempDisplacementDynamics}, korC_OdbChannel::FIELD, "S PE PEEQ LE U V A RF CSTRESS NT HFL RFL"},
    {Set{ExplicitDynamics}, korC_OdbChannel::FIELD, "S PE PEEQ LE U V A RF CSTRESS"},
    {Set{ImplicitDynamics, SubspaceDynamics}, korC_OdbChannel::FIELD, "S PE PEEQ PEMAG LE U V A RF CF CSTRESS CDISP"},
    {Set{StaticLinearPerturbation}, korC_OdbChannel::FIELD, "S E U RF CF"},
    {Set{SteadyStateDirect, SteadyStateModal, SteadyStateSubspace, ModalDynamics, ResponseSpectrum}, korC_OdbChannel::FIELD,
     "S E U V A RF CF"},
    {Set{RandomResponse}, korC_OdbChannel::FIELD, "RS RE U V A"},
    {Set{Frequency, Buckle, ComplexFrequency}, korC_OdbChannel::FIELD, "U"},
    {Set{HeatTransfer}, korC_OdbChannel::FIELD, "NT HFL RFL"},
    {Set{CoupledThermalElectric}, korC_OdbChannel::FIELD, "NT HFL RFL EPOT EPG ECD"},
    {Set{MassDiffusion}, korC_OdbChannel::FIELD, "CONC NNC"},
    {Set{ExplicitDynamics, TempDisplacementDynamics}, korC_OdbChannel::HISTORY, "ALLEN SOF SOM"},  // the latter of a section
    {kQuasiStatic | kDynamic | kSteadyState | ModalDynamics, korC_OdbChannel::HISTORY, "ALLEN"},
};

constexpr bool IsKnown(std::string_view name) { return std::ranges::find(kRows, name, &korC_OdbRequestSpec::name) != kRows.end(); }
static_assert(kRows.size() == 395);
static_assert(std::ranges::all_of(kRows, [](korC_OdbRequestSpec const& row) { return row.parent.empty() || IsKnown(row.parent); }),
              "Variables.def: every parent is a row");
}  // namespace

std::span<korC_OdbRequestSpec const> korC_OdbRequestTable::Rows() { return kRows; }

std::string_view korC_OdbDescriptions::Text(int index) const {
  bool const isOne = index >= 1 && static_cast<std::size_t>(index) <= std::size(kDescriptions);
  return isOne ? kDescriptions[index - 1] : std::string_view();
}

korC_OdbRequestTable::Identifiers korC_OdbRequestTable::Defaults(unsigned procedureType, ChannelEnm channel, DomainEnm domain) const {
  auto const preselect = std::ranges::find_if(
      kPreselects, [&](Preselect const& one) { return one.channel == channel && one.procedures.Contains(procedureType); });
  if (preselect == std::end(kPreselects)) { return {}; }
  Identifiers keys;
  korC_OdbRequestSpec list;
  list.components = preselect->keys;
  list.ForEachComponent([&keys](std::string_view key) { keys.Append(cow_String(key)); });
  return Filter(keys, procedureType, channel, domain);
}
