#include <algorithm>
#include <set>
#include <utility>

#include "command/Command.h"
#include "command/Hints.h"
#include "command/Members.h"
#include "module/kpr/kprC_assert.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "module/kpr/steps/kprC_AnalysisStep.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr char const *kSteps = "steps", *kModule = "kpr";

bool IsGiven(kprC_Arguments const& given, std::string_view name) {
  return std::ranges::find(given, name, &kprC_Arguments::value_type::first) != given.end();
}

/// Adds the values of \p before to those that are \p given, as far as \p step has the same member and the value says something.
void AddShared(kprC_Arguments& given, kprC_Step const& before, kprC_Step const& step) {
  for (cls_MemberRow const& row : step.MemberRows()) {
    auto const known = std::ranges::find(before.MemberRows(), row.name, &cls_MemberRow::name);
    bool const shared = known != before.MemberRows().end() && known->ops == row.ops;
    if (!shared || IsGiven(given, row.name)) { continue; }
    cls_Value value = known->ToValue(&before);
    if (!value.IsNull()) { given.emplace_back(row.name, std::move(value)); }
  }
}

/// The increments that a creation leaves out: the first and the largest one are the whole period, the smallest is a
/// hundred-thousandth of it.
void CompleteIncrements(kprC_Step& step, kprC_Arguments const& given) {
  using Parameters = kprC_StepParameters;
  auto const number = [&](std::string_view name) {
    cls_Value const value = step.Member(name);
    auto const* real = value.As<double>();
    return real == nullptr ? 0.0 : *real;
  };
  double const period = number(Parameters::timePeriodCmd());
  auto const complete = [&](std::string_view name, double value) {
    if (!IsGiven(given, name)) { step.SetMember(name, value); }
  };
  if (ClassOf(step).Find(Parameters::maxIncCmd()) == nullptr || !(period > 0.0)) { return; }
  complete(Parameters::maxIncCmd(), period);
  complete(Parameters::initialIncCmd(), std::min(period, number(Parameters::maxIncCmd())));
  complete(Parameters::minIncCmd(), std::min({1e-5 * period, number(Parameters::initialIncCmd()), number(Parameters::maxIncCmd())}));
}

/// Sets members of a step and refuses one that names what the model does not have.
void SetStepMembers(Call& call, kprC_Step& step, kprC_Arguments members) {
  if (IsGiven(members, kprC_Step::maintainAttributesCmd())) {
    call.subject.hint = R"("replace" gives a step another procedure.)";
    kprC_Assert(false, kprC_ErrorEnm::MaintainAttributesOnCreation);
  }
  SetObjectMembers(call, nullptr, step, std::move(members));
}

/// A step by its construction command with the members that are left of the call's arguments, and those of \p before, which may be
/// null, that both have.
kprC_StepHandle Constructed(Call& call, std::string_view command, kprC_Step const* before = nullptr) {
  kprC_StepHandle step = kprC_ConstructStep(command);
  kprC_Arguments members = call.arguments.Rest();
  if (before != nullptr) { AddShared(members, *before, *step); }
  SetStepMembers(call, step.Get(), members);
  CompleteIncrements(step.Get(), members);
  return step;
}

std::vector<std::string> ConstructionNames() {
  std::vector<std::string> names;
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    if (row.label.Size() != 0) { names.emplace_back(row.command.View()); }
  }
  return names;
}

/// Why a step of that procedure may not stand where \p step is or, unless \p stopBefore, behind it.
std::string WhyNot(ddr_Model const& model, cow_String const& step, bool stopBefore, unsigned procedureType) {
  kprC_StepSequencer sequencer(kprC_Steps(model), true);
  sequencer.Run(step, stopBefore);
  return sequencer.WhyNot(procedureType);
}

/// Has a refusal of an attribute that follows an edit of the steps say whose it is.
kprC_StepAwareRepository::Following Followed(Call& call) {
  return {{},
          [&call](kprC_StepAwareRepository const& repository, cow_String const& name) { call.subject.hint = OtherHint(repository, name); }};
}

/// Runs \p edit of \p step, null where one is taken away. When the sequence of steps is refused, the message says \p why, or which step of
/// those \p after it could not follow; when a parameter is, with which values.
template <class Edit, class After, class Why>
void ExplainStep(Call& call, Edit&& edit, kprC_StepHandle const& step, After&& after, Why&& why) {
  Hinting(call, edit, [&](Refusal const& refused) {
    std::string hint;
    if (refused.module != kModule) { return hint; }
    if (refused.code == static_cast<int>(kprC_ErrorEnm::StepSequence)) {
      hint = why();
      return hint.empty() ? SequenceHint(after()) : hint;
    }
    return step ? ParameterHint(*step, after(), refused.code) : hint;
  });
}

cow_String NewStepName(Call& call, std::string_view argument) {
  cow_String name = call.arguments.Name(argument);
  if (kprC_Steps(call.model).IsMember(name)) { call.subject.hint = "There is a step " + Quoted(name) + " already."; }
  return name;
}

/// The step behind which another comes, \p preset unless the command says; a hint where the model has none of that name.
cow_String PreviousStep(Call& call, cow_String const& preset) {
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  std::string const* const given = call.arguments.OptionalText(kprC_AnalysisStep::previousCmd());
  cow_String previous = given ? cow_String(*given) : preset;
  if (!steps.IsMember(previous)) {
    call.subject.member = kprC_AnalysisStep::previousCmd();
    call.subject.hint = Suggestion(previous, Texts(steps.Names()), "Steps");
    call.subject.atFault = true;
  }
  return previous;
}

void InsertStep(Call& call, cow_String const& previous, cow_String const& name, kprC_StepHandle const& step) {
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  ExplainStep(
      call, [&] { kprC_InsertStep(call.model, previous, name, step, Followed(call)); }, step,
      [&] {
        return steps.Table().WithInserted(steps.Index(previous) + 1, {name, step});
      },
      [&] { return WhyNot(call.model, previous, false, step->ProcedureType()); });
}

}  // namespace

std::vector<CommandInfo> StepConstructions() {
  std::vector<CommandInfo> infos;
  for (std::string const& command : ConstructionNames()) {
    kprC_StepHandle const step = kprC_ConstructStep(command);
    std::string const label(kprC_FindProcedure(step->ProcedureType())->label.View());
    CommandInfo info{command, kSteps, "inserts a step of the procedure " + label, {}};
    info.makes = kprC_Step::stepCmd().View();
    info.className = ClassOf(*step).name;
    info.arguments.push_back(Required(kName, "the new step's name"));
    info.arguments.push_back(Naming(info.makes, Optional("previous", "the step behind which it is inserted; the last one when left out")));
    Describe(info.arguments, *step);
    infos.push_back(std::move(info));
  }
  infos.push_back(CopyConstruction(kprC_Step::copyCmd().View(), kSteps, kprC_Step::stepCmd()));
  infos.back().arguments.push_back(
      Naming(kprC_Step::stepCmd(), Optional("previous", "the step behind which the copy comes; the copied one when left out")));
  return infos;
}

bool ConstructStep(Call& call) {
  if (!kprC_ConstructStep(call.arguments.Command())) { return false; }
  call.touched.all = true;
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  cow_String const name = NewStepName(call, kprC_Step::nameCmd());
  call.subject.name = name.View();
  cow_String const previous = PreviousStep(call, steps.Name(steps.Size() - 1));
  InsertStep(call, previous, name, Constructed(call, call.arguments.Command()));
  return true;
}

void CopyStep(Call& call, cow_String const& name) {
  std::string const argument(CopyNameArgument(call, kprC_Step::stepCmd(), kprC_Step::copyCmd()));
  cow_String const newName = NewStepName(call, argument);
  cow_String const previous = PreviousStep(call, name);
  call.arguments.AssertNoRest({argument, kprC_AnalysisStep::previousCmd().View()});
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  if (steps.Index(name) == 0) { RefuseEdit(call.subject, "There is one initial step: it cannot be copied."); }
  kprC_StepHandle step = steps.Handle(steps.Index(name));
  step.Get().NewUid();
  InsertStep(call, previous, newName, step);
  SayAgain(call, name, newName);
}

void SetStepValues(Call& call, cow_String const& name) {
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  kprC_StepHandle step = steps.Handle(steps.Index(name));
  step.Get().NewUid();
  SetStepMembers(call, step.Get(), call.arguments.Rest());
  ExplainStep(
      call, [&] { kprC_ReplaceStep(call.model, name, step, Followed(call)); }, step,
      [&] {
        return steps.Table().WithReplaced(steps.Index(name), {name, step});
      },
      [] { return std::string(); });
}

void RenameStep(Call& call, cow_String const& name) {
  cow_String const newName = NewStepName(call, "newName");
  call.arguments.AssertNoRest({"newName"});
  kprC_RenameStep(call.model, name, newName);
  RenameInLoadCases(call, kprC_Step::stepCmd(), name, newName);
  call.touched.renames = {{std::string(kprC_Step::stepCmd().View()), std::string(name.View()), std::string(newName.View())}};
}

void DeleteStep(Call& call, cow_String const& name) {
  call.arguments.AssertNoRest({});
  AssertInNoLoadCase(call, kprC_Step::stepCmd(), name);
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  ExplainStep(
      call, [&] { kprC_RemoveStep(call.model, name, Followed(call)); }, nullptr,
      [&] { return steps.Table().WithRemoved(steps.Index(name)); }, [] { return std::string(); });
}

namespace {

using PolicyEnm = kprC_Step::ReplacementPolicyEnm;

PolicyEnm PolicyArgument(Call& call) {
  omu_PrimEnum<PolicyEnm> policy = PolicyEnm::SUBSTITUTE;
  std::string const* const text = call.arguments.OptionalText(kprC_Step::replacementPolicyCmd());
  if (text && !policy.SetValue(text->c_str())) {
    RefuseValue(call.subject, "There is no replacement policy " + Quoted(*text) + ".",
                Suggestion(*text, ReplacementPolicies(), "Policies"));
  }
  return policy;
}

/// What becomes of what attributes say in a step whose procedure is replaced (docs/steps.md).
class Replacement {
public:
  Replacement(Call& call, cow_String step, bool maintains, PolicyEnm policy)
      : call_(call), step_(std::move(step)), maintains_(maintains), policy_(policy) {}

  /// Decides for every attribute that says something in the step, and deletes those that go with it.
  void Settle(kprC_StepFacts then) {
    std::size_t const index = kprC_Steps(call_.model).Index(step_);
    if (maintains_) { Adapt(index, then); }
    ForEachRepository(call_.model, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
      repository.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
        if (!kprC_StepAwareRepository::SaysSomething(item, index)) { return; }
        bool const created = item.CreateStepName() == step_;
        if (maintains_ && (item.IsSuppressed() || item.Admits(then, !created))) {
          kept_.push_back({extension, name});
          keptItems_.insert(&item);
        } else if (created) {
          std::optional<int> const code = repository.EditRefusals().typeNotAdmitted;
          created_.push_back({extension, name});
          if (maintains_ && code && !Deletes()) {
            call_.subject.hint = CreatedHint({extension, name});
            repository.Refuse(*code);
          }
        } else if (!Substitutes()) {
          RefuseEdit(call_.subject, Told({extension, name}) + " says something in the step that " + Lost() + ".", kWaysOut);
        }
      });
    });
    if (!Deletes()) { return; }
    for (auto const& [extension, name] : created_) { call_.model.Get<kprC_StepAwareRepository>(extension).Remove(name); }
    created_.clear();
  }

  kprC_StepAwareRepository::Following Following() const {
    kprC_StepAwareRepository::Following following = Followed(call_);
    if (maintains_) {
      following.keeps = [this](kprC_StepDependent const& item) { return keptItems_.contains(&item); };  // shared until it is changed
    }
    following.refused = [this, other = following.refused](kprC_StepAwareRepository const& repository, cow_String const& name) {
      other(repository, name);
      for (User const& user : created_) {
        if (user.name == name && RepositoryOf(user).ItemCmd() == repository.ItemCmd()) { call_.subject.hint = CreatedHint(user); }
      }
    };
    return following;
  }

  /// Refuses, once the step is replaced, what has got lost there without the policy's leave: a perturbation step drops changes.
  void AssertKept() const {
    std::size_t const index = kprC_Steps(call_.model).Index(step_);
    for (User const& user : kept_) {
      if (Substitutes() || kprC_StepAwareRepository::SaysSomething(Item(user), index)) { continue; }
      RefuseEdit(call_.subject, Told(user) + " says something in the step that " + Lost() + ".", kWaysOut);
    }
  }

private:
  struct User {
    cow_String extension, name;
  };
  static constexpr char const* kWaysOut = R"("replacementPolicy": "SUBSTITUTE" lets go of it.)";

  /// Has those that say something in the step make it fit the new procedure, as far as they know how.
  void Adapt(std::size_t index, kprC_StepFacts then) {
    ddr_Model const before = call_.model;
    ForEachRepository(before, [&](cow_String const& extension, kprC_StepAwareRepository const& repository) {
      repository.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
        if (item.IsSuppressed() || !kprC_StepAwareRepository::SaysSomething(item, index)) { return; }
        auto& own = call_.model.Get<kprC_StepAwareRepository>(extension);
        if (own.Item(name)->Adapt(index, then)) { own.RecordModify(name); }
      });
    });
  }
  /// Of a refusal of one that was created in the step.
  std::string CreatedHint(User const& user) const {
    std::string const way = maintains_ ? "" : R"("maintainAttributes": true keeps what the new procedure takes; )";
    return Told(user) + " is created there: " + way + R"("replacementPolicy": "DELETE" deletes it.)";
  }
  bool Deletes() const { return policy_ == PolicyEnm::DELETE || policy_ == PolicyEnm::SUBSTITUTE_DELETE; }
  bool Substitutes() const { return policy_ == PolicyEnm::SUBSTITUTE || policy_ == PolicyEnm::SUBSTITUTE_DELETE; }
  std::string Lost() const { return maintains_ ? "the new procedure does not take" : "would be lost"; }
  kprC_StepAwareRepository const& RepositoryOf(User const& user) const {
    return std::as_const(call_.model).ConstGet<kprC_StepAwareRepository>(user.extension);
  }
  kprC_StepDependent const& Item(User const& user) const { return *RepositoryOf(user).ConstItem(user.name); }
  std::string Told(User const& user) const { return ObjectText(RepositoryOf(user).ItemCmd(), user.name); }

  Call& call_;
  cow_String step_;
  bool maintains_;
  PolicyEnm policy_;
  std::vector<User> kept_, created_;
  std::set<kprC_StepDependent const*> keptItems_;
};

}  // namespace

std::vector<std::string> ReplacementPolicies() {
  std::vector<std::string> texts;
  for (auto const& row : omu_EnumTable<PolicyEnm>::rows) {
    if (row.text != nullptr) { texts.emplace_back(row.text); }
  }
  return texts;
}

void ReplaceStep(Call& call, cow_String const& name) {
  std::string const procedure = call.arguments.Text(kprC_AnalysisStep::procedureCmd());
  if (!kprC_ConstructStep(procedure)) {
    RefuseUnknown(call.subject, "There is no procedure " + Quoted(procedure) + ".",
                  Suggestion(procedure, ConstructionNames(), "Procedures"));
  }
  bool const maintains = call.arguments.Flag(kprC_Step::maintainAttributesCmd());
  Replacement replacement(call, name, maintains, PolicyArgument(call));
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  kprC_StepHandle const before = steps.Handle(steps.Index(name));
  kprC_StepHandle const step = Constructed(call, procedure, before.ConstGet());
  kprC_StepTable const table = steps.Table();
  auto const replace = [&] {
    if (before->ProcedureType() != step->ProcedureType()) { replacement.Settle(kprC_StepFacts(step.ConstGet())); }
    kprC_ReplaceStep(call.model, name, step, replacement.Following());
    replacement.AssertKept();
  };
  ExplainStep(
      call, replace, step,
      [&] {
        return table.WithReplaced(table.Find(name.View()), {name, step});
      },
      [&] { return WhyNot(call.model, name, true, step->ProcedureType()); });
}

}  // namespace gattr
