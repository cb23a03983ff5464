#include "report/HistoryTable.h"

#include <algorithm>

#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace gattr {
namespace {

constexpr StatusWord kWords[kStatusCount] = {
    {"-", "not yet created", Style::Faint},
    {"created", "begins here", Style::New},
    {"propagated", "carried unchanged from an earlier step", Style::Kept},
    {"modified", "changed here", Style::Changed},
    {"deactivated", "switched off here", Style::Off},
    {"off", "off since an earlier step", Style::Faint},
    {"passed over", "the step does not admit this type; it resumes after it", Style::Faint},
    {"not carried", "exists, but is not carried into this step", Style::Faint},
    {"in base state", "part of the base state: active, not editable", Style::Held},
    {"base state", "the base state's values, unchanged", Style::Kept},
    {"base modified", "the base state's values, changed here", Style::Changed},
    {"off here", "switched off for this perturbation step only", Style::Off},
    {"built in", "held by the modes: neither active nor editable", Style::Held},
    {"initial value", "at the initial value since an earlier reset", Style::Kept},
    {"initial", "an initial condition in force: active, not editable", Style::Held},
    {"reset", "set back to the initial value here", Style::Changed},
};

/// Calls \p visit(repository) for every repository of step-dependent attributes.
template <class Visit> void ForEachFamily(ddr_Model const& model, Visit&& visit) {
  for (auto const& [member, extension] : model.Extensions()) {
    if (auto const* family = dynamic_cast<kprC_StepAwareRepository const*>(extension.ConstGet())) { visit(*family); }
  }
}

bool Shows(std::vector<std::string> const& names, std::string_view name) {
  return names.empty() || std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

StatusWord const& WordOf(mdl_PropagationStatusEnm status) { return kWords[static_cast<std::size_t>(status) % kStatusCount]; }

std::string ProcedureText(unsigned procedureType) {
  if (procedureType == kprC_ProcedureType::Initial) { return "INITIAL"; }
  auto const label = thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Label(procedureType);
  if (!label.empty()) { return std::string(label); }
  auto const* row = kprC_FindProcedure(procedureType);
  return row == nullptr ? "" : std::string(row->command.View());
}

HistoryTable HistoriesOf(ddr_Model const& model, HistoryFilter const& filter) {
  HistoryTable table;
  table.model = model.Name().View();
  table.space = model.Space();
  kprC_StepTable const& steps = kprC_Steps(model).Table();
  std::vector<std::size_t> columns;
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    if (!Shows(filter.steps, steps.Name(i).View())) { continue; }
    columns.push_back(i);
    unsigned const type = steps.ProcedureType(i);
    table.steps.push_back({std::string(steps.Name(i).View()), ProcedureText(type), kprC_perturbationProcedures.Contains(type)});
  }
  ForEachFamily(model, [&](kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      if (!Shows(filter.attributes, name.View())) { return; }
      HistoryTable::Row row{std::string(name.View()), family.ItemCmd(), item.ConstructionName(), item.IsSuppressed(), {}};
      row.statuses.reserve(columns.size());
      for (std::size_t const column : columns) { row.statuses.push_back(static_cast<std::uint8_t>(item.StatusAt(column))); }
      table.rows.push_back(std::move(row));
    });
  });
  return table;
}

std::vector<std::string> AttributeNames(ddr_Model const& model) {
  std::vector<std::string> names;
  ForEachFamily(model, [&](kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const&) { names.emplace_back(name.View()); });
  });
  return names;
}

std::vector<std::string> StepNames(ddr_Model const& model) {
  std::vector<std::string> names;
  for (cow_String const& name : kprC_Steps(model).Names()) { names.emplace_back(name.View()); }
  return names;
}

}  // namespace gattr
