#include <algorithm>
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

constexpr char const* kSteps = "steps";

/// The increments that a creation leaves out: the first and the largest one are the whole period, the smallest is a
/// hundred-thousandth of it.
void CompleteIncrements(kprC_Step& step, kprC_Arguments const& given) {
  using Parameters = kprC_StepParameters;
  auto const isGiven = [&](std::string_view name) {
    return std::ranges::any_of(given, [&](auto const& member) { return member.first == name; });
  };
  auto const number = [&](std::string_view name) {
    cls_Value const value = step.Member(name);
    auto const* real = value.As<double>();
    return real == nullptr ? 0.0 : *real;
  };
  double const period = number(Parameters::timePeriodCmd());
  auto const complete = [&](std::string_view name, double value) {
    if (!isGiven(name)) { step.SetMember(name, value); }
  };
  if (ClassOf(step).Find(Parameters::maxIncCmd()) == nullptr || !(period > 0.0)) { return; }
  complete(Parameters::maxIncCmd(), period);
  complete(Parameters::initialIncCmd(), std::min(period, number(Parameters::maxIncCmd())));
  complete(Parameters::minIncCmd(), std::min({1e-5 * period, number(Parameters::initialIncCmd()), number(Parameters::maxIncCmd())}));
}

/// Sets members of a step and refuses one that names what the model does not have.
void SetStepMembers(Call& call, kprC_Step& step, kprC_Arguments members) {
  std::vector<MemberArgument> const settable = MemberArguments(step);
  SetMembers(call.subject, step, settable, members);
  ResolveReferences(call, nullptr, settable, members);
  for (auto const& [name, value] : members) { step.SetMember(name, value); }  // what is held whole is complete now
}

/// A step by its construction command with the members that are left of the call's arguments.
kprC_StepHandle Constructed(Call& call, std::string_view command) {
  kprC_StepHandle step = kprC_ConstructStep(command);
  kprC_Arguments const members = call.arguments.Rest();
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

/// Runs \p edit of \p step, null where one is taken away. When the sequence of steps is refused, the message says \p why, or which step of
/// those \p after it could not follow; when a parameter is, with which values.
template <class Edit, class After, class Why>
void ExplainStep(Call& call, Edit&& edit, kprC_StepHandle const& step, After&& after, Why&& why) {
  Hinting(call, edit, [&](int code) {
    std::string hint;
    if (code == static_cast<int>(kprC_ErrorEnm::StepSequence)) {
      hint = why();
      return hint.empty() ? SequenceHint(after()) : hint;
    }
    return step ? ParameterHint(*step, after(), code) : hint;
  });
}

cow_String NewStepName(Call& call, std::string_view argument) {
  cow_String name = call.arguments.Name(argument);
  if (kprC_Steps(call.model).IsMember(name)) { call.subject.hint = "There is a step " + Quoted(name) + " already."; }
  return name;
}

}  // namespace

std::vector<CommandInfo> StepConstructions() {
  std::vector<CommandInfo> infos;
  for (std::string const& command : ConstructionNames()) {
    kprC_StepHandle const step = kprC_ConstructStep(command);
    std::string const label(kprC_FindProcedure(step->ProcedureType())->label.View());
    CommandInfo info{command, kSteps, "inserts a step of the procedure " + label, {}};
    info.arguments.push_back(Required("name", "the new step's name"));
    info.arguments.push_back(Optional("previous", "the step behind which it is inserted; the last one when left out"));
    for (MemberArgument const& member : MemberArguments(*step)) { info.arguments.push_back(Describe(member, *step)); }
    infos.push_back(std::move(info));
  }
  return infos;
}

bool ConstructStep(Call& call) {
  if (!kprC_ConstructStep(call.arguments.Command())) { return false; }
  call.touched.all = true;
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  cow_String const name = NewStepName(call, kprC_Step::nameCmd());
  call.subject.object = Quoted(name);
  std::optional<std::string> const given = call.arguments.OptionalText(kprC_AnalysisStep::previousCmd());
  cow_String const previous = given ? cow_String(*given) : steps.Name(steps.Size() - 1);
  if (!steps.IsMember(previous)) {
    call.subject.member = kprC_AnalysisStep::previousCmd();
    call.subject.hint = Suggestion(previous, Texts(steps.Names()), "Steps");
    call.subject.atFault = true;
  }
  kprC_StepHandle const step = Constructed(call, call.arguments.Command());
  ExplainStep(
      call, [&] { kprC_InsertStep(call.model, previous, name, step); }, step,
      [&] {
        return steps.Table().WithInserted(steps.Index(previous) + 1, {name, step});
      },
      [&] { return WhyNot(call.model, previous, false, step->ProcedureType()); });
  return true;
}

void SetStepValues(Call& call, cow_String const& name) {
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  kprC_StepHandle step = steps.Handle(steps.Index(name));
  step.Get().NewUid();
  SetStepMembers(call, step.Get(), call.arguments.Rest());
  ExplainStep(
      call, [&] { kprC_ReplaceStep(call.model, name, step); }, step,
      [&] {
        return steps.Table().WithReplaced(steps.Index(name), {name, step});
      },
      [] { return std::string(); });
}

void RenameStep(Call& call, cow_String const& name) {
  cow_String const newName = NewStepName(call, "newName");
  call.arguments.AssertNoRest({"newName"});
  kprC_RenameStep(call.model, name, newName);
}

void DeleteStep(Call& call, cow_String const& name) {
  call.arguments.AssertNoRest({});
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  ExplainStep(
      call, [&] { kprC_RemoveStep(call.model, name); }, nullptr, [&] { return steps.Table().WithRemoved(steps.Index(name)); },
      [] { return std::string(); });
}

void ReplaceStep(Call& call, cow_String const& name) {
  std::string const procedure = call.arguments.Text(kprC_AnalysisStep::procedureCmd());
  if (!kprC_ConstructStep(procedure)) {
    RefuseUnknown(call.subject, "There is no procedure " + Quoted(procedure) + ".",
                  Suggestion(procedure, ConstructionNames(), "Procedures"));
  }
  kprC_StepHandle const step = Constructed(call, procedure);
  kprC_StepContainer const& steps = kprC_Steps(call.model);
  ExplainStep(
      call, [&] { kprC_ReplaceStep(call.model, name, step); }, step,
      [&] {
        return steps.Table().WithReplaced(steps.Index(name), {name, step});
      },
      [&] { return WhyNot(call.model, name, true, step->ProcedureType()); });
}

}  // namespace gattr
