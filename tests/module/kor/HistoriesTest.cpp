#include "module/kor/korC_module.h"
#include "tests/support/OutputRules.h"
#include "tests/support/RandomEdits.h"

namespace {

class OutputHistories : public test::WithLibrary {};

TEST_F(OutputHistories, OfBothKindsAreThoseThatAWalkOverEveryRecordGives) {
  test::ExpectPlainHistories(korC_FieldOutput::Constructors(), test::kOutputRules, 60);
  test::ExpectPlainHistories(korC_HistoryOutput::Constructors(), test::kOutputRules, 60);
}

}  // namespace
