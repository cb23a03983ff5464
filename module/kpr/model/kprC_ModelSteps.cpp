#include "module/kpr/model/kprC_ModelSteps.h"

#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/kprC_assert.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"

namespace {
constexpr bool kAddedMassPermitted = true;

/// Refuses a sequence in which a general step turns nlgeom off after an earlier one had it on. Steps without it, which are
/// the perturbation steps and those without displacements, neither turn it off nor on.
void AssertNlgeom(kprC_StepContainer const& steps) {
  using enum kprC_Step::NlgeomEnm;
  bool isOn = false;
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    kprC_Step::NlgeomEnm const nlgeom = steps.Step(i).Nlgeom();
    kprC_Assert(!isOn || nlgeom != OFF, kprC_ErrorEnm::NlgeomTurnedOff);
    isOn = isOn || nlgeom == ON;
  }
}

/// Edits a copy of the model, which shares what the edit leaves alone, and puts it in the model's place at the end.
template <class Edit> void WholeOrNothing(ddr_Model& model, Edit&& edit) {
  omu_ChangeHistory& changes = thr_ThreadSingleton<omu_ChangeHistory>::Instance();
  std::size_t const mark = changes.Size();
  try {
    ddr_Model copy = model;
    auto& steps = copy.Get<kprC_StepContainer>(ddr_Model::stepsCmd());
    edit(steps);
    AssertNlgeom(steps);
    kprC_UpdateRepositories(copy);
    model = std::move(copy);
  } catch (...) {
    changes.TruncateTo(mark);
    throw;
  }
}
}  // namespace

kprC_StepContainer const& kprC_Steps(ddr_Model const& model) { return model.ConstGet<kprC_StepContainer>(ddr_Model::stepsCmd()); }

void kprC_UpdateRepositories(ddr_Model& model) {
  kprC_StepTable const table = kprC_Steps(model).Table();
  auto const extensions = model.Extensions();
  for (auto const& [member, extension] : extensions) {
    if (dynamic_cast<kprC_StepAwareRepository const*>(extension.ConstGet()) == nullptr) { continue; }
    model.Get<kprC_StepAwareRepository>(member).UpdateSteps(table);
  }
}

void kprC_InsertStep(ddr_Model& model, cow_String const& previous, cow_String const& name, kprC_StepHandle const& step) {
  WholeOrNothing(model, [&](kprC_StepContainer& steps) {
    step->AssertValid();
    kprC_StepSequencer(steps, kAddedMassPermitted).InsertAfter(previous, step->ProcedureType());
    steps.Insert(previous, name, step);
  });
}

void kprC_RemoveStep(ddr_Model& model, cow_String const& name) {
  WholeOrNothing(model, [&](kprC_StepContainer& steps) {
    std::size_t const index = steps.Index(name);
    if (index != kprC_StepContainer::npos && index > 0) {
      kprC_StepSequencer sequencer(steps, kAddedMassPermitted);
      sequencer.Run();
      kprC_Assert(sequencer.IsRemovable(static_cast<int>(index) - 1), kprC_ErrorEnm::StepSequence);
    }
    steps.Remove(name);
  });
}

void kprC_RenameStep(ddr_Model& model, cow_String const& name, cow_String const& newName) {
  WholeOrNothing(model, [&](kprC_StepContainer& steps) { steps.Rename(name, newName); });
}

void kprC_ReplaceStep(ddr_Model& model, cow_String const& name, kprC_StepHandle const& step) {
  WholeOrNothing(model, [&](kprC_StepContainer& steps) {
    step->AssertValid();
    kprC_StepSequencer(steps, kAddedMassPermitted).Replace(name, step->ProcedureType());
    steps.Replace(name, step);
  });
}
