#include <algorithm>
#include <functional>

#include "command/Check.h"
#include "command/Command.h"
#include "command/Hints.h"
#include "command/Words.h"
#include "framework/ddr_ModelMembers.h"
#include "module/kpr/kprC_assert.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "text/Text.h"

namespace gattr {

namespace {

ddr_LoadCaseMap const& LoadCases(ddr_Model const& model) { return model.ConstGet<ddr_LoadCaseMap>(lcsC_LoadCase::repositoryCmd()); }

/// The labels of the procedures whose steps take load cases.
std::vector<std::string> ProceduresWithLoadCases() {
  std::vector<std::string> labels;
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    if (row.loadCases == kprC_Answer::Yes) { labels.emplace_back(row.label.View()); }
  }
  return labels;
}

void AssertStep(ddr_Model const& model, Subject& subject, lcsC_LoadCase const& loadCase) {
  subject.member = lcsC_LoadCase::stepNameCmd();
  kprC_StepContainer const& steps = kprC_Steps(model);
  if (!steps.IsMember(loadCase.stepName)) {
    subject.hint = Suggestion(loadCase.stepName, Texts(steps.Names()), "Steps");
    subject.atFault = true;
    kprC_Assert(false, kprC_ErrorEnm::NoSuchStep);
  }
  kprC_Step const& step = steps.Step(steps.Index(loadCase.stepName));
  if (step.AllowLoadCases()) { return; }
  RefuseEdit(subject, "A step of the procedure " + ProcedureText(step.ProcedureType()) + " takes no load cases.",
             "Those of these do: " + QuotedList(ProceduresWithLoadCases()) + ".");
}

void AssertTerm(ddr_Model const& model, Subject& subject, lcsC_LoadCase const& loadCase, lcsC_Term const& term) {
  subject.member = lcsC_LoadCase::attributesCmd();
  subject.step = loadCase.stepName.View();
  bool const twice = std::ranges::count_if(loadCase.attributes,
                                           [&](lcsC_Term const& other) { return other.kind == term.kind && other.name == term.name; }) > 1;
  if (twice) { RefuseValue(subject, "The " + ObjectText(term.kind, term.name) + " is named twice."); }
  std::vector<std::string> kinds;
  bool const found = FindRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) {
    std::optional<int> const refusal = repository.EditRefusals().notInLoadCase;
    if (!refusal) { return false; }
    kinds.emplace_back(repository.ItemCmd());
    if (repository.ItemCmd() != term.kind.View()) { return false; }
    kprC_StepDependent const* const item = repository.ConstItem(term.name);
    if (item == nullptr) {
      subject.hint =
          "There is no " + ObjectText(term.kind, term.name) + ". " + Suggestion(term.name, Texts(repository.Keys()), "There are");
      repository.Refuse(*refusal);
    }
    subject.hint = "It is " + ObjectText(term.kind, term.name) + ", a " + item->ConstructionName() + ". ";
    subject.hint += item->IsSuppressed() ? std::string("It is suppressed.") : StatusHint(*item, loadCase.stepName);
    item->AssertInLoadCase(loadCase.stepName);
    subject.hint.clear();
    return true;
  });
  if (!found) {
    RefuseUnknown(subject, "Load cases know no " + ObjectText(term.kind, term.name) + ".", Suggestion(term.kind, kinds, "They know"));
  }
}

bool Names(lcsC_LoadCase const& loadCase, std::string_view kind, cow_String const& name) {
  if (kind == kprC_Step::stepCmd().View()) { return loadCase.stepName == name; }
  return std::ranges::any_of(loadCase.attributes, [&](lcsC_Term const& term) { return term.kind.View() == kind && term.name == name; });
}

}  // namespace

void AssertLoadCase(Call& call, cls_Object const& object) {
  auto const& loadCase = dynamic_cast<lcsC_LoadCase const&>(object);
  AssertStep(call.model, call.subject, loadCase);
  for (lcsC_Term const& term : loadCase.attributes) { AssertTerm(call.model, call.subject, loadCase, term); }
  call.subject.member.clear();
}

void CheckLoadCases(ddr_Model const& model, std::vector<Finding>& findings) {
  for (auto const& [name, loadCase] : LoadCases(model).Map()) {
    auto const ask = [&, &key = name](std::function<void(Subject&)> const& question) {
      Subject subject;
      auto const refusal = RefusalBy([&] { question(subject); });
      if (!refusal) { return; }
      findings.push_back({FindingKind::LoadCase,
                          std::string(lcsC_LoadCase::loadCaseCmd().View()),
                          std::string(key.View()),
                          subject.step,
                          subject.member,
                          *refusal,
                          {},
                          subject.hint,
                          false});
    };
    ask([&, &own = *loadCase](Subject& subject) { AssertStep(model, subject, own); });
    if (!kprC_Steps(model).IsMember(loadCase->stepName)) { continue; }
    for (lcsC_Term const& term : loadCase->attributes) {
      ask([&, &own = *loadCase](Subject& subject) { AssertTerm(model, subject, own, term); });
    }
  }
}

void RenameInLoadCases(Call& call, std::string_view kind, cow_String const& name, cow_String const& newName) {
  ddr_Model const before = call.model;
  for (auto const& [key, loadCase] : LoadCases(before).Map()) {
    if (!Names(*loadCase, kind, name)) { continue; }
    lcsC_LoadCase& own = *call.model.Get<ddr_LoadCaseMap>(lcsC_LoadCase::repositoryCmd()).Get(key);
    if (kind == kprC_Step::stepCmd().View()) {
      own.stepName = newName;
      continue;
    }
    cls_xo1DArrayList<lcsC_Term> followed;
    for (lcsC_Term term : own.attributes) {
      if (term.kind.View() == kind && term.name == name) { term.name = newName; }
      followed.Append(std::move(term));
    }
    own.attributes = std::move(followed);
  }
}

void AssertInNoLoadCase(Call& call, std::string_view kind, cow_String const& name) {
  for (auto const& [key, loadCase] : LoadCases(call.model).Map()) {
    if (!Names(*loadCase, kind, name)) { continue; }
    RefuseEdit(call.subject, "The " + ObjectText(kind, name) + " cannot be deleted: it is in use by " +
                                 ObjectText(lcsC_LoadCase::loadCaseCmd(), key) + ".");
  }
}

}  // namespace gattr
