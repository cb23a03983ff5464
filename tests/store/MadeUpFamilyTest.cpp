#include "tests/support/MadeUpFamily.h"

#include "module/kin/kinC_module.h"
#include "module/kor/korC_module.h"
#include "module/kpf/kpfC_module.h"
#include "module/kpr/mesh/kprC_AdptMeshCons.h"
#include "tests/store/Models.h"
#include "tests/support/ConstraintRules.h"
#include "tests/support/FieldRules.h"
#include "tests/support/InteractionRules.h"
#include "tests/support/OutputRules.h"
#include "tests/support/RandomContact.h"
#include "tests/support/RandomEdits.h"

namespace {

using MadeUpFamily = test::madeup::WithMadeUpFamily;

/// A model of \p repository, with its steps.
template <class Attribute> ddr_Model ModelOf(std::string_view extension, kprC_PropagatingContainer<Attribute> const& repository) {
  ddr_Model model;
  kprC_StepTable const& table = repository.Steps();
  std::vector<kprC_StepContainer::NamedStep> steps;
  for (std::size_t i = 1; i < table.Size(); ++i) {
    steps.push_back({std::string(table.Name(i).View()), table[i].procedure.template As<kprC_Step>()});
  }
  auto& container = model.Get<kprC_StepContainer>(ddr_Model::stepsCmd());
  container.Insert(container.Name(0).View(), steps);
  model.Get<kprC_PropagatingContainer<Attribute>>(extension) = repository;
  kprC_UpdateRepositories(model);
  return model;
}

template <class Attribute> void ExpectToComeBack(std::string_view extension, unsigned scripts, test::plain::Rules const& rules) {
  using Edits = test::RandomEdits<Attribute>;
  for (auto const& type : Attribute::Constructors()) {
    for (unsigned seed = 1; seed <= scripts; ++seed) {
      typename Edits::Counts counts{};
      Edits edits(type, rules, seed);
      ASSERT_NO_FATAL_FAILURE(edits.Run(20, counts));
      ddr_Model const model = ModelOf(extension, edits.Made());
      for (Store const& store : kStores) {
        EXPECT_TRUE(WrittenAndRead(store, model).Equals(model)) << type.command << ", seed " << seed << ", " << store.fileName;
      }
    }
  }
}

TEST_F(MadeUpFamily, ComesBackFromEveryStoreAfterAnyEdits) {
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<tstC_Device>("devices", 20, test::madeup::kPlainRules));
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<tstC_Gauge>("gauges", 20, test::madeup::kPlainRules));
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<tstC_Guide>("guides", 20, test::madeup::kPlainRules));
}

// a family whose states do not list that they are switched off: it follows from the status
TEST(Interactions, ComeBackFromEveryStoreAfterAnyEdits) {
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<kinC_Interaction>(kinC_Interaction::interactionRepositoryCmd(), 8, test::kInteractionRules));
}

// states that are made for a procedure, and values that are lists or words
TEST(OutputRequests, ComeBackFromEveryStoreAfterAnyEdits) {
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<korC_FieldOutput>(korC_FieldOutput::repositoryCmd(), 40, test::kOutputRules));
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<korC_HistoryOutput>(korC_HistoryOutput::repositoryCmd(), 40, test::kOutputRules));
}

// reset to the initial value in place of switched off; members with several names
TEST(Fields, ComeBackFromEveryStoreAfterAnyEdits) {
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<kpfC_Field>(kpfC_Field::predefinedFieldsCmd(), 8, test::kFieldRules));
}

TEST(MeshConstraints, ComeBackFromEveryStoreAfterAnyEdits) {
  auto const extension = kprC_AdptMeshCons::adptMeshConsRepositoryCmd();
  ASSERT_NO_FATAL_FAILURE(ExpectToComeBack<kprC_AdptMeshCons>(extension, 20, test::kConstraintRules));
}

// lists of values that begin in any step
TEST(GeneralContact, ComesBackFromEveryStoreAfterAnyEdits) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    test::RandomContact contact(seed);
    ASSERT_NO_FATAL_FAILURE(contact.Run(30));
    ddr_Model const model = ModelOf(kinC_Interaction::interactionRepositoryCmd(), contact.repository);
    for (Store const& store : kStores) {
      EXPECT_TRUE(WrittenAndRead(store, model).Equals(model)) << "seed " << seed << ", " << store.fileName;
    }
  }
}

}  // namespace
