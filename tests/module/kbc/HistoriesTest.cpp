#include "module/kbc/kbcC_module.h"
#include "tests/support/RandomEdits.h"

namespace {

class BoundaryConditionHistories : public test::WithLibrary {};

TEST_F(BoundaryConditionHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  using enum kprC_ProcedureType::Enm;
  test::plain::Rules const rules = {
      .perturbation = Buckle | Frequency | StaticLinearPerturbation | SteadyStateDirect | SteadyStateSubspace,
      .modal = ModalDynamics | RandomResponse | ResponseSpectrum | SteadyStateModal | SubspaceDynamics | ComplexFrequency,
      .carriedFromInitial = 9,
      .changedFromInitial = 10,
      .perturbationCarried = 9,
      .perturbationChanged = 10,
      .perturbationOff = 11,
      .asksInPerturbation = true,
      .staysWhenRefused = false,
  };
  test::ExpectPlainHistories(kbcC_BC::Constructors(), rules, 80);
}

}  // namespace
