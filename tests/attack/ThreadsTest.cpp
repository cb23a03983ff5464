#include <sstream>
#include <thread>

#include "command/Journal.h"
#include "command/Session.h"
#include "tests/store/Models.h"
#include "tests/support/SixFamilies.h"

namespace {

/// Runs a journal, each line of which must succeed.
void RunJournal(gattr::Session& session, std::string const& journal) {
  std::istringstream lines(journal);
  gattr::JournalReader reader(lines);
  while (auto const command = reader.Next()) {
    gattr::Outcome const outcome = session.Execute(*command);
    EXPECT_TRUE(outcome.ok) << outcome.message;
  }
}

/// Everything that a reader of a model can ask for, as one text.
std::string Read(ddr_Model const& model) {
  std::string read = Dump(model);
  int families = 0;
  for (auto const& [member, extension] : model.Extensions()) {
    auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
    if (repository == nullptr) { continue; }
    families += repository->Size() == 0 ? 0 : 1;
    repository->ForEach([&](cow_String const& name, auto const& item) {
      item.ForEachRecord([&](std::size_t, mdl_PropagationStatusEnm status, cls_Object const* state) {
        read.append(name.View()) += std::to_string(static_cast<int>(status)) + (state == nullptr ? " " : "s ");
      });
    });
  }
  EXPECT_EQ(families, 6);
  return read;
}

// Each thread has handles of its own on what they share.
TEST(SnapshotsOnSeveralThreads, AreReadEditedAndSavedIndependently) {
  constexpr int kThreads = 4, kRounds = 20;
  gattr::Session made;
  RunJournal(made, test::kSixFamilies);
  ddr_Model const model = made.Model();
  std::string const before = Read(model);
  ScratchFolder folder;
  std::vector<std::string> read(kThreads);
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number] {
      for (int round = 0; round < kRounds; ++round) {
        if (Read(model) != before) { return; }
        gattr::Session session(model);
        RunJournal(session, test::kSixFamiliesEdited);
        ddr_Model snapshot = session.Model();
        kprC_RenameStep(snapshot, "Step-2", "Step-" + std::to_string(number * kRounds + round + 3));
        Store const& store = kStores[round % 2];
        auto const path = folder / (std::to_string(number) + store.fileName);
        store.write(snapshot, path);
        if (Dump(store.read(path)) != Dump(snapshot)) { return; }
      }
      read[static_cast<std::size_t>(number)] = Read(model);
    });
  }
  for (std::thread& thread : threads) { thread.join(); }
  for (std::string const& text : read) { EXPECT_EQ(text, before); }
}

}  // namespace
