#include "module/klo/kloC_BoltLoad.h"

void kloC_BoltLoad::Perform(kprC_Operation const& operation, cow_String const& step, cow_String const& toStep) {
  kloC_Assert(operation.effect != kprC_Effect::SwitchOff, kloC_ErrorEnm::BoltDeactivated);
  kloC_Assert(operation.effect != kprC_Effect::Move, kloC_ErrorEnm::BoltMoved);
  kloC_Load::Perform(operation, step, toStep);
}

void kloC_BoltLoad::AssertWhole() const {
  std::size_t const create = States().CreateStep();
  if (create == kprC_StepTable::npos) { return; }
  constexpr std::size_t kFirstAnalysisStep = 1;  // behind the initial step
  auto const& procedure = Steps()[create].procedure;
  bool const general = !procedure || !procedure->Perturbation();
  kloC_Assert(create == kFirstAnalysisStep && general, kloC_ErrorEnm::BoltNotInFirstStep);
}

void kloC_BoltLoad::AssertState(kloC_LoadState const& state, std::size_t index) const {
  bool const fixed = dynamic_cast<kloC_BoltLoadState const&>(state).boltMethod == kloC_BoltMethodEnm::FIXED;
  kloC_Assert(!States().IsCreateStep(index) || !fixed, kloC_ErrorEnm::BoltCreatedFixed);
  kloC_Load::AssertState(state, index);
}

void kloC_BoltLoad::AssertInModel(ddr_Model const& model) const {
  kloC_Load::AssertInModel(model);
  if (Region().InstanceKind() != rgnC_Solid) { return; }
  ForEachEditable([](kloC_LoadState const& state) {
    auto const& axis = dynamic_cast<kloC_BoltLoadState const&>(state).dtmReference;
    kloC_Assert(axis.HasValue() && !axis.ConstGet().IsEmpty(), kloC_ErrorEnm::BoltWithoutAxis);
  });
}
