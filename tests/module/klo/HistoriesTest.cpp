#include "module/klo/kloC_module.h"
#include "tests/support/RandomEdits.h"

namespace {

class LoadHistories : public test::WithLibrary {};

TEST_F(LoadHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  using Edits = test::RandomEdits<kloC_Load>;
  test::ExpectPlainHistories(kloC_Load::Constructors(), test::plain::Rules(), 60,
                             {{"BoltLoad", Edits::SwitchOff}, {"BoltLoad", Edits::Move}, {"PressurePenetration", Edits::Move}});
}

}  // namespace
