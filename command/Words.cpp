#include "command/Words.h"

#include <array>

#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "platform/CoreUtils/thr_Singleton.h"
#include "text/Text.h"

namespace gattr {

namespace {
constexpr std::string_view kMeanings[kStatusCount] = {
    "not yet created",
    "begins here",
    "carried unchanged from an earlier step",
    "changed here",
    "switched off here",
    "off since an earlier step",
    "the step does not admit this type; it resumes after it",
    "exists, but is not carried into this step",
    "part of the base state: active, not editable",
    "the base state's values, unchanged",
    "the base state's values, changed here",
    "switched off for this perturbation step only",
    "held by the modes: neither active nor editable",
    "at the initial value since an earlier reset",
    "an initial condition in force: active, not editable",
    "set back to the initial value here",
};

// Small letters for what is of a base state or a single step.
constexpr std::string_view kSigns = ".C=MD-~/bBmd#iIR";
static_assert(kSigns.size() == kStatusCount);

/// The statuses' texts in small letters: "passed over" of "PASSED_OVER".
std::array<std::string, kStatusCount> Lowered() {
  std::array<std::string, kStatusCount> words;
  for (unsigned i = 0; i < kStatusCount; ++i) {
    words[i] = omu_EnumText(omu_EnumTable<mdl_PropagationStatusEnm>::rows, i).View();
    for (char& c : words[i]) { c = c == '_' ? ' ' : static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); }
  }
  words[0] = "-";
  return words;
}
}  // namespace

StatusWord const& WordOf(mdl_PropagationStatusEnm status) {
  static auto const texts = Lowered();
  static auto const words = [] {
    std::array<StatusWord, kStatusCount> made;
    for (std::size_t i = 0; i < kStatusCount; ++i) { made[i] = {texts[i], kMeanings[i], kSigns[i]}; }
    return made;
  }();
  return words[static_cast<std::size_t>(status) % kStatusCount];
}

std::string RefusalText(Refusal const& refusal) {
  std::string const text = OneLine(refusal.message);
  return refusal.code < 0 ? text : text + " [" + refusal.module + " " + std::to_string(refusal.code) + "]";
}

std::string ProcedureText(unsigned procedureType) {
  if (procedureType == kprC_ProcedureType::Initial) { return "INITIAL"; }
  auto const label = thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Label(procedureType);
  if (!label.empty()) { return std::string(label); }
  auto const* row = kprC_FindProcedure(procedureType);
  return row == nullptr ? "" : std::string(row->command.View());
}

std::string ProcedureWords(std::string_view label) {
  std::string words(label);
  for (char& c : words) { c = c == '_' ? ' ' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
  return words;
}

std::string_view ActsOnText(kprC_ActsOn actsOn) {
  switch (actsOn) {
    case kprC_ActsOn::Anything: return "";
    case kprC_ActsOn::Sets: return "sets";
    case kprC_ActsOn::Surfaces: return "surfaces";
    case kprC_ActsOn::Regions: return "sets or surfaces";
    case kprC_ActsOn::Connectors: return "connectors";
    case kprC_ActsOn::Model: return "the model, or a set of it";
  }
  return "";
}

}  // namespace gattr
