#include "command/Check.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "command/Command.h"
#include "command/Hints.h"
#include "command/Warnings.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"
#include "text/Text.h"

namespace gattr {

namespace {

/// What is told of a name that the model does not have where no module numbers that.
Refusal Unknown(std::string_view kind, std::string_view name) {
  return {"", -1, "omu_KeyErrorException", "There is no " + ObjectText(kind, name) + "."};
}

void CheckSteps(ddr_Model const& model, std::vector<Finding>& findings) {
  kprC_StepContainer const& steps = kprC_Steps(model);
  std::string const kind(kprC_Step::stepCmd().View());
  kprC_StepSequencer sequencer(true);
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    std::string const name(steps.Name(i).View());
    auto const add = [&](FindingKind found, Refusal refusal) -> Finding& {
      return findings.emplace_back(Finding{found, kind, name, name, {}, std::move(refusal), {}, {}, false});
    };
    if (i > 0) {
      unsigned const type = steps.Step(i).ProcedureType();
      auto refusal = RefusalBy([&] { sequencer.Append(type); });
      if (refusal) { add(FindingKind::StepSequence, *std::move(refusal)).detail = sequencer.WhyNot(type); }
    }
    if (auto refusal = RefusalBy([&] { steps.Step(i).AssertValid(); })) {
      int const code = refusal->code;
      add(FindingKind::StepParameters, *std::move(refusal)).hint = ParameterHint(steps.Step(i), steps.Table(), code);
    }
    ForEachUnknown(model, steps.Step(i), [&](ReferenceKind const& of, std::string_view unknown, std::string_view member) {
      add(FindingKind::UnknownName, Unknown(of.kind, unknown)).member = member;
    });
  }
}

void CheckNamedObjects(ddr_Model const& model, std::vector<Finding>& findings) {
  ddr_Model trial = model;
  for (ReferenceKind const& kind : ReferenceKinds()) {
    mdl_NamedObjects const& objects = kind.In(model);
    for (cow_String const& name : objects.Keys()) {
      auto const add = [&](FindingKind found, std::string_view member, Refusal refusal) {
        findings.push_back({found, std::string(kind.kind), std::string(name.View()), {}, std::string(member), std::move(refusal), {}, {}});
      };
      cls_Object const& object = *objects.ConstObject(name);
      if (auto refusal = RefusalBy([&] { kind.In(trial).Put(name, object); })) { add(FindingKind::InvalidObject, {}, *std::move(refusal)); }
      ForEachUnknown(model, object, [&](ReferenceKind const& of, std::string_view unknown, std::string_view member) {
        add(FindingKind::UnknownName, member, Unknown(of.kind, unknown));
      });
    }
  }
}

/// The checks of one attribute.
class AttributeCheck {
public:
  AttributeCheck(ddr_Model const& model, cow_String const& extension, kprC_StepAwareRepository const& repository,
                 std::vector<Finding>& findings)
      : model_(model),
        steps_(kprC_Steps(model)),
        repository_(repository),
        findings_(findings),
        kind_(repository.ItemCmd()),
        extension_(extension) {}

  void Run(cow_String const& name, kprC_StepDependent const& item) {
    name_ = name.View();
    suppressed_ = item.IsSuppressed();
    if (item.CreateStepName().IsEmpty()) {
      Refusal removed{"", -1, "", "No step creates it: its creation has been removed."};
      Add(FindingKind::NotCreated, std::move(removed)).hint = R"("setValuesInStep" creates it anew.)";
      return;
    }
    auto const again = Copy(item);
    auto const refusal = RefusalBy([&] { suppressed_ ? again->Resume() : item.AssertValid(); });
    if (refusal) {
      Finding& finding = Add(FindingKind::NotValid, *refusal);
      finding.step = FirstInvalidStep(*Copy(item));
      finding.hint = AdmissionHint(item, steps_.Table(), cow_String(finding.step));
    }
    if (auto const inModel = RefusalBy([&] { item.AssertInModel(model_); })) { Add(FindingKind::NotInModel, *inModel); }
    CheckReferences(item);
    CheckHistory(item);
  }

private:
  static std::unique_ptr<kprC_StepDependent> Copy(kprC_StepDependent const& item) {
    return std::unique_ptr<kprC_StepDependent>(dynamic_cast<kprC_StepDependent*>(item.Copy().release()));
  }

  Finding& Add(FindingKind found, Refusal refusal) {
    return findings_.emplace_back(Finding{found, kind_, name_, {}, {}, std::move(refusal), {}, {}, suppressed_});
  }
  /// The shortest beginning of the step sequence in which the attribute is refused ends with the step at fault: what a record
  /// holds follows from the steps up to its own.
  std::string FirstInvalidStep(kprC_StepDependent& item) const {
    if (item.IsSuppressed()) {
      RefusalBy([&] { item.Resume(); });
    }
    std::size_t const create = steps_.Index(item.CreateStepName());
    if (create == kprC_StepContainer::npos) { return {}; }
    std::size_t valid = create, invalid = steps_.Size();  // beginnings by their length
    auto const isRefused = [&](std::size_t length) { return RefusalBy([&] { InsertInto(length, item); }).has_value(); };
    if (!isRefused(invalid)) { return {}; }
    while (valid + 1 < invalid) {
      std::size_t const middle = valid + (invalid - valid) / 2;
      (isRefused(middle) ? invalid : valid) = middle;
    }
    return std::string(steps_.Name(invalid - 1).View());
  }
  /// Inserts the attribute into an empty repository that knows the first \p length steps only.
  void InsertInto(std::size_t length, kprC_StepDependent const& item) const {
    kprC_StepSequence beginning;
    for (std::size_t i = 0; i < length; ++i) { beginning.Append(steps_.Table()[i]); }
    Empty(kprC_StepTable(beginning)).Get().InsertItem(item.Name(), item);
  }
  /// An empty repository of the family that knows \p steps.
  cow_Handle<kprC_StepAwareRepository> Empty(kprC_StepTable const& steps) const {
    auto empty = mdl_ExtensionSubject::Registered().find(extension_.View())->second.As<kprC_StepAwareRepository>();
    empty.Get().UpdateSteps(steps);
    return empty;
  }

  void CheckReferences(kprC_StepDependent const& item) {
    ForEachUnknown(model_, item, [&](ReferenceKind const& kind, std::string_view name, std::string_view member) {
      Finding& finding = Add(FindingKind::UnknownName, Unknown(kind.kind, name));
      finding.member = member;
      if (auto const code = UnknownCode(repository_.EditRefusals(), kind.reference)) {
        finding.detail = std::exchange(finding.refusal, *RefusalBy([&] { repository_.Refuse(*code); })).message;
      }
    });
  }

  /// Compares with the history that the model's steps give to a copy.
  void CheckHistory(kprC_StepDependent const& item) {
    auto const add = [&](std::string text, std::string step) {
      Add(FindingKind::OtherHistory, {"", -1, "nex_TextException", std::move(text)}).step = std::move(step);
    };
    if (!item.Steps().SameNames(steps_.Table())) { return add("The history is not of the model's steps.", {}); }
    auto const unchecked = Copy(item);
    unchecked->Suppress();  // what is not valid is told already
    auto fresh = Empty(steps_.Table());
    if (RefusalBy([&] { fresh.Get().InsertItem(item.Name(), *unchecked); })) { return; }
    kprC_StepDependent const& again = *fresh->ConstItem(item.Name());
    cls_Object const* told = nullptr;
    cls_Object const* given = nullptr;
    for (std::size_t i = 0; i < steps_.Size(); ++i) {
      int const toldStatus = static_cast<int>(item.StatusAt(i)), givenStatus = static_cast<int>(again.StatusAt(i));
      cls_Object const* const toldBefore = std::exchange(told, item.StateAt(i));
      cls_Object const* const givenBefore = std::exchange(given, again.StateAt(i));
      bool const compared = told == given || (told == toldBefore && given == givenBefore);  // carried states are shared
      bool const sameState = compared || (told != nullptr && given != nullptr && told->Equals(*given));
      if (toldStatus == givenStatus && sameState) { continue; }
      return add(toldStatus == givenStatus
                     ? std::string("The state is not what the steps give.")
                     : "The status is " + std::to_string(toldStatus) + " where the steps give " + std::to_string(givenStatus) + ".",
                 std::string(steps_.Name(i).View()));
    }
  }

  ddr_Model const& model_;
  kprC_StepContainer const& steps_;
  kprC_StepAwareRepository const& repository_;
  std::vector<Finding>& findings_;
  std::string kind_, name_;
  cow_String extension_;
  bool suppressed_ = false;
};

}  // namespace

std::string_view SeverityText(Severity severity) {
  constexpr std::string_view kTexts[] = {"error", "warning", "note"};
  return kTexts[static_cast<std::size_t>(severity)];
}

std::vector<FindingRow> const& FindingRows() {
  static std::vector<FindingRow> const rows = [] {
    auto const id = [](int number) {
      char text[16];
      std::snprintf(text, sizeof text, "GA%03d", number);
      return std::string(text);
    };
    return std::vector<FindingRow>{
#define FINDING(number, name, severity, meaning) {id(number), Severity::severity, meaning},
#include "command/Findings.def"
    };
  }();
  return rows;
}

std::vector<Finding> Check(ddr_Model const& model, Progress const& progress) {
  std::vector<Finding> findings;
  std::size_t attributes = 0;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& repository) { attributes += repository.Size(); });
  Ticker tick(progress, attributes);
  Unrecorded const trials;
  CheckSteps(model, findings);
  CheckNamedObjects(model, findings);
  Warnings warnings(model, findings);
  ForEachRepository(model, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
    AttributeCheck check(model, extension, repository, findings);
    warnings.Begin(repository);
    repository.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      check.Run(name, item);
      warnings.LookAt(item);
      tick();
    });
    warnings.LookAtFamily();
    for (rgnC_Region const& region : repository.Dangling()) {
      std::string const kind = region.Type() == rgnC_Surface ? "surface" : "set";
      Refusal left{"", -1, "",
                   "No " + std::string(repository.ItemCmd()) + " acts on the " + kind + " any more: what did went with its step."};
      findings.push_back({FindingKind::DanglingRegion,
                          kind,
                          std::string(region.Name().View()),
                          {},
                          {},
                          std::move(left),
                          {},
                          R"("releaseDanglingRegions" lets go of it.)",
                          false});
    }
  });
  CheckLoadCases(model, findings);
  warnings.LookAtModel();
  tick.Finish();
  return findings;
}

std::vector<Finding> Check(ddr_Model const& model, FindingChoice const& choice, Progress const& progress) {
  choice.AssertValid();
  std::vector<Finding> findings = Check(model, progress);
  std::erase_if(findings, [&](Finding const& finding) { return !choice.Takes(finding.Row()); });
  return findings;
}

void FindingChoice::AssertValid() const {
  auto const refuse = [](std::string const& text) { nex_Exception::Throw(omu_ValueErrorException(text), "command/Check", __LINE__); };
  auto const rowOf = [&](std::string const& id) {
    auto const row = std::ranges::find(FindingRows(), id, &FindingRow::id);
    if (row == FindingRows().end()) {
      std::vector<std::string> ids;
      for (FindingRow const& known : FindingRows()) { ids.push_back(known.id); }
      refuse("There is no finding " + Quoted(id) + ". " + Suggestion(id, ids, "There are"));
    }
    return row;
  };
  for (std::string const& id : only) { rowOf(id); }
  for (std::string const& id : disable) {
    if (rowOf(id)->severity == Severity::Error) { refuse("The finding " + Quoted(id) + " is an error: it cannot be left out."); }
  }
}

bool FindingChoice::Takes(FindingRow const& row) const {
  auto const holds = [&row](std::vector<std::string> const& ids) { return std::ranges::find(ids, row.id) != ids.end(); };
  return (only.empty() || holds(only)) && !holds(disable);
}

}  // namespace gattr
