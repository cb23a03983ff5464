#include "report/HistoryTable.h"

#include <algorithm>

#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "text/Json.h"
#include "text/Text.h"

namespace gattr {
namespace {

constexpr Style kStyles[kStatusCount] = {
    Style::Faint, Style::New,  Style::Kept,    Style::Changed, Style::Off,  Style::Faint, Style::Faint, Style::Faint,
    Style::Held,  Style::Kept, Style::Changed, Style::Off,     Style::Held, Style::Kept,  Style::Held,  Style::Changed,
};

/// Calls \p visit(repository) for every repository of step-dependent attributes.
template <class Visit> void ForEachFamily(ddr_Model const& model, Visit&& visit) {
  for (auto const& [member, extension] : model.Extensions()) {
    if (auto const* family = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet())) { visit(*family); }
  }
}

bool Shows(std::vector<std::string> const& names, std::string_view name) {
  return names.empty() || std::ranges::any_of(names, [&](std::string const& pattern) { return Fits(pattern, name); });
}

/// The members that \p state sets or frees: "u1 0.5, u2 FREED".
std::string ValuesOf(cls_Object const& state) {
  std::string values;
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (row.again || row.ops->isModified == nullptr || !row.ops->isModified(row.In(&state))) { continue; }
    Json const value = ToJson(row.ToValue(&state));
    values += (values.empty() ? "" : ", ") + std::string(row.name) + " " + (value.is_string() ? value.get<std::string>() : value.dump());
  }
  return values;
}

/// What the attribute says of its own in the steps of \p columns.
std::vector<HistoryTable::Change> ChangesOf(kprC_StepAwareRepository const& family, kprC_StepDependent const& item,
                                            std::vector<std::size_t> const& columns) {
  std::vector<HistoryTable::Change> changes;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    auto const status = static_cast<std::size_t>(item.StatusAt(columns[i]));
    if ((family.Statuses()[status] & kprC_Changed) == 0) { continue; }
    cls_Object const* const state = item.StateAt(columns[i]);
    changes.push_back({i, state == nullptr ? "" : ValuesOf(*state)});
  }
  return changes;
}

}  // namespace

Style StyleOf(mdl_PropagationStatusEnm status) { return kStyles[static_cast<std::size_t>(status) % kStatusCount]; }

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
      if (!Shows(filter.attributes, name.View()) || !Shows(filter.types, item.ConstructionName())) { return; }
      HistoryTable::Row row{std::string(name.View()), std::string(family.ItemCmd()), item.ConstructionName(), item.IsSuppressed(), {}};
      row.statuses.reserve(columns.size());
      for (std::size_t const column : columns) { row.statuses.push_back(static_cast<std::uint8_t>(item.StatusAt(column))); }
      auto const asked = [&](std::uint8_t status) {
        return std::ranges::find(filter.statuses, static_cast<mdl_PropagationStatusEnm>(status)) != filter.statuses.end();
      };
      if (!filter.statuses.empty() && std::ranges::none_of(row.statuses, asked)) { return; }
      if (filter.changes) { row.changes = ChangesOf(family, item, columns); }
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

std::vector<std::string> TypeNames(ddr_Model const& model) {
  std::vector<std::string> names;
  ForEachFamily(model, [&](kprC_StepAwareRepository const& family) {
    for (auto const& construction : family.Constructions()) { names.emplace_back(construction.command); }
  });
  return names;
}

std::vector<std::string> StepNames(ddr_Model const& model) {
  std::vector<std::string> names;
  for (cow_String const& name : kprC_Steps(model).Names()) { names.emplace_back(name.View()); }
  return names;
}

}  // namespace gattr
