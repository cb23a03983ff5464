#include "module/kpr/model/kprC_StepContainer.h"

#include <unordered_set>

#include "module/kpr/kprC_assert.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "module/kpr/steps/kprC_InitialStep.h"

namespace {

bool IsInitial(kprC_Procedure const& step) { return step.DynTypeId() == kprC_InitialStep::TypeId(); }

void AssertProcedure(kprC_StepHandle const& step) {
  kprC_Assert(static_cast<bool>(step), kprC_ErrorEnm::Procedure);
  kprC_Assert(!IsInitial(*step), kprC_ErrorEnm::InitialStepExists);
}

/// What stored steps should have been; "" where they are right.
std::string_view Expected(kprC_StepTable const& steps) {
  if (steps.Size() == 0 || !(steps[0].stepName == kprC_Step::initialCmd())) { return "\"Initial\" as the first step"; }
  std::string_view expected;
  std::unordered_set<std::string_view> names(steps.Size());
  kprC_Procedure const* last = nullptr;  // steps of equal parameters share them
  steps.ForEach([&](kprC_StepNameProcedurePair const& pair) {
    kprC_Procedure const* const step = pair.procedure.ConstGet();
    bool const isFirst = names.empty(), isOwn = !pair.stepName.IsEmpty() && names.insert(pair.stepName.View()).second;
    if (!expected.empty()) { return; }
    if (step == nullptr || (step != last && dynamic_cast<kprC_Step const*>(step) == nullptr)) {
      expected = "a procedure for every step";
    } else if (IsInitial(*step) != isFirst) {
      expected = "one initial step, the first";
    } else if (!isOwn) {
      expected = "steps with names of their own";
    }
    last = step;
  });
  return expected;
}

}  // namespace

kprC_StepContainer::kprC_StepContainer() {
  kprC_StepSequence steps;
  steps.Append(kprC_StepNameProcedurePair(kprC_Step::initialCmd().View(), cow_Handle<kprC_InitialStep>::Make()));
  table_ = kprC_StepTable(steps);
}

kprC_StepContainer::kprC_StepContainer(cls_ReadVisitor const& in) : kprC_StepContainer() {
  cls_ReadMembers(*this, in);
  if (auto const expected = Expected(table_); expected != "") { in.Refuse(kprC_Step::stepRepositoryCmd(), expected); }
}

kprC_Step const* kprC_StepContainer::Find(std::string_view name) const {
  std::size_t const index = Index(name);
  return index == npos ? nullptr : &Step(index);
}

cow_List<cow_String> kprC_StepContainer::Names() const {
  std::vector<cow_String> names;
  names.reserve(Size());
  table_.ForEach([&names](kprC_StepNameProcedurePair const& pair) { names.push_back(pair.stepName); });
  return cow_List<cow_String>(std::move(names));
}

void kprC_StepContainer::Insert(std::string_view after, cow_String const& name, kprC_StepHandle const& step) {
  NamedStep const added[] = {{name, step}};
  Insert(after, added);
}

void kprC_StepContainer::Insert(std::string_view after, std::span<NamedStep const> added) {
  std::size_t index = Known(after) + 1;
  std::unordered_set<std::string_view> names;
  for (NamedStep const& one : added) {
    bool const isNew = !one.name.IsEmpty() && !IsMember(one.name) && names.insert(one.name.View()).second;
    kprC_Assert(isNew, kprC_ErrorEnm::Step);
    AssertProcedure(one.step);
  }
  if (added.size() == 1) {
    table_ = table_.WithInserted(index, kprC_StepNameProcedurePair(added[0].name, added[0].step));
    return;
  }
  kprC_StepSequence const present = table_.Sequence();
  std::vector<kprC_StepNameProcedurePair> steps(present.begin(), present.begin() + index);
  for (NamedStep const& one : added) { steps.emplace_back(one.name, one.step); }
  steps.insert(steps.end(), present.begin() + index, present.end());
  table_ = kprC_StepTable(kprC_StepSequence(std::move(steps)));
}

void kprC_StepContainer::Remove(std::string_view name) {
  cow_String const names[] = {name};
  Remove(names);
}

void kprC_StepContainer::Remove(std::span<cow_String const> names) {
  kprC_StepTable shorter = table_;
  for (cow_String const& name : names) {
    std::size_t const index = Known(name);
    kprC_Assert(index != 0, kprC_ErrorEnm::Step);
    std::size_t const left = shorter.Find(name.View());  // named twice, it has gone already
    if (left != npos) { shorter = shorter.WithRemoved(left); }
  }
  table_ = shorter;
}

void kprC_StepContainer::Rename(std::string_view name, cow_String const& newName) {
  std::size_t const index = Known(name);
  kprC_Assert(index != 0, kprC_ErrorEnm::Step);
  if (newName == name) { return; }
  kprC_Assert(!newName.IsEmpty() && !IsMember(newName), kprC_ErrorEnm::Step);
  table_ = table_.WithReplaced(index, kprC_StepNameProcedurePair(newName, table_[index].procedure));
}

void kprC_StepContainer::Replace(std::string_view name, kprC_StepHandle const& step) {
  std::size_t const index = Known(name);
  if (index == 0) {
    kprC_Assert(step && IsInitial(*step), kprC_ErrorEnm::InitialStepReplaced);
  } else {
    AssertProcedure(step);
  }
  table_ = table_.WithReplaced(index, kprC_StepNameProcedurePair(table_[index].stepName, step));
}

void kprC_StepContainer::AssertValid() const {
  for (std::size_t i = 0; i < Size(); ++i) { Step(i).AssertValid(); }
}

std::size_t kprC_StepContainer::Known(std::string_view name) const {
  std::size_t const index = Index(name);
  kprC_Assert(index != npos, kprC_ErrorEnm::NoSuchStep);
  return index;
}

// The rooms of the procedures know no container: what the sequencer takes of one is its table.
kprC_StepSequencer::kprC_StepSequencer(kprC_StepContainer const& steps, bool addedMassPermitted)
    : steps_(steps.Table()), addedMassPermitted_(addedMassPermitted) {}
