#include "module/kpr/procedures/kprC_StepSequencer.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "module/kpr/kprC_assert.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace {

using enum kprC_ProcedureType::Enm;

constexpr kprC_ProcedureSet kMayBeFirst = {Buckle,
                                           CoupledTempDisplacement,
                                           CoupledThermalElectric,
                                           ExplicitDynamics,
                                           Frequency,
                                           Geostatic,
                                           HeatTransfer,
                                           ImplicitDynamics,
                                           MassDiffusion,
                                           Soils,
                                           Static,
                                           StaticRiks,
                                           StaticLinearPerturbation,
                                           SteadyStateDirect,
                                           Visco,
                                           TempDisplacementDynamics,
                                           UsaAddedMassGeneration};

struct Rule {
  kprC_ProcedureSet last;  ///< when the last step is one of these
  kprC_ProcedureSet next;  ///< these may follow it directly
};

// Added-mass generation stands here as if it were permitted; where it is not, it is taken out of the answer.
constexpr Rule kRules[] = {
    {kprC_explicitProcedures, kprC_explicitProcedures},
    {{CoupledTempDisplacement},
     {Buckle, CoupledTempDisplacement, Frequency, ImplicitDynamics, Static, StaticLinearPerturbation, SteadyStateDirect, Visco}},
    {{CoupledThermalElectric, HeatTransfer}, {CoupledThermalElectric, HeatTransfer}},
    {{MassDiffusion}, {MassDiffusion}},
    {{Geostatic, Soils},
     {Buckle, Frequency, Geostatic, ImplicitDynamics, Soils, Static, StaticRiks, StaticLinearPerturbation, SteadyStateDirect, Visco}},
    {{Static, Visco},
     {Buckle, CoupledTempDisplacement, Frequency, Geostatic, ImplicitDynamics, Soils, Static, StaticRiks, StaticLinearPerturbation,
      SteadyStateDirect, Visco}},
    {{ImplicitDynamics}, {ImplicitDynamics, Static, StaticRiks, Visco, SubspaceDynamics, UsaAddedMassGeneration}},
    {{SubspaceDynamics, UsaAddedMassGeneration}, {ImplicitDynamics, Static, StaticRiks, Visco, UsaAddedMassGeneration}},
    {{Frequency},
     {Buckle, Frequency, ModalDynamics, RandomResponse, ResponseSpectrum, StaticLinearPerturbation, SteadyStateDirect, SteadyStateModal,
      SubspaceDynamics, ComplexFrequency, SteadyStateSubspace}},
    {kprC_perturbationProcedures - kprC_ProcedureSet{Frequency}, {Buckle, Frequency, StaticLinearPerturbation, SteadyStateDirect}},
    {{StaticRiks, SubstructureGenerate}, {}},
};

/// Behind these not even complex frequency may follow, which elsewhere asks for no more than a frequency step before it.
constexpr kprC_ProcedureSet kEndOfMechanics = {CoupledThermalElectric, HeatTransfer, MassDiffusion, StaticRiks};

/// These superpose the modes of a frequency step that reaches them through perturbation steps only.
constexpr kprC_ProcedureSet kBuildsOnModes = {ModalDynamics,    RandomResponse,   ResponseSpectrum,
                                              SteadyStateModal, SubspaceDynamics, SteadyStateSubspace};

/// The rules' answers by the number of the last step's procedure.
constexpr auto kDirect = [] {
  std::array<kprC_ProcedureSet, kprC_procedures.size()> next;
  for (Rule const& rule : kRules) {
    for (std::size_t i = 0; i < next.size(); ++i) {
      if (rule.last.Contains(kprC_procedures[i].type)) { next[i] = rule.next; }
    }
  }
  return next;
}();

static_assert(std::ranges::all_of(kprC_procedures,
                                  [](kprC_ProcedureRow const& row) {
                                    return std::ranges::count_if(kRules, [&](Rule const& rule) { return rule.last.Contains(row.type); }) ==
                                           1;
                                  }),
              "every procedure has one rule");

constexpr std::size_t IndexOf(unsigned procedureType) { return procedureType - kprC_procedures.front().type; }

/// A procedure as a sentence names it.
std::string NameOf(unsigned procedureType) {
  auto const label = thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Label(procedureType);
  return std::string(label.empty() ? "SUBSTRUCTURE_GENERATE" : label);
}

std::string NamesOf(kprC_ProcedureSet set) {
  std::string names;
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    if (set.Contains(row.type)) { names += (names.empty() ? "" : ", ") + NameOf(row.type); }
  }
  return names;
}

}  // namespace

kprC_StepSequencer::Entry const kprC_StepSequencer::kStart = {0, kMayBeFirst, false};

kprC_StepSequencer::kprC_StepSequencer(cow_List<unsigned> const& procedureTypes, bool addedMassPermitted)
    : addedMassPermitted_(addedMassPermitted) {
  Rebuild(procedureTypes);
}

kprC_StepSequencer::Entry kprC_StepSequencer::After(Entry const& before, unsigned procedureType) {
  Entry entry{procedureType, kDirect[IndexOf(procedureType)], before.frequency || procedureType == Frequency};
  if (kprC_perturbationProcedures.Contains(procedureType)) { entry.next = entry.next | (before.next - kprC_explicitProcedures); }
  if (entry.frequency && !kEndOfMechanics.Contains(procedureType)) { entry.next = entry.next | kprC_ProcedureSet{ComplexFrequency}; }
  return entry;
}

// Without the permission no added-mass generation is in the sequence either, so that nothing else depends on it.
kprC_ProcedureSet kprC_StepSequencer::Permitted(kprC_ProcedureSet next) const {
  return addedMassPermitted_ ? next : next - kprC_ProcedureSet{UsaAddedMassGeneration};
}

kprC_ProcedureSet kprC_StepSequencer::MayFollow() const { return Permitted(Last().next); }

void kprC_StepSequencer::Append(unsigned procedureType) {
  kprC_Assert(MayFollow().Contains(procedureType), kprC_ErrorEnm::StepSequence);
  sequence_.push_back(After(Last(), procedureType));
}

void kprC_StepSequencer::Rebuild(std::span<unsigned const> procedureTypes) {
  kprC_StepSequencer made(addedMassPermitted_);
  made.sequence_.reserve(procedureTypes.size());
  for (unsigned const type : procedureTypes) { made.Append(type); }
  sequence_ = std::move(made.sequence_);
}

std::vector<unsigned> kprC_StepSequencer::Types(std::size_t end) const {
  std::vector<unsigned> types;
  types.reserve(end);
  for (std::size_t i = 1; i < end; ++i) { types.push_back(steps_.ProcedureType(i)); }
  return types;
}

std::size_t kprC_StepSequencer::Known(cow_String const& stepName) const {
  std::size_t const index = steps_.Find(stepName.View());
  kprC_Assert(index != kprC_StepTable::npos, kprC_ErrorEnm::NoSuchStep);
  return index;
}

void kprC_StepSequencer::Run() { Rebuild(Types(steps_.Size())); }

void kprC_StepSequencer::Run(cow_String const& stepName, bool stopBefore) { Rebuild(Types(Known(stepName) + (stopBefore ? 0 : 1))); }

void kprC_StepSequencer::InsertAfter(cow_String const& stepName, unsigned procedureType) {
  auto const at = static_cast<std::ptrdiff_t>(Known(stepName));
  std::vector<unsigned> types = Types(steps_.Size());
  types.insert(types.begin() + at, procedureType);
  Rebuild(types);
}

void kprC_StepSequencer::Replace(cow_String const& stepName, unsigned procedureType) {
  std::size_t const index = Known(stepName);
  kprC_Assert(index != 0, kprC_ErrorEnm::InitialStepReplaced);
  std::vector<unsigned> types = Types(steps_.Size());
  types[index - 1] = procedureType;
  Rebuild(types);
}

// What may follow a step that is no perturbation step is the same whatever stands before it, but for what a frequency step allows.
kprC_StepSequencer::Entry kprC_StepSequencer::EntryBefore(kprC_StepTable const& steps, std::size_t index) {
  std::size_t first = index;  // of the steps that have to be looked at
  while (first > 1 && kprC_perturbationProcedures.Contains(steps.ProcedureType(first - 1))) { --first; }
  first = first > 1 ? first - 1 : 1;
  Entry entry = kStart;
  entry.frequency = steps.LastBefore(first, Frequency) != 0;
  for (std::size_t i = first; i < index; ++i) { entry = After(entry, steps.ProcedureType(i)); }
  return entry;
}

bool kprC_StepSequencer::MayInsert(kprC_StepTable const& legal, std::size_t index, unsigned procedureType, bool addedMassPermitted) {
  kprC_StepSequencer const rules(addedMassPermitted);
  Entry was = EntryBefore(legal, index);
  if (!rules.Permitted(was.next).Contains(procedureType)) { return false; }
  Entry is = After(was, procedureType);
  for (std::size_t i = index; i < legal.Size() && !(is == was); ++i) {
    unsigned const type = legal.ProcedureType(i);
    if (!rules.Permitted(is.next).Contains(type)) { return false; }
    was = After(was, type);
    is = After(is, type);
  }
  return true;
}

// Behind a step that leaves things as they were, the rest of the sequence is as legal as it was.
bool kprC_StepSequencer::IsRemovable(int index) const {
  kprC_Assert(index >= 0 && static_cast<std::size_t>(index) < Size(), kprC_ErrorEnm::StepIndex);
  auto const removed = static_cast<std::size_t>(index);
  Entry last = Before(removed);
  for (std::size_t i = removed + 1; i < Size(); ++i) {
    if (!last.next.Contains(sequence_[i].type)) { return false; }
    last = After(last, sequence_[i].type);
    if (last == sequence_[i]) { return true; }
  }
  return true;
}

void kprC_StepSequencer::Remove(int index) {
  kprC_Assert(IsRemovable(index), kprC_ErrorEnm::StepSequence);
  sequence_.erase(sequence_.begin() + index);
  for (auto i = static_cast<std::size_t>(index); i < Size(); ++i) { sequence_[i] = After(Before(i), sequence_[i].type); }
}

cow_List<unsigned> kprC_StepSequencer::Sequence() const {
  cow_List<unsigned> types;
  for (Entry const& entry : sequence_) { types.Append(entry.type); }
  return types;
}

cow_List<unsigned> kprC_StepSequencer::Appendable(bool perturbation) const {
  kprC_ProcedureSet const allowed = MayFollow();
  cow_List<unsigned> types;
  for (auto const& entry : thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Entries()) {
    if (allowed.Contains(entry.type) && kprC_perturbationProcedures.Contains(entry.type) == perturbation) { types.Append(entry.type); }
  }
  return types;
}

std::string kprC_StepSequencer::WhyNot(unsigned procedureType) const {
  if (kprC_FindProcedure(procedureType) == nullptr) { return "This is no procedure."; }
  if (MayFollow().Contains(procedureType)) { return ""; }
  std::string const name = NameOf(procedureType);
  if (procedureType == SubstructureGenerate) { return "A " + name + " step is never part of a sequence."; }
  if (procedureType == UsaAddedMassGeneration && !addedMassPermitted_) { return name + " is not permitted in this sequence."; }
  if (sequence_.empty()) {
    return procedureType == ComplexFrequency || kBuildsOnModes.Contains(procedureType) ? name + " needs a FREQUENCY step before it."
                                                                                       : name + " cannot be the first step.";
  }
  std::string const last = NameOf(Last().type);
  kprC_ProcedureSet const next = kDirect[IndexOf(Last().type)];
  if (next.IsEmpty()) { return "Nothing may follow a " + last + " step."; }
  if (kprC_IsExplicit(procedureType)) {
    return name + (procedureType == Anneal ? " may only follow an explicit step."
                                           : " may only be the first step or follow another explicit step.");
  }
  if (kprC_IsExplicit(Last().type) || kEndOfMechanics.Contains(Last().type)) {
    return "Only " + NamesOf(next) + " may follow a " + last + " step.";
  }
  if (kBuildsOnModes.Contains(procedureType)) {
    return name + " must follow a FREQUENCY step, with none but perturbation steps between them.";
  }
  if (procedureType == ComplexFrequency) { return name + " needs a FREQUENCY step somewhere before it."; }
  if (!kprC_perturbationProcedures.Contains(Last().type)) { return name + " may not follow a " + last + " step."; }
  // a perturbation step is looked through
  auto const general = std::ranges::find_if(sequence_.rbegin(), sequence_.rend(),
                                            [](Entry const& entry) { return !kprC_perturbationProcedures.Contains(entry.type); });
  return general == sequence_.rend()
             ? name + " may not follow perturbation steps alone."
             : name + " may not follow a " + NameOf(general->type) + " step, also with perturbation steps between them.";
}
