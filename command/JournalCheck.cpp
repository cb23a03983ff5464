#include "command/JournalCheck.h"

#include <optional>
#include <tuple>

#include "command/Command.h"
#include "module/kpr/model/kprC_ModelSteps.h"

namespace gattr {

namespace {

/// A text argument of a command, the first of a list; empty where there is none.
std::string TextOf(cls_Value const& command, std::string_view argument) {
  cls_Value const* value = command.Find(argument);
  if (value == nullptr) { return {}; }
  if (auto const* list = value->As<cls_Value::List>(); list != nullptr && !list->empty()) { value = &list->front(); }
  auto const* const text = value->As<std::string>();
  return text == nullptr ? std::string() : *text;
}

/// What a command that was done names: kind and name of its object; what it is called where it names none.
std::pair<std::string, std::string> SubjectOf(cls_Value const& command) {
  static std::vector<KindInfo> const kinds = Session::Kinds();
  for (KindInfo const& kind : kinds) {
    if (std::string name = TextOf(command, kind.kind); !name.empty()) { return {kind.kind, std::move(name)}; }
  }
  return {"command", TextOf(command, "command")};
}

bool IsBeforeCreation(ddr_Model const& model, std::string_view kind, std::string_view name, std::string_view step) {
  bool before = false;
  std::size_t const index = kprC_Steps(model).Index(step);
  if (index == kprC_StepContainer::npos) { return false; }
  FindRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    kprC_StepDependent const* const item = repository.ItemCmd() == kind ? repository.ConstItem(name) : nullptr;
    if (item != nullptr) { before = item->StatusAt(index) == mdl_PropagationStatusEnm::NotYetCreated; }
    return item != nullptr;
  });
  return before;
}

/// Regions go by their type in findings of those that are left over.
std::string KindOf(Finding const& finding) { return finding.kind == "set" || finding.kind == "surface" ? "region" : finding.kind; }

}  // namespace

JournalCheck::JournalCheck(Session& session)
    : session_(session), subscription_(session.Subscribe([this](ChangeEvent const& event) {
        changes_.insert(changes_.end(), event.objects.begin(), event.objects.end());
      })) {}

void JournalCheck::Note(std::size_t line, cls_Value const& command, Outcome const& outcome) {
  for (ObjectChange const& change : changes_) { Follow(change, line); }
  changes_.clear();
  if (outcome.ok && (outcome.changed || IsDryRun(command) || !outcome.report.empty())) { return; }
  Finding finding;
  std::tie(finding.kind, finding.name) = SubjectOf(command);
  finding.step = TextOf(command, kStepName);
  finding.hint = outcome.hint;
  finding.line = line;
  if (!outcome.ok) {
    finding.found = FindingKind::CommandRefused;
    finding.member = outcome.member;
    finding.refusal = outcome.refused;
    noted_.push_back(std::move(finding));
    return;
  }
  bool const before = IsBeforeCreation(session_.Model(), finding.kind, finding.name, finding.step);
  finding.found = before ? FindingKind::BeforeCreation : FindingKind::ChangesNothing;
  finding.refusal.message = TextOf(command, "command") + " changes nothing.";
  noted_.push_back(std::move(finding));
}

void JournalCheck::Follow(ObjectChange const& change, std::size_t line) {
  ObjectKey const key(change.kind, change.name);
  bool const isStep = change.kind == kprC_Step::stepCmd().View();
  if (change.change == ChangeKind::Deleted) {
    objects_.erase(key);
    for (auto& [object, lines] : objects_) {
      if (isStep) { lines.inStep.erase(change.name); }
    }
    return;
  }
  if (change.change == ChangeKind::Renamed) {
    if (auto moved = objects_.extract(ObjectKey(change.kind, change.before)); !moved.empty()) {
      moved.key() = key;
      objects_.insert(std::move(moved));
    }
    if (isStep) {
      for (auto& [object, lines] : objects_) {
        if (auto moved = lines.inStep.extract(change.before); !moved.empty()) {
          moved.key() = change.name;
          lines.inStep.insert(std::move(moved));
        }
      }
    }
  }
  Lines& lines = objects_[key];
  if (lines.created == 0) { lines.created = line; }
  kprC_StepContainer const& steps = kprC_Steps(session_.Model());
  for (std::string const& step : change.steps) {
    if (steps.IsMember(step)) { lines.inStep[step] = line; }  // what went with its step is said nowhere any more
  }
}

std::size_t JournalCheck::LineOf(Finding const& finding) const {
  auto const found = objects_.find(ObjectKey(KindOf(finding), finding.name));
  if (found == objects_.end()) { return 0; }
  kprC_StepContainer const& steps = kprC_Steps(session_.Model());
  std::size_t const index = finding.step.empty() ? kprC_StepContainer::npos : steps.Index(finding.step);
  std::size_t line = found->second.created;
  if (index == kprC_StepContainer::npos) { return line; }
  std::optional<std::size_t> latest;  // what is in force in a step was said in the last one up to it
  for (auto const& [step, said] : found->second.inStep) {
    std::size_t const at = steps.Index(step);
    if (at == kprC_StepContainer::npos || at > index || (latest && at < *latest)) { continue; }
    latest = at;
    line = said;
  }
  return line;
}

std::vector<Finding> JournalCheck::Findings(FindingChoice const& choice, bool withModel) const {
  choice.AssertValid();
  std::vector<Finding> findings;
  if (withModel) { findings = Check(session_.Model(), choice); }
  for (Finding& finding : findings) { finding.line = LineOf(finding); }
  for (Finding const& finding : noted_) {
    if (choice.Takes(finding.Row())) { findings.push_back(finding); }
  }
  return findings;
}

}  // namespace gattr
