#include "module/kin/kinC_module.h"
#include "tests/support/InteractionRules.h"
#include "tests/support/RandomEdits.h"

namespace {

class InteractionHistories : public test::WithLibrary {};

TEST_F(InteractionHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  using Edits = test::RandomEdits<kinC_Interaction>;
  test::ExpectPlainHistories(kinC_Interaction::Constructors(), test::kInteractionRules, 90, {{"CavityRadiation", Edits::TakeBack}});
}

}  // namespace
