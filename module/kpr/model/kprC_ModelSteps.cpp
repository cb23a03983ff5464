#include "module/kpr/model/kprC_ModelSteps.h"

#include <algorithm>

#include "module/kpr/kprC_assert.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"

namespace {
constexpr bool kAddedMassPermitted = true;

using Nlgeom = kprC_StepContainer::Nlgeom;
using Following = kprC_StepAwareRepository::Following;

/// What the step \p index adds to \p nlgeom. Steps without nlgeom, which are the perturbation steps and those without
/// displacements, neither turn it off nor on.
void Take(Nlgeom& nlgeom, kprC_StepContainer const& steps, std::size_t index) {
  using enum kprC_Step::NlgeomEnm;
  kprC_StepTable::Number const number = steps.Table().NumberOf(index);
  kprC_Step::NlgeomEnm const says = steps.Step(index).Nlgeom();
  if (says == ON) { nlgeom.firstOn = nlgeom.firstOn == 0 ? number : std::min(nlgeom.firstOn, number); }
  if (says == OFF) { nlgeom.lastOff = std::max(nlgeom.lastOff, number); }
}

/// Refuses a sequence in which a general step turns nlgeom off after an earlier one had it on.
void AssertNlgeom(Nlgeom const& nlgeom) {
  kprC_Assert(nlgeom.firstOn == 0 || nlgeom.lastOff < nlgeom.firstOn, kprC_ErrorEnm::NlgeomTurnedOff);
}

/// Checks the whole sequence for that, and keeps what was found. The sequencer has been asked before.
void CheckNlgeom(kprC_StepContainer& steps) {
  Nlgeom nlgeom;
  for (std::size_t i = 0; i < steps.Size(); ++i) { Take(nlgeom, steps, i); }
  AssertNlgeom(nlgeom);
  steps.KeepChecked(nlgeom);
}

/// Edits a copy of the model, which shares what the edit leaves alone, and puts it in the model's place at the end.
template <class Edit> void WholeOrNothing(ddr_Model& model, Edit&& edit, Following const& following = {}) {
  omu_ChangeHistory& changes = thr_ThreadSingleton<omu_ChangeHistory>::Instance();
  std::size_t const mark = changes.Size();
  try {
    ddr_Model copy = model;
    edit(copy.Get<kprC_StepContainer>(ddr_Model::stepsCmd()));
    kprC_UpdateRepositories(copy, following);
    model = std::move(copy);
  } catch (...) {
    changes.TruncateTo(mark);
    throw;
  }
}
}  // namespace

kprC_StepContainer const& kprC_Steps(ddr_Model const& model) { return model.ConstGet<kprC_StepContainer>(ddr_Model::stepsCmd()); }

void kprC_UpdateRepositories(ddr_Model& model, Following const& following) {
  kprC_StepTable const table = kprC_Steps(model).Table();
  auto const extensions = model.Extensions();
  for (auto const& [member, extension] : extensions) {
    if (mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet()) == nullptr) { continue; }
    model.Get<kprC_StepAwareRepository>(member).UpdateSteps(table, following);
  }
}

void kprC_InsertStep(ddr_Model& model, cow_String const& previous, cow_String const& name, kprC_StepHandle const& step,
                     Following const& following) {
  auto const insert = [&](kprC_StepContainer& steps) {
    step->AssertValid();
    kprC_StepTable const before = steps.Table();
    Nlgeom const* const checked = steps.Checked();
    std::size_t const index = steps.Index(previous) + 1;
    if (checked == nullptr || index == 0) {
      kprC_StepSequencer(steps, kAddedMassPermitted).InsertAfter(previous, step->ProcedureType());
      steps.Insert(previous, name, step);
      return CheckNlgeom(steps);
    }
    // a sequence that is known to be legal is asked only as far as the new step reaches
    bool const legal = kprC_StepSequencer::MayInsert(before, index, step->ProcedureType(), kAddedMassPermitted);
    kprC_Assert(legal, kprC_ErrorEnm::StepSequence);
    Nlgeom nlgeom = *checked;
    steps.Insert(previous, name, step);
    if (!steps.Table().Continues(before)) { return CheckNlgeom(steps); }
    Take(nlgeom, steps, index);
    AssertNlgeom(nlgeom);
    steps.KeepChecked(nlgeom);
  };
  WholeOrNothing(model, insert, following);
}

void kprC_RemoveStep(ddr_Model& model, cow_String const& name, Following const& following) {
  auto const remove = [&](kprC_StepContainer& steps) {
    std::size_t const index = steps.Index(name);
    if (index != kprC_StepContainer::npos && index > 0) {
      kprC_StepSequencer sequencer(steps, kAddedMassPermitted);
      sequencer.Run();
      kprC_Assert(sequencer.IsRemovable(static_cast<int>(index) - 1), kprC_ErrorEnm::StepSequence);
    }
    steps.Remove(name);
    CheckNlgeom(steps);
  };
  WholeOrNothing(model, remove, following);
}

void kprC_RenameStep(ddr_Model& model, cow_String const& name, cow_String const& newName) {
  WholeOrNothing(model, [&](kprC_StepContainer& steps) {
    steps.Rename(name, newName);
    CheckNlgeom(steps);
  });
}

void kprC_ReplaceStep(ddr_Model& model, cow_String const& name, kprC_StepHandle const& step, Following const& following) {
  auto const replace = [&](kprC_StepContainer& steps) {
    step->AssertValid();
    kprC_Step const* const present = steps.Find(name.View());
    bool const keepsProcedure = present != nullptr && present->ProcedureType() == step->ProcedureType();
    if (!keepsProcedure) { kprC_StepSequencer(steps, kAddedMassPermitted).Replace(name, step->ProcedureType()); }
    steps.Replace(name, step);
    CheckNlgeom(steps);
  };
  WholeOrNothing(model, replace, following);
}
