#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"

#include <algorithm>
#include <array>

#include "platform/CoreUtils/thr_Singleton.h"

namespace {

using enum kprC_ProcedureType::Enm;

constexpr unsigned kOrder[] = {
    Anneal,
    Buckle,
    CoupledTempDisplacement,
    CoupledThermalElectric,
    ImplicitDynamics,
    ExplicitDynamics,
    SubspaceDynamics,
    TempDisplacementDynamics,
    ComplexFrequency,
    Frequency,
    Geostatic,
    HeatTransfer,
    MassDiffusion,
    ModalDynamics,
    RandomResponse,
    ResponseSpectrum,
    Soils,
    Static,
    StaticLinearPerturbation,
    StaticRiks,
    SteadyStateDirect,
    SteadyStateSubspace,
    SteadyStateModal,
    UsaAddedMassGeneration,
    Visco,
};

constexpr auto kEntries = [] {
  std::array<kprC_ProcedureTypeLabelMap::Entry, std::size(kOrder) + 1> entries{};
  entries[0] = {"NONE", kprC_ProcedureTypeLabelMap::kNone};
  for (std::size_t i = 0; i < std::size(kOrder); ++i) {
    entries[i + 1] = {kprC_FindProcedure(kOrder[i])->label, kOrder[i]};
  }
  return entries;
}();

static_assert(std::ranges::all_of(kprC_procedures,
                                  [](kprC_ProcedureRow const& row) {
                                    return std::ranges::count(kOrder, row.type) == (row.label.Size() != 0 ? 1 : 0);
                                  }),
              "every procedure with a label is offered once");

}  // namespace

std::span<kprC_ProcedureTypeLabelMap::Entry const> kprC_ProcedureTypeLabelMap::Entries() const { return kEntries; }

std::string_view kprC_ProcedureTypeLabelMap::Label(unsigned procedureType) const {
  kprC_ProcedureRow const* const row = kprC_FindProcedure(procedureType);
  return row != nullptr ? row->label.View() : std::string_view();
}

unsigned kprC_ProcedureTypeLabelMap::Type(std::string_view label) const {
  auto const at = std::ranges::find(kEntries, label, [](Entry const& entry) { return entry.label.View(); });
  return at != kEntries.end() ? at->type : kNone;
}

unsigned kprC_LabelsBitMap::Value(std::string_view label) const {
  return Value(thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Type(label));
}
