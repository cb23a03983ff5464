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
std::string_view Expected(kprC_StepSequence const& steps) {
  if (steps.IsEmpty() || !(steps[0].stepName == kprC_Step::initialCmd())) { return "\"Initial\" as the first step"; }
  std::unordered_set<std::string_view> names;
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    auto const* const step = dynamic_cast<kprC_Step const*>(steps[i].procedure.ConstGet());
    if (step == nullptr) { return "a procedure for every step"; }
    if (IsInitial(*step) != (i == 0)) { return "one initial step, the first"; }
    if (steps[i].stepName.IsEmpty() || !names.insert(steps[i].stepName.View()).second) { return "steps with names of their own"; }
  }
  return "";
}

}  // namespace

kprC_StepContainer::kprC_StepContainer() {
  kprC_StepSequence steps;
  steps.Append(kprC_StepNameProcedurePair(kprC_Step::initialCmd().View(), cow_Handle<kprC_InitialStep>::Make()));
  Store(std::move(steps));
}

kprC_StepContainer::kprC_StepContainer(cls_ReadVisitor const& in) {
  cls_ReadMembers(*this, in);
  if (auto const expected = Expected(steps_); expected != "") { in.Refuse(kprC_Step::stepRepositoryCmd(), expected); }
  table_ = kprC_StepTable(steps_);
}

kprC_Step const* kprC_StepContainer::Find(std::string_view name) const {
  std::size_t const index = Index(name);
  return index == npos ? nullptr : &Step(index);
}

cow_List<cow_String> kprC_StepContainer::Names() const {
  std::vector<cow_String> names;
  names.reserve(Size());
  for (kprC_StepNameProcedurePair const& pair : steps_) { names.push_back(pair.stepName); }
  return cow_List<cow_String>(std::move(names));
}

void kprC_StepContainer::Insert(std::string_view after, cow_String const& name, kprC_StepHandle const& step) {
  NamedStep const added[] = {{name, step}};
  Insert(after, added);
}

void kprC_StepContainer::Insert(std::string_view after, std::span<NamedStep const> added) {
  std::size_t const index = Known(after) + 1;
  std::unordered_set<std::string_view> names;
  std::vector<kprC_StepNameProcedurePair> steps;
  steps.reserve(Size() + added.size());
  steps.assign(steps_.begin(), steps_.begin() + index);
  for (NamedStep const& one : added) {
    bool const isNew = !one.name.IsEmpty() && !IsMember(one.name) && names.insert(one.name.View()).second;
    kprC_Assert(isNew, kprC_ErrorEnm::Step);
    AssertProcedure(one.step);
    steps.emplace_back(one.name, one.step);
  }
  steps.insert(steps.end(), steps_.begin() + index, steps_.end());
  Store(kprC_StepSequence(std::move(steps)));
}

void kprC_StepContainer::Remove(std::string_view name) {
  cow_String const names[] = {name};
  Remove(names);
}

void kprC_StepContainer::Remove(std::span<cow_String const> names) {
  std::vector<char> leaves(Size());
  for (cow_String const& name : names) {
    std::size_t const index = Known(name);
    kprC_Assert(index != 0, kprC_ErrorEnm::Step);
    leaves[index] = 1;
  }
  std::vector<kprC_StepNameProcedurePair> steps;
  steps.reserve(Size());
  for (std::size_t i = 0; i < Size(); ++i) {
    if (leaves[i] == 0) { steps.push_back(steps_[i]); }
  }
  Store(kprC_StepSequence(std::move(steps)));
}

void kprC_StepContainer::Rename(std::string_view name, cow_String const& newName) {
  std::size_t const index = Known(name);
  kprC_Assert(index != 0, kprC_ErrorEnm::Step);
  if (newName == name) { return; }
  kprC_Assert(!newName.IsEmpty() && !IsMember(newName), kprC_ErrorEnm::Step);
  kprC_StepSequence steps = steps_;
  steps.Get(index) = kprC_StepNameProcedurePair(newName, steps_[index].procedure);
  Store(std::move(steps));
}

void kprC_StepContainer::Replace(std::string_view name, kprC_StepHandle const& step) {
  std::size_t const index = Known(name);
  kprC_Assert(index != 0, kprC_ErrorEnm::InitialStepReplaced);
  AssertProcedure(step);
  kprC_StepSequence steps = steps_;
  steps.Get(index) = kprC_StepNameProcedurePair(steps_[index].stepName, step);
  Store(std::move(steps));
}

void kprC_StepContainer::AssertValid() const {
  for (std::size_t i = 0; i < Size(); ++i) { Step(i).AssertValid(); }
}

std::size_t kprC_StepContainer::Known(std::string_view name) const {
  std::size_t const index = Index(name);
  kprC_Assert(index != npos, kprC_ErrorEnm::NoSuchStep);
  return index;
}

void kprC_StepContainer::Store(kprC_StepSequence steps) {
  table_ = kprC_StepTable(steps);
  steps_ = std::move(steps);
}

// The rooms of the procedures know no container: what the sequencer takes of one is its table.
kprC_StepSequencer::kprC_StepSequencer(kprC_StepContainer const& steps, bool addedMassPermitted)
    : steps_(steps.Table()), addedMassPermitted_(addedMassPermitted) {}
