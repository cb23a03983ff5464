#include "tests/support/MadeUpFamily.h"
#include "tests/support/RandomEdits.h"

namespace {

using test::madeup::kPlainRules;
using MadeUpHistories = test::madeup::WithMadeUpFamily;

TEST_F(MadeUpHistories, OfAllTypesAreThoseThatAWalkOverEveryRecordGives) {
  test::ExpectPlainHistories(tstC_Device::Constructors(), kPlainRules, 300);
  test::ExpectPlainHistories(tstC_Gauge::Constructors(), kPlainRules, 120);
  test::ExpectPlainHistories(tstC_Guide::Constructors(), kPlainRules, 40);
}

TEST_F(MadeUpHistories, BeginWithWhatTheStepsProcedureAsksFor) {
  tstC_Sampler const sampler;
  for (unsigned const procedure : {kprC_ProcedureType::Static, kprC_ProcedureType::HeatTransfer}) {
    auto const state = sampler.NewStateFor(procedure);
    EXPECT_EQ(state->Member("hot"), cls_Value(procedure == kprC_ProcedureType::HeatTransfer));
  }
}

TEST_F(MadeUpHistories, AskInTheInitialStepByItsFlagsAsFarAsTheTypeDoes) {
  struct Case {
    bool relaxed, explicitOnly, granted;
  };
  for (auto const& [relaxed, explicitOnly, granted] :
       {Case{false, false, false}, Case{false, true, true}, Case{true, false, true}, Case{true, true, true}}) {
    EXPECT_EQ(tstC_Pairing().ValidInStep(0, false, relaxed, explicitOnly), granted) << relaxed << explicitOnly;
    EXPECT_TRUE(tstC_Heater().ValidInStep(0, false, relaxed, explicitOnly));
  }
}

}  // namespace
