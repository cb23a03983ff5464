#include "report/RenderEffects.h"

#include <ostream>

#include "command/Words.h"
#include "report/TextTable.h"
#include "text/Text.h"

namespace gattr {
namespace {

std::string StepsText(std::vector<std::string> const& steps) {
  std::string text;
  for (std::string const& step : steps) { text += (text.empty() ? "in " : ", ") + Quoted(step); }
  return text;
}

TextTable::Cell StatusCell(std::optional<mdl_PropagationStatusEnm> status) {
  return status ? TextTable::Cell(WordOf(*status).word, StyleOf(*status)) : TextTable::Cell("none", Style::Faint);
}

Json StatusJson(std::optional<mdl_PropagationStatusEnm> status) { return status ? Json(static_cast<int>(*status)) : Json(); }

}  // namespace

Style StyleOf(ChangeKind change) {
  switch (change) {
    case ChangeKind::Created: return Style::New;
    case ChangeKind::Deleted: return Style::Off;
    default: return Style::Changed;
  }
}

void RenderText(std::ostream& out, Effects const& effects, TextLayout const& layout) {
  TextTable objects({"change", "kind", "name", "details"});
  for (ObjectChange const& object : effects.objects) {
    std::string told = object.change == ChangeKind::Renamed ? "was " + Quoted(object.before) : "";
    std::string const steps = StepsText(object.steps);
    if (!told.empty() && !steps.empty()) { told += "; "; }
    told += steps;
    objects.Add({{ChangeText(object.change), StyleOf(object.change)}, object.kind, {object.name, Style::Strong}, told});
  }
  if (objects.IsEmpty()) { return; }
  objects.Print(out, layout.width, layout.color);
  TextTable statuses({"attribute", "kind", "from step", "to step", "before", "after"});
  for (StatusChange const& change : effects.statuses) {
    statuses.Add({{change.name, Style::Strong},
                  change.kind,
                  change.firstStep,
                  change.lastStep == change.firstStep ? "" : change.lastStep,
                  StatusCell(change.before),
                  StatusCell(change.after)});
  }
  if (statuses.IsEmpty()) { return; }
  out << '\n';
  statuses.Print(out, layout.width, layout.color);
}

Json ToJson(Effects const& effects) {
  Json objects = Json::array(), statuses = Json::array();
  for (ObjectChange const& object : effects.objects) {
    Json& told = objects.emplace_back(Json{{"change", ChangeText(object.change)}, {"kind", object.kind}, {"name", object.name}});
    if (object.change == ChangeKind::Renamed) { told["before"] = object.before; }
    if (!object.steps.empty()) { told["steps"] = object.steps; }
  }
  for (StatusChange const& change : effects.statuses) {
    statuses.push_back({{"kind", change.kind},
                        {"name", change.name},
                        {"firstStep", change.firstStep},
                        {"lastStep", change.lastStep},
                        {"before", StatusJson(change.before)},
                        {"after", StatusJson(change.after)}});
  }
  return {{"objects", std::move(objects)}, {"statuses", std::move(statuses)}};
}

Json ToJson(Outcome const& outcome) {
  Json told = {{"ok", outcome.ok}};
  if (!outcome.ok) {
    Refusal const& refused = outcome.refused;
    told["refused"] = {{"module", refused.module}, {"code", refused.code}, {"exception", refused.exception}, {"message", refused.message},
                       {"object", outcome.object}, {"step", outcome.step}, {"member", outcome.member},       {"hint", outcome.hint}};
    return told;
  }
  Json& histories = told["history"] = Json::object();
  for (auto const& [name, statuses] : outcome.history) { histories[name] = statuses; }
  if (!outcome.changed) { told["changed"] = false; }
  if (!outcome.report.empty()) { told["report"] = outcome.report; }
  if (!outcome.effects.objects.empty()) { told["effects"] = ToJson(outcome.effects); }
  return told;
}

}  // namespace gattr
