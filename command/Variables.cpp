#include "command/Variables.h"

#include <functional>
#include <set>

#include "command/Words.h"
#include "module/kor/korC_Output.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "platform/CoreUtils/thr_Singleton.h"

namespace gattr {

namespace {
using ChannelEnm = korC_OdbChannel::TypeEnm;

template <class E> std::string TextOf(E value) { return std::string(omu_PrimEnum<E, 1>(value).View()); }

/// Whether requests of the channel write anything in such a step.
bool Writes(unsigned procedureType, ChannelEnm channel) {
  unsigned const kind = channel == korC_OdbChannel::FIELD ? korC_FieldOutput::TypeId() : korC_HistoryOutput::TypeId();
  return kprC_FindType(korC_Types(), kind)->procedures.Contains(procedureType);
}

/// What PRESELECT stands for in the procedure and the channels that are asked for.
std::set<std::string, std::less<>> Preselected(VariableQuery const& query) {
  std::set<std::string, std::less<>> names;
  if (!query.procedureType) { return names; }
  korC_OdbRequestTable const& table = korC_OdbRequestTable::Instance();
  for (ChannelEnm const channel : {korC_OdbChannel::FIELD, korC_OdbChannel::HISTORY}) {
    if (query.channel && *query.channel != channel) { continue; }
    for (cow_String const& key : table.Defaults(*query.procedureType, channel, korC_DomainTypeEnm::WHOLE_MODEL)) {
      names.emplace(key.View());
    }
  }
  return names;
}
}  // namespace

std::vector<VariableInfo> Variables(VariableQuery const& query) {
  std::vector<VariableInfo> variables;
  std::vector<std::string> const categories = VariableCategories();
  auto const preselected = Preselected(query);
  for (korC_OdbRequestSpec const& row : korC_OdbRequestTable::Rows()) {
    if (query.procedureType && !row.procedures.Contains(*query.procedureType)) { continue; }
    if (query.category && row.label != *query.category) { continue; }
    auto const isIn = [&](ChannelEnm channel) {
      return row.IsIn(channel) && (!query.procedureType || Writes(*query.procedureType, channel));
    };
    bool const field = isIn(korC_OdbChannel::FIELD), history = isIn(korC_OdbChannel::HISTORY);
    if (query.channel && !isIn(*query.channel)) { continue; }
    if (query.procedureType && !field && !history) { continue; }
    VariableInfo info;
    info.name = row.name;
    info.description = row.Description();
    info.category = categories[static_cast<std::size_t>(row.label)];
    info.location = TextOf(row.location);
    info.output = TextOf(row.print);
    row.ForEachComponent([&info](std::string_view component) { info.components.emplace_back(component); });
    info.parent = row.parent;
    if (field) { info.channels.emplace_back("field"); }
    if (history) { info.channels.emplace_back("history"); }
    for (auto const& entry : thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Entries()) {
      if (row.procedures.Contains(entry.type)) { info.procedures.emplace_back(entry.label.View()); }
    }
    info.preselected = preselected.contains(row.name);
    variables.push_back(std::move(info));
  }
  return variables;
}

std::vector<std::string> VariableCategories() {
  std::vector<std::string> categories;
  for (std::string_view const text : korC_OdbCategories()) {
    categories.emplace_back(text.substr(0, text.find("\\@")));  // what stands behind it is the key of its translation
  }
  return categories;
}

std::vector<std::string> ProcedureLabels() {
  std::vector<std::string> labels;
  for (auto const& entry : thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Entries()) {
    if (entry.type != kprC_ProcedureTypeLabelMap::kNone) { labels.emplace_back(entry.label.View()); }
  }
  return labels;
}

}  // namespace gattr
