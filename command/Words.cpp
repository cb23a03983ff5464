#include "command/Words.h"

#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace gattr {

namespace {
constexpr StatusWord kWords[kStatusCount] = {
    {"-", "not yet created"},
    {"created", "begins here"},
    {"propagated", "carried unchanged from an earlier step"},
    {"modified", "changed here"},
    {"deactivated", "switched off here"},
    {"off", "off since an earlier step"},
    {"passed over", "the step does not admit this type; it resumes after it"},
    {"not carried", "exists, but is not carried into this step"},
    {"in base state", "part of the base state: active, not editable"},
    {"base state", "the base state's values, unchanged"},
    {"base modified", "the base state's values, changed here"},
    {"off here", "switched off for this perturbation step only"},
    {"built in", "held by the modes: neither active nor editable"},
    {"initial value", "at the initial value since an earlier reset"},
    {"initial", "an initial condition in force: active, not editable"},
    {"reset", "set back to the initial value here"},
};
}  // namespace

StatusWord const& WordOf(mdl_PropagationStatusEnm status) { return kWords[static_cast<std::size_t>(status) % kStatusCount]; }

std::string ProcedureText(unsigned procedureType) {
  if (procedureType == kprC_ProcedureType::Initial) { return "INITIAL"; }
  auto const label = thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Label(procedureType);
  if (!label.empty()) { return std::string(label); }
  auto const* row = kprC_FindProcedure(procedureType);
  return row == nullptr ? "" : std::string(row->command.View());
}

}  // namespace gattr
