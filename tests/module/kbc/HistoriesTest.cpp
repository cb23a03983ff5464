#include "module/kbc/kbcC_module.h"
#include "tests/support/RandomEdits.h"

namespace {

class BoundaryConditionHistories : public test::WithLibrary {};

TEST_F(BoundaryConditionHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  test::plain::Rules const rules = {
      .perturbation = test::SetOfProcedures("BUC FRQ SLP SSD SSS"),
      .modal = test::SetOfProcedures("MOD RAN RSP SSM SUB CFQ"),
      .carriedFromInitial = 9,
      .changedFromInitial = 10,
      .perturbationCarried = 9,
      .perturbationChanged = 10,
      .perturbationOff = 11,
      .asksInPerturbation = true,
      .staysWhenRefused = false,
  };
  test::ExpectPlainHistories(kbcC_Constructors(), rules, 60);
}

}  // namespace
