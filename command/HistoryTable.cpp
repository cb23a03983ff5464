#include "command/HistoryTable.h"

#include <algorithm>
#include <limits>
#include <set>

#include "command/Command.h"
#include "command/Origins.h"
#include "command/Words.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {
namespace {

bool Shows(std::vector<std::string> const& names, std::string_view name) {
  return names.empty() || std::ranges::any_of(names, [&](std::string const& pattern) { return Fits(pattern, name); });
}

/// The members that \p state sets or frees: "u1 0.5, u2 FREED".
std::string ValuesOf(cls_Object const& state) {
  std::string values;
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (row.again || row.ops->isModified == nullptr || !row.ops->isModified(row.In(&state))) { continue; }
    cls_Value const value = row.ToValue(&state);
    auto const* const text = value.As<std::string>();
    values += (values.empty() ? "" : ", ") + std::string(row.name) + " " + (text != nullptr ? *text : JsonText(value));
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

/// Whether the attribute has any of the members in its steps.
bool HasAny(kprC_StepDependent const& item, std::vector<std::string> const& members) {
  cls_Object const* const state = CreateState(item);
  return state != nullptr && std::ranges::any_of(state->MemberRows(), [&](cls_MemberRow const& row) {
           return IsTold(row) && std::ranges::find(members, ArgumentName(row)) != members.end();
         });
}

/// What \p members are in the steps of \p columns.
void Hold(HistoryTable::Row& row, kprC_StepAwareRepository const& family, kprC_StepDependent const& item,
          std::vector<std::size_t> const& columns, std::vector<std::string> const& members) {
  row.heldAt.resize(columns.size());
  std::size_t column = 0;
  ForEachOriginRun(family, item, [&](OriginRun const& run) {
    if (column == columns.size() || columns[column] >= run.end) { return; }
    HistoryTable::Held held{std::vector<cls_Value>(members.size()), std::vector<bool>(members.size())};
    for (Origin const& origin : run.members) {
      auto const asked = static_cast<std::size_t>(std::ranges::find(members, origin.Member()) - members.begin());
      if (asked == members.size() || !run.inForce) { continue; }
      held.values[asked] = origin.Value();
      held.own[asked] = origin.own;
    }
    row.held.push_back(std::move(held));
    for (; column < columns.size() && columns[column] < run.end; ++column) {
      row.heldAt[column] = static_cast<std::uint32_t>(row.held.size() - 1);
    }
  });
}

/// The statuses in all steps.
void Fill(kprC_StepDependent const& item, std::uint8_t* statuses) {
  item.ForEachRun([statuses](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const*) {
    std::fill(statuses + begin, statuses + end, static_cast<std::uint8_t>(status));
  });
}

double NumberIn(cls_Object const& state, std::string_view member) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  auto const rows = state.MemberRows();
  auto const row = std::ranges::find_if(rows, [&](cls_MemberRow const& known) { return known.IsCalled(member); });
  if (row == rows.end()) { return kNone; }
  if (row->ops->realInForce != nullptr) {
    double const* const value = row->ops->realInForce(row->In(&state));
    return value == nullptr ? kNone : *value;
  }
  cls_Value const value = row->ToValue(&state);
  if (auto const* const real = value.As<double>()) { return *real; }
  auto const* const whole = value.As<long long>();
  return whole == nullptr ? kNone : static_cast<double>(*whole);
}

/// Calls \p visit(item, index) for every attribute, the index being the one of its first place in a matrix of so many \p columns.
template <class Visit> void ForEachPlace(ddr_Model const& model, std::size_t columns, Visit&& visit) {
  std::size_t place = 0;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const&, kprC_StepDependent const& item) {
      visit(item, place);
      place += columns;
    });
  });
}

}  // namespace

void FillStatuses(ddr_Model const& model, std::span<std::uint8_t> statuses) {
  ForEachPlace(model, kprC_Steps(model).Size(),
               [&](kprC_StepDependent const& item, std::size_t place) { Fill(item, statuses.data() + place); });
}

void FillValues(ddr_Model const& model, std::string_view member, std::span<double> values) {
  ForEachPlace(model, kprC_Steps(model).Size(), [&](kprC_StepDependent const& item, std::size_t place) {
    item.ForEachRun([&](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm, cls_Object const* state) {
      double const value = state == nullptr ? std::numeric_limits<double>::quiet_NaN() : NumberIn(*state, member);
      std::fill(values.data() + place + begin, values.data() + place + end, value);
    });
  });
}

HistoryTable HistoriesOf(ddr_Model const& model, HistoryFilter const& filter) {
  HistoryTable table;
  table.model = model.Name().View();
  table.space = model.Space();
  table.members = filter.values;
  kprC_StepTable const& steps = kprC_Steps(model).Table();
  std::vector<std::size_t> columns;
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    if (!Shows(filter.steps, steps.Name(i).View())) { continue; }
    columns.push_back(i);
    unsigned const type = steps.ProcedureType(i);
    table.steps.push_back({std::string(steps.Name(i).View()), ProcedureText(type), kprC_perturbationProcedures.Contains(type)});
  }
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      if (!Shows(filter.attributes, name.View()) || !Shows(filter.types, item.ConstructionName())) { return; }
      if (!filter.values.empty() && !HasAny(item, filter.values)) { return; }
      HistoryTable::Row row{std::string(name.View()), std::string(family.ItemCmd()), item.ConstructionName(), item.IsSuppressed(), {}};
      row.statuses.resize(steps.Size());
      Fill(item, row.statuses.data());
      for (std::size_t i = 0; i < columns.size(); ++i) { row.statuses[i] = row.statuses[columns[i]]; }
      row.statuses.resize(columns.size());
      auto const asked = [&](std::uint8_t status) {
        return std::ranges::find(filter.statuses, static_cast<mdl_PropagationStatusEnm>(status)) != filter.statuses.end();
      };
      if (!filter.statuses.empty() && std::ranges::none_of(row.statuses, asked)) { return; }
      if (filter.changes) { row.changes = ChangesOf(family, item, columns); }
      if (!filter.values.empty()) { Hold(row, family, item, columns, filter.values); }
      table.rows.push_back(std::move(row));
    });
  });
  return table;
}

std::vector<std::string> AttributeNames(ddr_Model const& model) {
  std::vector<std::string> names;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const&) { names.emplace_back(name.View()); });
  });
  return names;
}

std::vector<std::string> TypeNames(ddr_Model const& model) {
  std::vector<std::string> names;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    for (auto const& construction : family.Constructions()) { names.emplace_back(construction.command); }
  });
  return names;
}

std::vector<std::string> MemberNames(ddr_Model const& model) {
  std::set<std::string> names;
  std::set<unsigned> seen;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const&, kprC_StepDependent const& item) {
      cls_Object const* const state = CreateState(item);
      if (state == nullptr || !seen.insert(item.DynTypeId()).second) { return; }
      for (cls_MemberRow const& row : state->MemberRows()) {
        if (IsTold(row)) { names.emplace(ArgumentName(row)); }
      }
    });
  });
  return {names.begin(), names.end()};
}

std::vector<std::string> StepNames(ddr_Model const& model) { return Texts(kprC_Steps(model).Names()); }

}  // namespace gattr
