#include "module/klo/kloC_module.h"
#include "tests/support/RandomEdits.h"

namespace {

class LoadHistories : public test::WithLibrary {};

TEST_F(LoadHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  using enum kprC_ProcedureType::Enm;
  test::plain::Rules const rules = {
      .perturbation = Buckle | Frequency | StaticLinearPerturbation | SteadyStateDirect | SteadyStateSubspace | ModalDynamics |
                      RandomResponse | ResponseSpectrum | SteadyStateModal | ComplexFrequency,
      .modal = {},
      .carriedFromInitial = 2,
      .changedFromInitial = 3,
      .perturbationCarried = 8,
      .perturbationChanged = 0,
      .perturbationOff = 8,
      .asksInPerturbation = false,
      .staysWhenRefused = true,
  };
  using Edits = test::RandomEdits<kloC_Load>;
  test::ExpectPlainHistories(kloC_Load::Constructors(), rules, 60,
                             {{"BoltLoad", Edits::SwitchOff}, {"BoltLoad", Edits::Move}, {"PressurePenetration", Edits::Move}});
}

}  // namespace
