#include "module/kbc/kbcC_module.h"
#include "tests/support/ConstraintRules.h"
#include "tests/support/RandomEdits.h"

namespace {

class BoundaryConditionHistories : public test::WithLibrary {};

TEST_F(BoundaryConditionHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  test::ExpectPlainHistories(kbcC_BC::Constructors(), test::kConstraintRules, 80);
}

}  // namespace
