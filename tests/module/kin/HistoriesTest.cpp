#include "module/kin/kinC_module.h"
#include "tests/support/RandomEdits.h"

namespace {

class InteractionHistories : public test::WithLibrary {};

TEST_F(InteractionHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
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
      .asksInPerturbation = true,
      .staysWhenRefused = true,
      .moveEmptiesBetween = false,
      .staysPut = 8,
  };
  using Edits = test::RandomEdits<kinC_Interaction>;
  test::ExpectPlainHistories(kinC_Interaction::Constructors(), rules, 90,
                             {{"ContactExp", Edits::Free}, {"CavityRadiation", Edits::TakeBack}});
}

}  // namespace
