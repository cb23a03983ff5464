#include "module/klo/kloC_module.h"
#include "tests/support/RandomEdits.h"

namespace {

class LoadHistories : public test::WithLibrary {};

TEST_F(LoadHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  test::plain::Rules const rules = {
      .perturbation = test::SetOfProcedures("BUC FRQ SLP SSD SSS MOD RAN RSP SSM CFQ"),
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
  test::ExpectPlainHistories(kloC_Constructors(), rules, 30,
                             {{"BoltLoad", Edits::Deactivate}, {"BoltLoad", Edits::Move}, {"PressurePenetration", Edits::Move}});
}

}  // namespace
