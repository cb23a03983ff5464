#include "module/kpf/kpfC_module.h"
#include "tests/support/FieldRules.h"
#include "tests/support/RandomEdits.h"

namespace {

class FieldHistories : public test::WithLibrary {};

TEST_F(FieldHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  test::ExpectPlainHistories(kpfC_Field::Constructors(), test::kFieldRules, 60);
}

}  // namespace
